#include "SingleSliderImpl.h"

#include "EntryPanel.h"
#include "SliderBarImpl.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

QString sliderRules()
{
    return QStringLiteral(
        "QPushButton#enter { border: 1px solid #0a0; border-radius: 10px; font-size: 14px; }"
        "QPushButton#cancel, QPushButton#stepUp, QPushButton#stepDown {"
        " border: 1px solid white; border-radius: 10px; font-size: 14px; }"
        "QPushButton#stepUp { image: url(:/images/up_triangle.svg); }"
        "QPushButton#stepDown { image: url(:/images/down_triangle.svg); }"
        "QPushButton#incStep, QPushButton#decStep { font-size: 20px; border: 2px solid white;"
        " min-width: 44px; max-width: 44px; min-height: 58px; max-height: 58px; }"
        "QPushButton#incStep { border-right: none;"
        " border-top-left-radius: 10px; border-bottom-left-radius: 10px; }"
        "QPushButton#decStep { border-left: none;"
        " border-top-right-radius: 10px; border-bottom-right-radius: 10px; }"
        "QFrame#sliderBar { border: none; border-top: 2px solid white; border-bottom: 2px solid white;"
        " min-height: 58px; max-height: 58px;"
        " background-color: qlineargradient(x1:0, y1:0, x2:1, y2:0, stop:0 rgba(0,100,185,100),"
        " stop:0.48 rgba(0,100,185,175), stop:0.52 rgba(0,100,185,175), stop:1 rgba(0,100,185,100)); }"
        "QLineEdit#SliderReading { padding: 3px 0px -3px 4px;"
        " selection-color: black; selection-background-color: white; }");
}

bool landscape() { return qApp->property("-size").toString() == QLatin1String("landscape"); }

} // namespace

SingleSliderImpl::SingleSliderImpl(QWidget* parent, double value, double lower, double upper, int precision)
    : SliderImpl(parent)
    , m_bar(new SliderBarImpl(nullptr, value, lower, upper, precision))
    , m_styleText(EntryPanel::frameStyle(QStringLiteral("QFrame#Overlay")) + EntryPanel::rotateKeyStyle()
                  + sliderRules() + EntryPanel::confirmPressedRule(QStringLiteral("QPushButton#enter"), QStringLiteral("#0f0")))
{
    setObjectName(QStringLiteral("SingleSlider"));
    const int w = m_sliderWidth;
    const int h = m_sliderHeight;
    setFixedSize(w, h);
    const EntryPanel::Parts parts = EntryPanel::build(this, QSize(w, h), "Overlay", "Overlay");
    m_reading = parts.readOut;
    m_reading->setObjectName(QStringLiteral("SliderReading"));
    // Unlike the keypad's echo the read-out stays enabled: the landscape screens touch it to show the marked digit.
    m_reading->setEnabled(true);
    m_gapLabel = parts.gap;
    m_gapLabel->installEventFilter(this);
    layOutRuler(parts.mainFrame);

    const auto placedKey = [&](const char* name, const QString& text, const QRect& area) {
        QPushButton* key = EntryPanel::key(QLatin1String(name), text, parts.mainFrame);
        key->setGeometry(area);
        return key;
    };
    const auto bottomRow = [h](int left) { return QRect(QPoint(left, h - 62), QPoint(left + 51, h - 11)); };
    connect(placedKey("enter", QString(), bottomRow(10)), &QPushButton::clicked, this, &SingleSliderImpl::submit);
    connect(placedKey("cancel", QString(), bottomRow(114)), &QPushButton::clicked, this, &SliderImpl::cancelEntry);
    connect(placedKey("stepDown", QStringLiteral("-"), bottomRow(250)), &QPushButton::clicked, this,
            &SingleSliderImpl::decrementStep);
    connect(placedKey("stepUp", QStringLiteral("+"), bottomRow(354)), &QPushButton::clicked, this,
            &SingleSliderImpl::incrementStep);
    connect(placedKey("RotateEntry", QString(), QRect(QPoint(w - 46, h - 46), QPoint(w - 11, h - 11))),
            &QPushButton::clicked, this, &SingleSliderImpl::rotate);
    connect(m_bar, &SliderBarImpl::valueChanged, this, &SingleSliderImpl::updateIndicatorValue);

    borderFrame()->setStyleSheet(EntryPanel::hiddenBorderFrameStyle());
    setBorder(false);
    retranslate();
}

void SingleSliderImpl::setValue(const QString& value, const QString& unit)
{
    m_unit = unit;
    m_bar->setValue(value, unit);
    m_reading->setText(value);
}

void SingleSliderImpl::updateValue(const QString& value, const QString& unit)
{
    m_unit = unit;
    m_bar->updateLastValue(value.toDouble());
    m_bar->setValue(value, unit);
    updateIndicatorValue(value, unit);
}

void SingleSliderImpl::updateCursorPosition()
{
    if (landscape()) {
        // The landscape screens mark the digit only in a read-out that has been touched.
        const QPoint centre = m_reading->rect().center();
        QMouseEvent press(QEvent::MouseButtonPress, centre, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QMouseEvent release(QEvent::MouseButtonRelease, centre, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_reading, &press);
        QCoreApplication::sendEvent(m_reading, &release);
    }
    const DigitStep& step = m_bar->stepDigit();
    const QString text = m_reading->text();
    int position = step.cursorPosition(text);
    if (step.exponent() < 0.0)
        position = std::min(position, int(text.size()));
    // A digit left of the text marks its start; the ruler keeps its step.
    position = std::max(position, 0);
    m_reading->setCursorPosition(position);
    m_reading->setSelection(position, -step.markedLength());
}

void SingleSliderImpl::changePrecision(int precision) { m_bar->changePrecision(precision); }
void SingleSliderImpl::updateLimits(double lower, double upper) { m_bar->updateLimits(lower, upper); }
int SingleSliderImpl::getWidth() const { return m_sliderWidth; }
int SingleSliderImpl::getHeight() const { return m_sliderHeight; }
double SingleSliderImpl::getPower() const { return m_bar->stepDigit().exponent(); }
void SingleSliderImpl::setPower(double power) { m_bar->setStepExponent(std::trunc(power)); }
void SingleSliderImpl::setStep(double step) { m_bar->setStep(step); }

void SingleSliderImpl::retranslate()
{
    SliderImpl::retranslate();
    findChild<QPushButton*>(QStringLiteral("enter"))->setText(tr("Enter"));
    findChild<QPushButton*>(QStringLiteral("cancel"))->setText(tr("Cancel"));
    applyStyle();
}

bool SingleSliderImpl::eventFilter(QObject* watched, QEvent* event)
{
    // The gap under the read-out is no handle: a touch there must not drag the slider.
    if (watched == m_gapLabel && EntryPanel::isPointerEvent(event))
        return true;
    return SliderImpl::eventFilter(watched, event);
}

void SingleSliderImpl::submit()
{
    m_bar->updateLastValue(std::numeric_limits<double>::quiet_NaN());
    emit closeEntry();
}

void SingleSliderImpl::increment()
{
    m_bar->changeStep(1.0);
    updateCursorPosition();
}

void SingleSliderImpl::decrement()
{
    m_bar->changeStep(-1.0);
    updateCursorPosition();
}

void SingleSliderImpl::incrementStep() { stepBy(1.0); }
void SingleSliderImpl::decrementStep() { stepBy(-1.0); }
void SingleSliderImpl::rotate() { emit rotateEntryMechanism(objectName()); }

void SingleSliderImpl::updateIndicatorValue(const QString& value, const QString&)
{
    m_reading->setText(value);
    updateCursorPosition();
    emit valueChanged(value);
}

void SingleSliderImpl::layOutRuler(QWidget* parent)
{
    auto* frame = new QFrame(parent);
    frame->setGeometry(QRect(QPoint(0, 78), QPoint(m_sliderWidth - 1, 161)));
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(10, 0, 10, 0);
    row->setSpacing(0);
    QPushButton* coarser = EntryPanel::key(QStringLiteral("incStep"), QStringLiteral("x10"), frame);
    QPushButton* finer = EntryPanel::key(QStringLiteral("decStep"), QStringLiteral("/10"), frame);
    row->addWidget(coarser);
    row->addWidget(m_bar);
    row->addWidget(finer);
    connect(coarser, &QPushButton::clicked, this, &SingleSliderImpl::increment);
    connect(finer, &QPushButton::clicked, this, &SingleSliderImpl::decrement);
}

void SingleSliderImpl::stepBy(double direction)
{
    const double stepped = m_bar->currentValue() + direction * m_bar->stepDigit().size();
    updateValue(m_bar->fixDecPlaces(qBound(m_bar->lowerLimit(), stepped, m_bar->upperLimit())), m_unit);
}

void SingleSliderImpl::applyStyle()
{
    getContainerFrame()->setStyleSheet(EntryPanel::withLanguageRule(
        m_styleText, QStringLiteral("QPushButton#enter, QPushButton#cancel { font-size: 16px; }")));
}
