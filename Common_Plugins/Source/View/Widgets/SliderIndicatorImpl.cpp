#include "SliderIndicatorImpl.h"

#include "SliderBarImpl.h"

#include <QPainter>

#include <algorithm>

namespace {

const QColor activeRim(0, 170, 0, 255);
const QColor activeFill(0, 170, 0, 75);
const QColor idleRim(6, 103, 141, 255);
const QColor idleFill(6, 103, 141, 75);

int charWidth(QChar character, int minusWidth, int dotWidth, int digitWidth)
{
    if (character == QLatin1Char('-'))
        return minusWidth;
    if (character == QLatin1Char('.'))
        return dotWidth;
    return digitWidth;
}

} // namespace

SliderIndicatorImpl::SliderIndicatorImpl(SliderBarImpl* top, SliderBarImpl* bottom)
    : m_top{top, idleRim, idleFill}
    , m_text(QString::number(top->currentValue(), 'g', 6))
{
    setObjectName(QStringLiteral("sliderIndicator"));
    if (bottom)
        m_bottom = {bottom, idleRim, idleFill};
    QFont large = font();
    large.setPointSize(32);
    setFont(large);
}

void SliderIndicatorImpl::setValue(const QString& value, const QString& unit)
{
    m_text = value + QLatin1Char(' ') + unit;
    update();
}

void SliderIndicatorImpl::setBottomActive(bool active)
{
    Band& on = active ? m_bottom : m_top;
    Band& off = active ? m_top : m_bottom;
    on.rim = activeRim;
    on.fill = activeFill;
    off.rim = idleRim;
    off.fill = idleFill;
    update();
}

void SliderIndicatorImpl::setMinorStep() { update(); }
void SliderIndicatorImpl::setMajorStep() { update(); }

int SliderIndicatorImpl::calcWidth(const QString& text, int minusWidth, int dotWidth, int digitWidth)
{
    int width = 0;
    for (const QChar character : text)
        width += charWidth(character, minusWidth, dotWidth, digitWidth);
    return width;
}

void SliderIndicatorImpl::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    const QString number = m_text.section(QLatin1Char(' '), 0, 0);
    const QString unit = m_text.section(QLatin1Char(' '), 1);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto measured = [&painter](const QString& text) {
        return painter.boundingRect(QRect(), Qt::AlignLeft, text).width();
    };
    const int minusWidth = measured(QStringLiteral("-"));
    const int dotWidth = measured(QStringLiteral("."));
    const int digitWidth = measured(QStringLiteral("0"));
    const QString unitText = unit.isEmpty() ? QString() : QLatin1Char(' ') + unit;
    const int numberWidth = calcWidth(number, minusWidth, dotWidth, digitWidth);
    const QRect digits((width() - numberWidth - measured(unitText)) / 2, 0, numberWidth, height());

    for (const Band* band : {&m_top, &m_bottom}) {
        if (band->bar)
            paintBand(painter, *band, number, digits, minusWidth, dotWidth, digitWidth);
    }
    painter.setPen(Qt::white);
    int x = digits.left();
    // Digit by digit, so that each stands exactly where the bands measured it.
    for (const QChar character : number) {
        const int advance = charWidth(character, minusWidth, dotWidth, digitWidth);
        painter.drawText(QRect(x, 0, advance, height()), Qt::AlignCenter, QString(character));
        x += advance;
    }
    painter.drawText(QRect(x, 0, width() - x, height()), Qt::AlignLeft | Qt::AlignVCenter, unitText);
}

void SliderIndicatorImpl::paintBand(QPainter& painter, const Band& band, const QString& number, const QRect& digits,
                                    int minusWidth, int dotWidth, int digitWidth) const
{
    int start = 0;
    int end = 0;
    band.bar->getBound(number, start, end);
    start = std::clamp(start, 0, int(number.size()));
    end = std::clamp(end, start, int(number.size()));
    if (end == start)
        return;
    const int left = digits.left() + calcWidth(number.left(start), minusWidth, dotWidth, digitWidth);
    const int bandWidth = calcWidth(number.mid(start, end - start), minusWidth, dotWidth, digitWidth);
    const int textHeight = painter.fontMetrics().height();
    const QRectF area(left - 3, digits.center().y() - textHeight / 2 - 2, bandWidth + 6, textHeight + 4);
    painter.setPen(QPen(band.rim, 2));
    painter.setBrush(band.fill);
    painter.drawRoundedRect(area, 8, 8);
}
