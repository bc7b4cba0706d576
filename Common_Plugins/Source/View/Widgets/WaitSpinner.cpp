#include "WaitSpinner.h"

#include <QLabel>
#include <QPainter>
#include <QSvgRenderer>
#include <QTimer>

namespace {

// The rings' speeds are kept as first tuned, divisor included: the slight
// jump of the rings at each wrap belongs to the look.
constexpr double turnDivisor = 3.12159;
constexpr double wrapAngle = 12.56636;

void paintRing(QPainter& painter, QSvgRenderer* ring, double degrees, const QRectF& square)
{
    painter.save();
    painter.rotate(degrees);
    ring->render(&painter, square);
    painter.restore();
}

} // namespace

WaitSpinner::WaitSpinner(QWidget* parent, bool)
    : QWidget(parent)
    , m_timer(new QTimer(this))
    , m_textLabel(new QLabel(this))
    , m_ring1(new QSvgRenderer(QStringLiteral(":/images/svg/wait1.svg"), this))
    , m_ring2(new QSvgRenderer(QStringLiteral(":/images//svg/wait2.svg"), this))
    , m_ring3(new QSvgRenderer(QStringLiteral(":/images/svg/wait3.svg"), this))
{
    setObjectName(QStringLiteral("WaitSpinner"));
    setStyleSheet(QStringLiteral("WaitSpinner#WaitSpinner {\tmin-width: 160px;\tmin-height: 160px;}"
                                 "QLabel#text {\tbackground-color: transparent;\tcolor: white;}"));
    m_textLabel->setObjectName(QStringLiteral("text"));
    m_textLabel->setAlignment(Qt::AlignCenter);
    connect(m_timer, &QTimer::timeout, this, &WaitSpinner::timeOverEvent);
    show();
    m_timer->start(65);
}

void WaitSpinner::timeOverEvent()
{
    m_angle += m_angleStep;
    if (m_angle > wrapAngle)
        m_angle = 0.0;
    update();
}

void WaitSpinner::setTextDouble(double percent)
{
    m_textLabel->setText(QString::number(percent * 100.0, 'f', 0) + QLatin1Char('%'));
}

void WaitSpinner::setTextString(QString text) { m_textLabel->setText(text); }

void WaitSpinner::setTextVisible(bool visible) { m_textLabel->setVisible(visible); }

// Guarded, so that a caller may align on every tick without relayouting.
void WaitSpinner::alignText()
{
    const QSize hint = m_textLabel->sizeHint();
    if (m_textLabel->size() != hint)
        m_textLabel->resize(hint);
    const QPoint centred(width() / 2 - m_textLabel->width() / 2, height() / 2 - m_textLabel->height() / 2);
    if (m_textLabel->pos() != centred)
        m_textLabel->move(centred);
}

void WaitSpinner::paintEvent(QPaintEvent*)
{
    const int w = width();
    const int h = height();
    const int r = qMin(w / 2, h / 2) - 7;
    const QRectF square(-r, -r, 2 * r, 2 * r);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(w / 2, h / 2);
    paintRing(painter, m_ring1, 90.0 * m_angle / turnDivisor, square);
    paintRing(painter, m_ring2, 180.0 * m_angle / turnDivisor, square);
    paintRing(painter, m_ring3, -270.0 * m_angle / turnDivisor, square);
}
