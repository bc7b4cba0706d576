#include "MeterBar_HorizontalScale.h"

#include <QPainter>

MeterBar_HorizontalScale::MeterBar_HorizontalScale(const QString& text, QWidget* parent)
    : MeterBar_ScaleBase(text, 15, parent)
{
}

void MeterBar_HorizontalScale::updateHPos(int xPos)
{
    move(xPos - width() / 2, y());
}

// A replaced text gets 3 pixels more than the first one; kept on purpose.
int MeterBar_HorizontalScale::textMargin() const
{
    return 18;
}

// Not among the library's resources, on purpose: the cache entry is shared,
// so the label painted first decides the dash for both kinds.
QString MeterBar_HorizontalScale::dashResource() const
{
    return QStringLiteral(":/images/dash_horizontal.png");
}

void MeterBar_HorizontalScale::paintDecoration(QPainter& painter, const QPixmap& dash)
{
    painter.drawPixmap(QRect(width() / 2, -15, 4, 23), dash, QRect());
}
