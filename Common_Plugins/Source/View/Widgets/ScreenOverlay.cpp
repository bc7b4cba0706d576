#include "ScreenOverlay.h"

ScreenOverlay::ScreenOverlay(QWidget* parent)
    : QFrame(parent)
{
    setObjectName(QStringLiteral("overlay"));
    setStyleSheet(QStringLiteral("ScreenOverlay#overlay {    background-color: black;\t border-radius: 10px;}"));
}
