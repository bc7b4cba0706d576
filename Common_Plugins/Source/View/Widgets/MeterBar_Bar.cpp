#include "MeterBar_Bar.h"

#include <QDebug>
#include <QMutexLocker>
#include <QPainter>
#include <QResizeEvent>
#include <QSvgRenderer>
#include <QThread>

#include <climits>
#include <cmath>

namespace {

// The range step brings the limits within this, which keeps the painter
// window within the int range.
constexpr double rangeLimit = 1e9;

double roundHalfAway(double x)
{
    return x > 0 ? std::floor(x + 0.5) : std::ceil(x - 0.5);
}

// Truncated in double, not by a cast to 32 bits: the cast is undefined
// beyond the int range, and a whole limit such as 1e10 must count as whole so
// that the range step, not the integer step, brings it down. NaN and
// infinity count as whole and are left to the range step, which gives up
// after its bounded number of steps.
bool isWhole(double x)
{
    return !(std::fabs(x - std::trunc(x)) > 0);
}

// An int of the painter window. A value beyond what the range step
// guarantees (a stored limit not yet scaled, or one the step gave up on:
// NaN, infinite, beyond 1e21) would make the cast undefined, so it is
// clamped to that range.
int windowInt(double x, double bound)
{
    if (std::isnan(x))
        return 0;
    return static_cast<int>(qBound(-bound, x, bound));
}

int windowPosition(double x) { return windowInt(x, rangeLimit); }
int windowSpan(double x) { return windowInt(x, 2 * rangeLimit); }

// The edges are summed in 64 bits: a top of 1e9 and a span of 2e9 pass the
// int range.
QRect windowRect(int left, int top, int width, int height)
{
    const auto edge = [](qint64 value) { return static_cast<int>(qBound<qint64>(INT_MIN, value, INT_MAX)); };
    QRect rect;
    rect.setCoords(left, top, edge(qint64(left) + width - 1), edge(qint64(top) + height - 1));
    return rect;
}

struct Part
{
    double x, y, w, h;
};

// The filled part for a reading V between L and U, in the units of the
// window, the y counted down from the top of the bar. Returns false for
// limits the meter cannot show; the part is then left as it was.
bool placeVertical(Part& p, double v, double l, double u, bool isDb, const QRect& bar)
{
    // Upright, a level fills from its lower limit like a positive range.
    if (isDb || (u > 0 && l >= 0)) {
        if (v > u) {
            p.h = bar.height();
            p.y = 0;
        } else if (v <= u) {
            p.h = v - l;
            p.y = u - v;
        }
    } else if (u > 0 && l < 0) {
        if (v > u) {
            p.h = u;
            p.y = 0;
        } else if (v < 0 && v < l) {
            p.h = l;
            p.y = u;
        } else if (v < 0 && v >= l) {
            p.h = v;
            p.y = u;
        } else if (0 <= v && v <= u) {
            p.h = v;
            p.y = u - v;
        }
    } else if (u <= 0 && l < 0) {
        if (v > u) {
            p.y = 0;
            p.h = 0;
        } else if (v <= l) {
            p.y = 0;
            p.h = l - u;
        } else if (l < v && v <= u) {
            p.y = 0;
            p.h = v - u;
        }
    } else if (u <= 0 && l >= 0) {
        return false;
    }
    return true;
}

bool placeHorizontal(Part& p, double v, double l, double u, bool isDb, const QRect& bar)
{
    if (isDb) {
        if (v > u) {
            p.w = bar.width();
            p.x = 0;
        } else if (v <= u) {
            if (v < l) {
                p.w = 0;
            } else {
                p.x = u <= 0 ? -u : (l <= 0 ? l : 0);
                p.w = v - l;
            }
        }
    } else if (u > 0 && l >= 0) {
        if (v > u)
            p.w = bar.width();
        else if (v <= u)
            p.w = v < l ? 0 : v - l;
    } else if (u > 0 && l < 0) {
        if (v > u) {
            p.w = u;
        } else if (v < 0 && v < l) {
            p.w = l;
            p.x = l;
        } else if (v < 0 && v >= l) {
            p.w = v;
            p.x = v;
        } else if (0 <= v && v <= u) {
            p.w = v;
        }
    } else if (u <= 0 && l < 0) {
        if (v > u) {
            p.w = 0;
        } else if (v <= l) {
            p.w = l - u;
            p.x = 0;
        } else if (l < v && v <= u) {
            p.w = v - u;
            p.x = bar.width() + (v - u);
        }
    } else if (u <= 0 && l >= 0) {
        return false;
    }
    return true;
}

// State 2 fills the bar to its upper end and state 3 to its lower one,
// whatever the reading.
void pinVertical(Part& p, int state, double l, double u)
{
    if (state == 2) {
        if (u <= 0) {
            p.h = 0;
            p.y = u;
        } else if (u > 0 && l < 0) {
            p.h = u;
            p.y = 0;
        } else if (u > 0 && l >= 0) {
            p.h = u - l;
            p.y = 0;
        }
    } else if (state == 3) {
        if (u <= 0 && l < 0) {
            p.h = l - u;
            p.y = 0;
        } else if (u > 0 && l < 0) {
            p.h = l;
            p.y = u;
        } else {
            p.h = 0;
            p.y = l;
        }
    }
}

void pinHorizontal(Part& p, int state, double l, double u)
{
    if (state == 2) {
        if (u <= 0) {
            p.w = 0;
        } else if (u > 0 && l < 0) {
            p.w = u;
            p.x = 0;
        } else if (u > 0 && l >= 0) {
            p.w = u - l;
        }
    } else if (state == 3) {
        if (u <= 0 && l < 0) {
            p.w = l - u;
            p.x = -u;
        } else if (u > 0 && l < 0) {
            p.w = l;
            p.x = l;
        } else {
            p.w = 0;
            p.x = l;
        }
    }
}

// A negative size, as readings below zero and the pinned states give, has
// always meant the picture spreads from (x, y) by the size's magnitude.
// Qt 5's renderer fills the whole device for a target without area, so it
// is given the covered rectangle instead, and an empty part is not drawn.
QRectF coveredRect(const QRectF& part)
{
    return QRectF(part.x(), part.y(), std::fabs(part.width()), std::fabs(part.height()));
}

bool isFinite(const QRectF& rect)
{
    return std::isfinite(rect.x()) && std::isfinite(rect.y()) && std::isfinite(rect.width())
        && std::isfinite(rect.height());
}

} // namespace

MeterBar_Bar::MeterBar_Bar(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("MetBar_Bar"));
    m_green = new QSvgRenderer(QStringLiteral(":/images/meterbargreen.svg"), this);
    m_greenHorizontal = new QSvgRenderer(QStringLiteral(":/images/meterbargreen_horizontal.svg"), this);
    m_blue = new QSvgRenderer(QStringLiteral(":/images/meterbarblue.svg"), this);
    m_blueHorizontal = new QSvgRenderer(QStringLiteral(":/images/meterbarblue_horizontal.svg"), this);
    m_red = new QSvgRenderer(QStringLiteral(":/images/meterbarred.svg"), this);
    m_redHorizontal = new QSvgRenderer(QStringLiteral(":/images/meterbarred_horizontal.svg"), this);
    m_grey = new QSvgRenderer(QStringLiteral(":/images/meterbargrey.svg"), this);
    m_greyHorizontal = new QSvgRenderer(QStringLiteral(":/images/meterbargrey_horizontal.svg"), this);
    m_yellow = new QSvgRenderer(QStringLiteral(":/images/meterbaryellow.svg"), this);
    m_yellowHorizontal = new QSvgRenderer(QStringLiteral(":/images/meterbaryellow_horizontal.svg"), this);
    m_drawSize = size();
    m_barImage = drawBar(false);
}

bool MeterBar_Bar::horizontal() const
{
    return m_barHorizontal;
}

void MeterBar_Bar::setHorizontal(bool horizontal)
{
    // A size change may lay the meter down while samples are being drawn.
    QMutexLocker lock(&m_imageMutex);
    m_barHorizontal = horizontal;
    const int thickness = static_cast<int>(m_barThickness);
    const int span = windowSpan(m_upperLimit - m_lowerLimit);
    if (horizontal) {
        m_barRect = windowRect(0, 0, span, thickness);
        m_readingRect = QRectF(0, 0, m_reading, m_barThickness);
    } else {
        m_barRect = windowRect(0, windowPosition(m_upperLimit), thickness, span);
        m_readingRect = QRectF(0, m_upperLimit - m_reading, m_barThickness, m_reading);
    }
    m_barImage = drawBar(false);
    lock.unlock();
    update();
}

void MeterBar_Bar::suppressDebug(bool suppress)
{
    m_debugSuppressed = suppress;
}

void MeterBar_Bar::updateReading(double reading, double lowerLimit, double upperLimit, int state, QString unitLabel)
{
    {
        QMutexLocker lock(&m_imageMutex);
        m_reading = reading;
        m_state = state;
        m_unitLabel = unitLabel;
        m_isDb = unitLabel.startsWith(QLatin1String("dB"), Qt::CaseInsensitive);
        // Magnitudes only, as the meter has always compared them: a limit
        // that merely changes sign is neither a change nor taken.
        const bool limitsChanged = std::fabs(std::fabs(m_lowerLimit) - std::fabs(lowerLimit)) > 1e-7
            || std::fabs(std::fabs(m_upperLimit) - std::fabs(upperLimit)) > 1e-7;
        if (limitsChanged) {
            m_lowerLimit = lowerLimit;
            m_upperLimit = upperLimit;
        }
        if (!m_debugSuppressed) {
            qDebug() << "UserInterface - MeterBar_Bar:" << reading << m_lowerLimit << lowerLimit << "|" << m_upperLimit
                     << upperLimit << "|" << state << "|" << unitLabel << m_isDb << limitsChanged;
            qDebug() << "UserInterface - MeterReading state:" << state;
        }
        m_barImage = drawBar(limitsChanged);
    }
    // update() belongs to the GUI thread; from any other thread the request
    // is posted, and redraw() lets the owner hold the caller until it is taken.
    if (QThread::currentThread() == thread())
        update();
    else
        QMetaObject::invokeMethod(this, [this] { update(); }, Qt::QueuedConnection);
    emit redraw();
}

void MeterBar_Bar::resizeEvent(QResizeEvent* event)
{
    {
        QMutexLocker lock(&m_imageMutex);
        m_drawSize = event->size();
    }
    // The image is not redrawn: paintEvent stretches it until the next reading.
    emit resized();
}

void MeterBar_Bar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QMutexLocker lock(&m_imageMutex);
    painter.drawImage(QRect(0, 0, width(), height()), m_barImage,
                      QRect(0, 0, m_barImage.width(), m_barImage.height()));
}

QImage MeterBar_Bar::drawBar(bool limitsChanged)
{
    const int ww = m_drawSize.width();
    const int wh = m_drawSize.height();
    if (ww <= 0 || wh <= 0)
        return m_barImage.copy();

    QImage image(ww, wh, QImage::Format_ARGB32_Premultiplied);
    // The raw pixel 0x13 is Qt::transparent's enumerator taken as a pixel
    // value: alpha 0 with a stray blue. Kept on purpose; with alpha 0 it
    // composes as transparent.
    image.fill(0x13);
    QPainter painter(&image);

    double v = m_reading;
    double l = m_lowerLimit;
    double u = m_upperLimit;

    // The window is an int rectangle in the units of the limits, so
    // fractional limits are scaled up until they are whole.
    const bool lowerWhole = isWhole(l);
    const bool upperWhole = isWhole(u);
    if (!lowerWhole || !upperWhole) {
        if (!m_debugSuppressed)
            qDebug() << "UserInterface -" << lowerWhole << upperWhole;
        for (int steps = 0; !(isWhole(l) && isWhole(u)) && steps < m_maxRescaleSteps; ++steps) {
            v *= 10;
            l *= 10;
            u *= 10;
            limitsChanged = true;
        }
        l = roundHalfAway(l);
        u = roundHalfAway(u);
    }
    for (int steps = 0; !(std::fabs(u) <= rangeLimit && std::fabs(l) <= rangeLimit) && steps < m_maxRescaleSteps;
         ++steps) {
        v /= 10;
        l /= 10;
        u /= 10;
        limitsChanged = true;
    }

    if (limitsChanged) {
        const int span = windowSpan(u - l);
        if (m_barHorizontal)
            m_barRect = windowRect(m_barRect.left(), m_barRect.top(), span, m_barRect.height());
        else
            m_barRect = windowRect(m_barRect.left(), windowPosition(u), m_barRect.width(), span);
    }

    Part part{m_readingRect.x(), m_readingRect.y(), m_readingRect.width(), m_readingRect.height()};
    const bool placed = m_barHorizontal ? placeHorizontal(part, v, l, u, m_isDb, m_barRect)
                                        : placeVertical(part, v, l, u, m_isDb, m_barRect);
    if (!placed)
        qDebug() << "UserInterface - ERROR: Meter unexpected limits (Lower limit larger than Upper limit?).  UL:" << u
                 << " LL:" << l;

    QSvgRenderer* picture = nullptr;
    switch (m_state) {
    case 0:
        m_barColor = QColor(0, 140, 0, 255);
        picture = m_barHorizontal ? m_greenHorizontal : m_green;
        break;
    case 1:
    case 2:
        m_barColor = Qt::red;
        picture = m_barHorizontal ? m_redHorizontal : m_red;
        break;
    case 3:
        m_barColor = Qt::blue;
        picture = m_barHorizontal ? m_blueHorizontal : m_blue;
        break;
    case 5:
        m_barColor = Qt::yellow;
        picture = m_barHorizontal ? m_yellowHorizontal : m_yellow;
        break;
    default:
        m_barColor = Qt::gray;
        picture = m_barHorizontal ? m_greyHorizontal : m_grey;
        break;
    }

    painter.setPen(m_barColor);
    if (m_isDb || (u > 0 && l >= 0)) {
        if (m_barHorizontal)
            painter.drawLine(1, 0, 1, wh);
        else
            painter.drawLine(0, wh - 1, ww, wh - 1);
    } else if (u <= 0) {
        if (m_barHorizontal)
            painter.drawLine(ww - 1, 0, ww - 1, wh);
        else
            painter.drawLine(0, 0, ww, 0);
    }

    // A window without extent, or limits the range step gave up on, have no
    // mapping to pixels: the bar then shows no more than its base line.
    const bool mapped = m_barRect.width() != 0 && m_barRect.height() != 0 && std::fabs(u) <= rangeLimit
        && std::fabs(l) <= rangeLimit;
    if (mapped) {
        painter.setWindow(m_barRect);
        if (!m_barHorizontal)
            painter.translate(0, u);
        else if (u <= 0 || l < 0)
            painter.translate(u, 0);

        if (u > 0 && l < 0 && !m_isDb) {
            if (m_barHorizontal)
                painter.drawLine(0, 0, 0, wh);
            else
                painter.drawLine(0, windowPosition(u), ww, windowPosition(u));
        }
    }

    if (m_barHorizontal)
        pinHorizontal(part, m_state, l, u);
    else
        pinVertical(part, m_state, l, u);
    m_readingRect = QRectF(part.x, part.y, part.w, part.h);

    const QRectF target = coveredRect(m_readingRect);
    if (mapped && isFinite(target) && !target.isEmpty())
        picture->render(&painter, target);
    painter.end();

    if (!m_debugSuppressed)
        qDebug() << "UserInterface - MeterBar_Bar::drawBar - ReadingRect:" << m_readingRect << " BarRect:" << m_barRect;
    return image;
}
