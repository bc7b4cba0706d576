#include "NumericEntryImpl.h"

#include "ComboBoxImpl.h"
#include "GlobalImpl.h"
#include "MeterReadings.h"
#include "NumericEntryStyle.h"
#include "NumericLink.h"
#include "QRVUtil.h"
#include "ReadingSelector.h"
#include "ValueHelper.h"

#include <QDebug>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>

using Kelvane::Value::Units;

NumericEntryImpl::NumericEntryImpl(QWidget* parent, const QString& label, const QList<QString>* units)
    : WidgetBaseImpl(parent)
    , m_sizeName(QRVUtil::initialSize())
    , m_valueEdit(new QLineEdit(QStringLiteral("0.00"), this))
{
    qRegisterMetaType<Kelvane::Value::Units>("Kelvane::Value::Units");
    setObjectName(QStringLiteral("NumericEntry"));
    auto* layout = new QGridLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    setLabelWidget(new QLabel);
    layout->addWidget(getLabelWidget(), 0, 0, 1, 2);
    setLabel(label);
    layout->addWidget(m_valueEdit, 1, 0);
    m_valueEdit->setEnabled(false);
    if (units && !units->isEmpty()) {
        QList<long> keys;
        for (int i = 0; i < units->size(); ++i)
            keys << i;
        m_unitSelector.offer(*units, keys, m_defaultUnit);
    }
    setLockImageVisible(false);

    connect(this, &WidgetBaseImpl::DisplayEntryMechanism, this, &NumericEntryImpl::displayEntryMechanism);
    connect(this, &WidgetBaseImpl::CloseEntryMechanism, this, &NumericEntryImpl::closeInput);
    connect(this, &NumericEntryImpl::baseUnitChanged, this, &NumericEntryImpl::updateUnitListWidget,
            Qt::BlockingQueuedConnection);
    connect(this, &NumericEntryImpl::valueChange, this, qOverload<const QString&>(&NumericEntryImpl::setValue),
            Qt::BlockingQueuedConnection);
    connect(this, &NumericEntryImpl::revertChangeSignal, this, &NumericEntryImpl::takeRefusal);
    connect(m_valueEdit, &QLineEdit::textEdited, this, &NumericEntryImpl::noteEntry);
    connect(m_valueEdit, &QLineEdit::returnPressed, this, &NumericEntryImpl::enterValue);
    connect(m_valueEdit, &QLineEdit::returnPressed, this, &WidgetBaseImpl::CloseEntryMechanism);
}

NumericEntryImpl::~NumericEntryImpl()
{
    // Samples and sends read the units and the value of this class.
    waitForSends();
    releaseSubscriptions();
}

// ---- properties ----------------------------------------------------------

QString NumericEntryImpl::getUnitListString() const { return m_units.unitListString(); }
int NumericEntryImpl::getDefaultUnit() const { return int(m_defaultUnit); }
void NumericEntryImpl::setDefaultUnit(int key) { m_defaultUnit = key; }
int NumericEntryImpl::getSliderBar() const { return m_sliderBar; }
void NumericEntryImpl::setSliderBar(int sliderBar) { m_sliderBar = sliderBar; }
bool NumericEntryImpl::getIsHex() const { return m_isHex; }
void NumericEntryImpl::setIsHex(bool isHex) { m_isHex = isHex; }
bool NumericEntryImpl::getFilterByBaseUnit() const { return m_units.filterByBaseUnit(); }
void NumericEntryImpl::setFilterByBaseUnit(bool filter) { m_units.setFilterByBaseUnit(filter); }
bool NumericEntryImpl::getReadOnly() const { return m_readOnly; }
bool NumericEntryImpl::getSpinWheel() const { return m_useSpinWheel; }
void NumericEntryImpl::setSpinWheel(bool useSpinWheel) { m_useSpinWheel = useSpinWheel; }
bool NumericEntryImpl::getRealtimeUpdate() const { return m_realtimeUpdate; }
void NumericEntryImpl::setRealtimeUpdate(bool realtime) { m_realtimeUpdate = realtime; }
int NumericEntryImpl::precision() const { return m_precision; }
QString NumericEntryImpl::getValue() const { return m_valueEdit->text(); }
void NumericEntryImpl::setNumLocked(bool locked) { m_numLocked = locked; }
NumpadEntryImpl* NumericEntryImpl::numpadWidget() const { return m_mechanisms.numpad(); }
SpinWheelImpl* NumericEntryImpl::spinWheelWidget() const { return m_mechanisms.spinWheel(); }
SliderImpl* NumericEntryImpl::sliderWidget() const { return m_mechanisms.slider(); }
ComboBoxImpl* NumericEntryImpl::unitSelectorWidget() const { return m_unitSelector.widget(); }
double NumericEntryImpl::baseValue() const { return m_value; }
double NumericEntryImpl::lowerLimit() const { return m_lowerLimit; }
double NumericEntryImpl::upperLimit() const { return m_upperLimit; }
Units NumericEntryImpl::getBaseUnit() const { return m_units.baseUnit(); }
Units NumericEntryImpl::getDisplayUnit() const { return m_units.displayUnit(); }
void NumericEntryImpl::setBroadcastUnit(const QString& unit) { m_units.setBroadcastUnit(unit); }
void NumericEntryImpl::clearBroadcastUnit() { m_units.clearBroadcastUnit(); }
long NumericEntryImpl::selectedUnitKey() const { return m_defaultUnit; }

bool NumericEntryImpl::selectableUnits(QList<Units>* units, QString* error) const
{
    return m_units.allUnits(units, error);
}

QMetaObject::Connection NumericEntryImpl::followUnitChoice(QObject* receiver, std::function<void(long)> onChoice)
{
    return connect(this, &NumericEntryImpl::newUnit, receiver, std::move(onChoice));
}

QString NumericEntryImpl::getUnit() const
{
    return m_unitSelector.text();
}

// ---- the unit list -------------------------------------------------------

void NumericEntryImpl::setUnitListString(const QString& units)
{
    m_units.setUnitListString(units, getAttributeName());
    if (CORBA::is_nil(m_attribute) && m_units.contains(0))
        m_units.setBaseUnit(m_units.unit(0));
    updateUnitListWidget();
}

void NumericEntryImpl::updateUnitListWidget()
{
    const QList<long> keys = m_units.offeredKeys();
    const Units base = getBaseUnit();
    QStringList labels;
    for (long key : keys)
        labels << ValueHelper::getUnitString(m_units.unit(key));
    m_unitSelector.offer(labels, keys, m_defaultUnit);
    m_mechanisms.setUnitList(labels);
    if (!keys.isEmpty() && !keys.contains(m_defaultUnit))
        m_defaultUnit = keys.first();
    setIndex(m_defaultUnit);
    if (ComboBoxImpl* selector = m_unitSelector.widget()) {
        if (keys.isEmpty()) {
            qDebug() << "UserInterface -" << getAttributeName() << "expected units but found none that match. --"
                     << m_units.unitListString();
            qDebug() << "UserInterface -" << getAttributeName() << ": going to use baseUnit:";
            ValueHelper::printUnit(base);
            m_unitSelector.offerOnly(ValueHelper::getUnitString(base));
        }
        if (ValueHelper::getUnitString(base).trimmed().isEmpty())
            selector->hide();
        if (m_unitSelector.showsUnit())
            selector->show();
    }
    changeSize(m_sizeName);
}

bool NumericEntryImpl::baseUnitsMatch(const Units& a, const Units& b) const
{
    return a.base == b.base;
}

void NumericEntryImpl::setIndex(int key)
{
    setIndex(long(key));
}

void NumericEntryImpl::setIndex(const long& key)
{
    if (!m_unitSelector.offers(key))
        return;
    m_units.setDisplayUnit(m_units.unit(key));
    m_defaultUnit = key;
    m_unitSelector.show(key);
    updateReading(m_units.converted(m_value, m_units.unit(key)));
    m_mechanisms.updateSliderBounds(key);
    emit unitChanged(m_unitSelector.text());
    emit newUnit(key);
}

void NumericEntryImpl::setUnit(const QString& unit)
{
    if (ComboBoxImpl* selector = m_unitSelector.widget()) {
        selector->setText(unit);
        setIndex(selector->getEnum());
        emit unitChanged(unit);
    }
    closeInput();
}

// ---- texts ---------------------------------------------------------------

void NumericEntryImpl::updateReading(double value)
{
    if (m_valueEdit->isEnabled())
        return;
    QString text = QString::number(value, 'f', m_precision);
    if (isMeter()) {
        if (m_readingHasNoValue)
            text.clear();
        else if (m_readingDoubtful)
            text += QLatin1Char('?');
    }
    setValue(text);
}

bool NumericEntryImpl::isMeter() const
{
    const NumericLink* number = link<NumericLink>();
    return number && number->number() == NumericLink::Number::Meter;
}

void NumericEntryImpl::updateReading(long value)
{
    if (m_valueEdit->isEnabled())
        return;
    const QString text = NumericEntryBinding::wholeNumberText(value, m_isHex);
    m_valueEdit->setText(text);
    m_savedText = text;
    emit valueChanged(double(value));
}

// A value given with a unit description brings the base unit along.
double NumericEntryImpl::takeGivenValue(double value, const QString& inputUnit)
{
    m_value = value;
    if (inputUnit.isEmpty())
        return value;
    m_units.takeBaseUnit(inputUnit);
    return m_units.inDisplayUnit(value);
}

void NumericEntryImpl::setValue(double value, const QString& inputUnit)
{
    updateReading(takeGivenValue(value, inputUnit));
}

void NumericEntryImpl::setValue(long value, const QString& inputUnit)
{
    updateReading(long(takeGivenValue(double(value), inputUnit)));
}

void NumericEntryImpl::setValue(double value)
{
    setValue(value, QString());
}

void NumericEntryImpl::setValue(long value)
{
    setValue(value, QString());
}

void NumericEntryImpl::setValue(const QString& text)
{
    const QString shown = m_isHex ? text.toUpper() : text;
    m_valueEdit->setText(m_sizeName == QLatin1String("Thumb") ? NumericEntryStyle::thumbCut(shown) : shown);
    double number = 0.0;
    if (text.endsWith(QLatin1Char('?')))
        number = text.chopped(1).toDouble();
    else if (text.isEmpty() || text == QLatin1String("Over Limit"))
        return;
    else
        number = text.toDouble();
    emit valueChanged(m_units.broadcast(number));
}

void NumericEntryImpl::setPrecision(int precision)
{
    setPrecision(precision, m_units.inDisplayUnit(m_value));
}

void NumericEntryImpl::setPrecision(int precision, double value)
{
    m_precision = precision;
    updateReading(value);
    m_mechanisms.changePrecision(precision);
}

void NumericEntryImpl::clear()
{
    m_valueEdit->clear();
    m_unitSelector.clear();
}

// ---- look ----------------------------------------------------------------

void NumericEntryImpl::changeSize(const QString& size)
{
    m_sizeName = size;
    if (QRVUtil::startupSwitchIs("-size", QStringLiteral("small_portrait")) && size == QLatin1String("Max"))
        m_sizeName = QStringLiteral("Min");
    const bool withUnit = m_unitSelector.showsUnit();
    const QString* sheet = m_style.sheet(m_sizeName, withUnit);
    if (sheet)
        setStyleSheet(*sheet);
    ComboBoxImpl* selector = m_unitSelector.widget();
    if (!selector)
        return;
    if (withUnit && sheet)
        selector->changeSize(m_sizeName);
    selector->fitToWidestChoice();
}

void NumericEntryImpl::setLockImageVisible(const bool& visible)
{
    m_style.build(visible);
    if (m_readOnly)
        setReadOnlyStyle();
    changeSize(m_sizeName);
}

void NumericEntryImpl::setReadOnly(bool state)
{
    m_readOnly = state;
    if (state)
        setReadOnlyStyle();
}

void NumericEntryImpl::setReadOnlyStyle()
{
    m_style.markReadOnly();
    m_unitSelector.setReadOnlyStyle();
    changeSize(m_sizeName);
}

void NumericEntryImpl::setEnableState(int state)
{
    setEnabled(state != 0);
    m_unitFrozen = state == 1;
    m_valueFrozen = state == 2;
}

void NumericEntryImpl::retranslate()
{
    WidgetBaseImpl::retranslate();
    changeSize(m_sizeName);
}

void NumericEntryImpl::raise()
{
    WidgetBaseImpl::raise();
    m_mechanisms.raise();
}

// ---- touches and the keypad ----------------------------------------------

void NumericEntryImpl::mousePressEvent(QMouseEvent* event)
{
    const QWidget* child = childAt(event->pos());
    if (child && child->objectName() == QLatin1String("cboText"))
        return;
    QWidget::mousePressEvent(event);
}

void NumericEntryImpl::mouseReleaseEvent(QMouseEvent* event)
{
    const QWidget* child = childAt(event->pos());
    if (child && child->objectName() == QLatin1String("cboText")) {
        ComboBoxImpl* selector = m_unitSelector.widget();
        if (m_unitFrozen || !selector)
            return;
        m_unitSelectOpen = true;
        selector->acquireLock();
        return;
    }
    if (m_valueFrozen)
        return;
    m_savedText = m_valueEdit->text();
    m_savedUnit = m_unitSelector.key(m_savedUnit);
    m_unitSelectOpen = false;
    WidgetBaseImpl::mouseReleaseEvent(event);
}

void NumericEntryImpl::hideEvent(QHideEvent* event)
{
    closeInput();
    WidgetBaseImpl::hideEvent(event);
}

void NumericEntryImpl::addNumpad(bool isHex, bool realtimeUpdate)
{
    m_mechanisms.addNumpad(isHex, realtimeUpdate);
}

void NumericEntryImpl::addSpinWheel(double lower, double upper)
{
    m_mechanisms.addSpinWheel(lower, upper);
}

void NumericEntryImpl::addSliderControl(const bool& single, const double& lower, const double& upper)
{
    m_mechanisms.addSliderControl(single, lower, upper);
}

void NumericEntryImpl::displayEntryMechanism()
{
    m_savedValue = m_value;
    if (m_readOnly) {
        releaseLock();
        return;
    }
    if (!QRVUtil::isHandheld())
        GlobalImpl::getInstance()->topNavMenu();
    if (m_numLocked || !m_mechanisms.exists()) {
        emit CloseEntryMechanism();
        return;
    }
    if (m_unitSelectOpen)
        return;
    m_unitSelector.setEnabled(true);
    if (!m_mechanisms.open(m_unitSelector.visibleWidth()))
        return;
    m_valueEdit->setEnabled(true);
    m_valueEdit->setFocus();
    m_valueEdit->end(false);
    m_valueEdit->selectAll();
}

void NumericEntryImpl::rotateEntryMechanism(const QString& entry)
{
    m_mechanisms.rotate(entry);
}

void NumericEntryImpl::sliderCloseSlot()
{
    enterValue();
    closeInput();
}

void NumericEntryImpl::sliderSetSlot(const QString& text)
{
    setAndEnterValue(text);
}

void NumericEntryImpl::clearSlider()
{
    m_mechanisms.clearSlider();
}

void NumericEntryImpl::closeInput()
{
    m_mechanisms.close();
    m_valueEdit->setEnabled(false);
    m_unitSelector.setEnabled(false);
    m_valueEdit->setFocus(Qt::OtherFocusReason);
    releaseLock();
}

void NumericEntryImpl::setAndEnterValue(const QString& text)
{
    noteEntry();
    setValue(text);
    enterValue();
}

void NumericEntryImpl::noteEntry()
{
    m_binding.noteEntry();
}

void NumericEntryImpl::revertChanges()
{
    m_valueEdit->setText(m_savedText);
    if (ComboBoxImpl* selector = m_unitSelector.widget()) {
        selector->setEnum(m_savedUnit);
        m_units.setDisplayUnit(m_units.unit(m_savedUnit, getDisplayUnit()));
    }
    m_mechanisms.updateSliderBounds(m_savedUnit);
}

// A mechanism that sends as it moves has had steps accepted since the
// touch: the engine's value, not the one from before, is what now holds.
void NumericEntryImpl::takeRefusal()
{
    revertChanges();
    if (!m_mechanisms.isStepping())
        return;
    if (const NumericLink* number = link<NumericLink>())
        m_binding.showEngineValue(number);
    m_mechanisms.followField();
}

void NumericEntryImpl::restoreValue()
{
    revertChanges();
    const NumericLink* number = link<NumericLink>();
    if (number && number->isSettable())
        m_binding.startSend(number, m_savedValue);
    closeInput();
}

// ---- the engine ----------------------------------------------------------

void NumericEntryImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    const QVariant hex = property("IsHex");
    if (hex.isValid())
        m_isHex = hex.toBool();
    WidgetBaseImpl::bindAttribute(attr);
    if (NumericLink* number
        = bindAs<NumericLink>(attr, NumericLink::AnyNumber, ">>>>>Expected Numeric type but received: %s (%s)"))
        m_binding.bind(number);
}

void NumericEntryImpl::registerReadingSelector(QWidget* widget)
{
    if (ReadingSelector* selector = MeterReadings::offerTo(widget, m_readingNames))
        selector->followReadingChoice(this, [this](long index) { setReadingIndex(index); });
}

void NumericEntryImpl::setReadingIndex(long index)
{
    m_readingIndex = index;
    if (NumericLink* meter = link<NumericLink>())
        meter->selectReading(index);
}

QString NumericEntryImpl::translateReadingType(long type)
{
    return MeterReadings::translateReadingType(type);
}

void NumericEntryImpl::dds_callback(const char*, const NumericSample& sample)
{
    if (const NumericLink* number = link<NumericLink>())
        emit valueChange(m_binding.takeSample(number, sample));
}

void NumericEntryImpl::dds_params_callback(const char*)
{
    emit updateLimits();
}

void NumericEntryImpl::updateParams()
{
    if (const NumericLink* number = link<NumericLink>())
        m_binding.updateLimits(number);
}

// ---- the way out ---------------------------------------------------------

void NumericEntryImpl::enterValue()
{
    const QString text = m_valueEdit->text();
    const NumericLink* number = link<NumericLink>();
    if (!number || !number->isSettable()) {
        const double entered = text.toDouble();
        m_value = m_units.inBaseUnit(entered);
        updateReading(entered);
    } else {
        m_binding.enter(number, text);
    }
    emit valueChanged(m_units.broadcast(m_valueEdit->text().toDouble()));
}
