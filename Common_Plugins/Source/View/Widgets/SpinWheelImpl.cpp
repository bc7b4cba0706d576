#include "SpinWheelImpl.h"

#include "EntryPanel.h"

#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

#include <cmath>

namespace {

const double pi = 3.14159265358979323846;
const int markerReach = 70;
const int markerSize = 64;
const int samplesAnalysed = 5;

QString wheelStyle()
{
    return EntryPanel::frameStyle(QStringLiteral("QFrame#Overlay"))
        + QStringLiteral("QFrame#SpinFrame { color: white; border: 1px solid white;"
                         " background-color: transparent; border-radius: 110px; }"
                         "QFrame#ButtonFrame { color: white; border: 1px solid white;"
                         " background-color: transparent; border-radius: 35px; }"
                         "QPushButton#Enter { color: white; border: 1px solid #0a0; background-color: transparent;"
                         " border-radius: 30px; font-size: 14px; }"
                         "QPushButton#Decrement, QPushButton#Increment { color: white; font-size: 14px;"
                         " border: 1px solid white; border-radius: 10px; }"
                         "QPushButton#Cancel { color: white; font-size: 10px; border: 1px solid white;"
                         " border-radius: 10px; }"
                         "QPushButton#SpinWheelMarker { border: none; background-color: qradialgradient(cx:0.5,"
                         " cy:0.5, radius:0.5, fx:0.5, fy:0.5, stop:0 rgba(255,255,255,225),"
                         " stop:1 rgba(0,0,0,0)); }"
                         "QLineEdit { selection-color: black; selection-background-color: white; }")
        + EntryPanel::confirmPressedRule(QStringLiteral("QPushButton#Enter"), QStringLiteral("#0a0"))
        + EntryPanel::rotateKeyStyle();
}

//! Steps of the marked digit for a turn at \a speed radians per millisecond.
int stepsFor(double speed)
{
    const double magnitude = std::abs(speed);
    const int steps = magnitude > 60.0 ? 4 : magnitude > 30.0 ? 3 : magnitude > 15.0 ? 2 : 1;
    return speed > 0.0 ? steps : -steps;
}

} // namespace

SpinWheelImpl::SpinWheelImpl(QWidget* parent, double lower, double upper, int precision, int width, int height)
    : ContainerImpl(parent)
    , m_wheelWidth(width)
    , m_wheelHeight(height)
    , m_precision(precision)
    , m_lower(lower)
    , m_upper(upper)
    , m_styleText(wheelStyle())
{
    const int w = width;
    const int h = height;
    setObjectName(QStringLiteral("SpinWheel"));
    setFixedSize(w, h);
    const EntryPanel::Parts parts = EntryPanel::build(this, QSize(w, h), "Overlay", "Overlay");
    m_wheelEdit = parts.readOut;
    parts.gap->setObjectName(QStringLiteral("Gap"));

    m_spinFrame = new QFrame(parts.mainFrame);
    m_spinFrame->setObjectName(QStringLiteral("SpinFrame"));
    m_spinFrame->setGeometry(QRect(QPoint(20, 95), QPoint(239, 314)));
    auto* buttonFrame = new QFrame(m_spinFrame);
    buttonFrame->setObjectName(QStringLiteral("ButtonFrame"));
    buttonFrame->setGeometry(QRect(QPoint(75, 75), QPoint(144, 144)));
    QPushButton* enter = addKey(buttonFrame, "Enter", QRect(QPoint(5, 5), QPoint(64, 64)), "Enter");
    enter->setFlat(true);
    connect(enter, &QPushButton::clicked, this, &SpinWheelImpl::closeEntry);
    m_marker = new QPushButton(m_spinFrame);
    m_marker->setObjectName(QStringLiteral("SpinWheelMarker"));
    m_marker->setAttribute(Qt::WA_TransparentForMouseEvents);
    placeMarker(0.0);
    m_marker->hide();

    connect(addKey(parts.mainFrame, "Decrement", QRect(QPoint(w - 50, 88), QPoint(w - 11, 127)), "/10"),
            &QPushButton::clicked, this, &SpinWheelImpl::decrement);
    connect(addKey(parts.mainFrame, "Increment", QRect(QPoint(10, 88), QPoint(49, 127)), "x10"),
            &QPushButton::clicked, this, &SpinWheelImpl::increment);
    connect(addKey(parts.mainFrame, "RotateEntry", QRect(QPoint(w - 46, h - 46), QPoint(w - 11, h - 11)), ""),
            &QPushButton::clicked, this, &SpinWheelImpl::rotate);
    connect(addKey(parts.mainFrame, "Cancel", QRect(QPoint(10, h - 50), QPoint(49, h - 11)), "Cancel"),
            &QPushButton::clicked, this, &SpinWheelImpl::cancelEntry);
    connect(this, &SpinWheelImpl::updateValue, this, &SpinWheelImpl::wheelIncrement);

    borderFrame()->setStyleSheet(EntryPanel::hiddenBorderFrameStyle());
    setBorder(false);
    updateStyle();
    retranslate();
}

void SpinWheelImpl::setValue(const QString& text)
{
    m_wheelEdit->setText(text);
    m_currentValue = text.toDouble();
}

void SpinWheelImpl::changePrecision(int precision) { m_precision = precision; }

void SpinWheelImpl::updateLimits(double lower, double upper)
{
    m_lower = lower;
    m_upper = upper;
}

void SpinWheelImpl::resetStep() { m_step.reset(); }

void SpinWheelImpl::updateCursorPosition() { m_step.markIn(m_wheelEdit); }

void SpinWheelImpl::retranslate()
{
    ContainerImpl::retranslate();
    if (auto* enter = findChild<QPushButton*>(QStringLiteral("Enter")))
        enter->setText(tr("Enter"));
    if (auto* cancel = findChild<QPushButton*>(QStringLiteral("Cancel")))
        cancel->setText(tr("Cancel"));
    getContainerFrame()->setStyleSheet(EntryPanel::withLanguageRule(
        m_styleText, QStringLiteral("QPushButton#Enter, QPushButton#Cancel { font-size: 16px; }")));
}

GestureClock& SpinWheelImpl::gestureClock() { return m_pressTime; }

// ---- the finger ------------------------------------------------------------

void SpinWheelImpl::mousePressEvent(QMouseEvent* event)
{
    const QWidget* child = childAt(event->pos());
    m_outsideWheel = true;
    if (child == m_spinFrame) {
        if (withinCircle(m_spinFrame->mapFrom(this, event->pos()), m_spinFrame->width() / 2)) {
            m_radSamples.clear();
            m_speedSamples.clear();
            m_outsideWheel = false;
            m_pressTime.start();
            mouseMoveEvent(event);
            m_marker->show();
            return;
        }
        ContainerImpl::mousePressEvent(event);
    } else if (child && child->objectName() == QLatin1String("Gap")) {
        ContainerImpl::mousePressEvent(event);
    }
}

void SpinWheelImpl::mouseMoveEvent(QMouseEvent* event)
{
    if (m_outsideWheel) {
        ContainerImpl::mouseMoveEvent(event);
        return;
    }
    const QPoint onDial = m_spinFrame->mapFrom(this, event->pos());
    moveMarker(getRadians(onDial.x() - m_wheelRadius, onDial.y() - m_wheelRadius));
}

void SpinWheelImpl::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_outsideWheel)
        ContainerImpl::mouseReleaseEvent(event);
    else
        m_marker->hide();
}

bool SpinWheelImpl::withinCircle(const QPoint& point, int radius) const
{
    const double dx = point.x() - radius;
    const double dy = point.y() - radius;
    return std::sqrt(dx * dx + dy * dy) <= radius;
}

// Clockwise on the screen from the positive x axis, in 0 to 2 pi.
double SpinWheelImpl::getRadians(int dx, int dy) const
{
    if (dx == 0)
        return dy > 0 ? pi / 2.0 : 3.0 * pi / 2.0;
    double radians = std::atan(double(dy) / dx);
    if (dx < 0)
        radians += pi;
    else if (dy < 0)
        radians += 2.0 * pi;
    return radians;
}

void SpinWheelImpl::placeMarker(double radians)
{
    const int corner = m_wheelRadius - markerSize / 2;
    m_marker->setGeometry(int(std::cos(radians) * markerReach) + corner, int(std::sin(radians) * markerReach) + corner,
                          markerSize, markerSize);
}

void SpinWheelImpl::moveMarker(double radians)
{
    placeMarker(radians);
    m_radSamples.append(RadSample{radians, m_pressTime.elapsed()});
    if (m_radSamples.size() == samplesAnalysed) {
        analyzeSpeed();
        m_radSamples.removeFirst();
    }
}

/*
  A step needs five speeds of one sign in a row and then enough analyses
  since the last step, so a wavering finger moves nothing. A turn across
  angle 0 counts as the jump it is: on short time differences it reads as
  the fastest of turns.
*/
void SpinWheelImpl::analyzeSpeed()
{
    double sum = 0.0;
    for (int i = 1; i < m_radSamples.size(); ++i) {
        const int elapsed = m_radSamples.at(i).milliseconds - m_radSamples.at(i - 1).milliseconds;
        if (elapsed != 0)
            sum += (m_radSamples.at(i).radians - m_radSamples.at(i - 1).radians) / elapsed;
    }
    const double speed = sum / (m_radSamples.size() - 1);
    m_speedSamples.append(speed);
    if (m_speedSamples.size() != samplesAnalysed)
        return;
    int signs = 0;
    for (double sample : qAsConst(m_speedSamples))
        signs += sample > 0.0 ? 1 : -1;
    if (std::abs(signs) == samplesAnalysed && m_spinCount > m_spinThreshold) {
        m_spinCount = 0;
        emit updateValue(speed);
    } else {
        ++m_spinCount;
    }
    m_speedSamples.removeFirst();
}

// ---- the value ---------------------------------------------------------------

void SpinWheelImpl::wheelIncrement(double speed)
{
    const double candidate = m_currentValue + m_step.size() * stepsFor(speed);
    // Written to refuse NaN limits as well as a step past one.
    if (!(candidate >= m_lower && candidate <= m_upper))
        return;
    // The tiny term keeps a decimal value from falling just short of the
    // digit when written; the limits see the value without it, so that a
    // limit such as 11 can be reached.
    setValue(QString::number(candidate + 1e-15, 'f', m_precision));
    updateCursorPosition();
    emit valueChanged(m_wheelEdit->text());
}

void SpinWheelImpl::decrement() { changeStep(-1.0); }
void SpinWheelImpl::increment() { changeStep(1.0); }

void SpinWheelImpl::changeStep(double places)
{
    if (m_step.change(places, m_currentValue, m_lower, m_upper, m_precision))
        updateCursorPosition();
}

void SpinWheelImpl::rotate() { emit rotateEntryMechanism(objectName()); }

QPushButton* SpinWheelImpl::addKey(QWidget* parent, const char* name, const QRect& area, const char* text)
{
    QPushButton* key = EntryPanel::key(QLatin1String(name), QLatin1String(text), parent);
    key->setGeometry(area);
    return key;
}
