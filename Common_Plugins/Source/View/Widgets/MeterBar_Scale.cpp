#include "MeterBar_Scale.h"

#include <QPainter>

MeterBar_Scale::MeterBar_Scale(const QString& text, QWidget* parent)
    : MeterBar_ScaleBase(text, 45, parent)
{
}

void MeterBar_Scale::updateVPos(int yPos)
{
    move(x(), yPos - height() / 2);
}

int MeterBar_Scale::textMargin() const
{
    return 45;
}

QString MeterBar_Scale::dashResource() const
{
    return QStringLiteral(":/images/dash.png");
}

void MeterBar_Scale::paintDecoration(QPainter& painter, const QPixmap& dash)
{
    const int h = height();
    // Arcs side by side thicken the rounded left end.
    for (int x = 17; x <= 25; x += 2)
        painter.drawArc(QRect(x, 2, h - 2, h - 4), 4320, -2880);
    painter.drawPixmap(QRect(0, h / 2 - 2, 23, 4), dash, QRect());
}
