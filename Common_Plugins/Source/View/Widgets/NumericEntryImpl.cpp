#include "NumericEntryImpl.h"

#include "ComboBoxImpl.h"
#include "GlobalImpl.h"
#include "MeterReadings.h"
#include "NumericEntryStyle.h"
#include "NumericLink.h"
#include "NumpadEntryImpl.h"
#include "QRVUtil.h"
#include "ReadingSelector.h"
#include "SystemModule.h"
#include "ValueHelper.h"

#include <Brenmoor.hh>

#include <QDebug>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>

#include <boost/bind/bind.hpp>

#include <cmath>

using namespace boost::placeholders;
using Kelvane::Value::Units;

namespace {

QString wholeNumberText(long value, bool hex)
{
    return QString::number(value, hex ? 16 : 10);
}

} // namespace

NumericEntryImpl::NumericEntryImpl(QWidget* parent, const QString& label, const QList<QString>* units)
    : WidgetBaseImpl(parent)
    , m_sizeName(QRVUtil::initialSize())
    , m_valueEdit(new QLineEdit(QStringLiteral("0.00"), this))
    , m_styleReadOnly(NumericEntryStyle::readOnlySuffix())
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
        addUnits(*units, keys);
    }
    setLockImageVisible(false);

    connect(this, &WidgetBaseImpl::DisplayEntryMechanism, this, &NumericEntryImpl::displayEntryMechanism);
    connect(this, &WidgetBaseImpl::CloseEntryMechanism, this, &NumericEntryImpl::closeInput);
    connect(this, &NumericEntryImpl::baseUnitChanged, this, &NumericEntryImpl::updateUnitListWidget,
            Qt::BlockingQueuedConnection);
    connect(this, &NumericEntryImpl::valueChange, this, qOverload<const QString&>(&NumericEntryImpl::setValue),
            Qt::BlockingQueuedConnection);
    connect(this, &NumericEntryImpl::revertChangeSignal, this, &NumericEntryImpl::revertChanges);
    connect(m_valueEdit, &QLineEdit::textEdited, this, &NumericEntryImpl::noteEntry);
    connect(m_valueEdit, &QLineEdit::returnPressed, this, &NumericEntryImpl::enterValue);
    connect(m_valueEdit, &QLineEdit::returnPressed, this, &WidgetBaseImpl::CloseEntryMechanism);
}

NumericEntryImpl::~NumericEntryImpl()
{
    // Samples and sends read the units and the value of this class.
    waitForSends();
    releaseSubscriptions();
    delete m_numpad;
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
NumpadEntryImpl* NumericEntryImpl::numpadWidget() const { return m_numpad; }
ComboBoxImpl* NumericEntryImpl::unitSelectorWidget() const { return m_unitSelector; }
double NumericEntryImpl::baseValue() const { return m_value; }
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
    return m_unitSelector ? m_unitSelector->getText() : QString();
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
    m_noUnitMatch = false;
    const QList<long> keys = m_units.offeredKeys();
    const Units base = getBaseUnit();
    QStringList labels;
    for (long key : keys)
        labels << ValueHelper::getUnitString(m_units.unit(key));
    addUnits(labels, keys);
    if (m_numpad)
        m_numpad->setUnitList(labels);
    if (!keys.isEmpty() && !keys.contains(m_defaultUnit))
        m_defaultUnit = keys.first();
    setIndex(m_defaultUnit);
    if (keys.isEmpty() && m_unitSelector) {
        qDebug() << "UserInterface -" << getAttributeName() << "expected units but found none that match. --"
                 << m_units.unitListString();
        qDebug() << "UserInterface -" << getAttributeName() << ": going to use baseUnit:";
        ValueHelper::printUnit(base);
        m_noUnitMatch = true;
        addUnits(QStringList{ValueHelper::getUnitString(base)}, QList<long>{0});
    }
    if (m_unitSelector) {
        if (ValueHelper::getUnitString(base).trimmed().isEmpty())
            m_unitSelector->hide();
        if (!m_unitNames.isEmpty() && !m_unitNames.first().isEmpty())
            m_unitSelector->show();
    }
    changeSize(m_sizeName);
}

void NumericEntryImpl::addUnits(const QStringList& labels, const QList<long>& keys)
{
    m_unitNames = labels;
    m_unitKeys = keys;
    const bool created = !m_unitSelector;
    if (created)
        createUnitSelector();
    QList<ComboBoxListStruct> list;
    for (int i = 0; i < keys.size(); ++i)
        list << ComboBoxListStruct(keys.at(i), labels.at(i), true);
    m_unitSelector->setList(list, -1);
    m_unitSelector->fitToWidestChoice();
    if (!created)
        return;
    m_unitSelector->setEnabled(false);
    m_unitSelector->setEnum(m_defaultUnit);
    changeSize(m_sizeName);
}

void NumericEntryImpl::createUnitSelector()
{
    m_unitSelector = new ComboBoxImpl(true);
    static_cast<QGridLayout*>(layout())->addWidget(m_unitSelector, 1, 1);
    connect(m_unitSelector, &ComboBoxImpl::updateEnum, this, [this](long key) { setIndex(key); });
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
    if (!m_unitKeys.contains(key) || m_noUnitMatch)
        return;
    m_units.setDisplayUnit(m_units.unit(key));
    m_defaultUnit = key;
    if (m_unitSelector)
        m_unitSelector->setEnum(key);
    updateReading(m_units.converted(m_value, m_units.unit(key)));
    updateSliderBounds(key);
    emit unitChanged(m_unitSelector ? m_unitSelector->getText() : QString());
    emit newUnit(key);
}

void NumericEntryImpl::setUnit(const QString& unit)
{
    if (m_unitSelector) {
        m_unitSelector->setText(unit);
        setIndex(m_unitSelector->getEnum());
        emit unitChanged(unit);
    }
    closeInput();
}

void NumericEntryImpl::initializeValueUnits(const Units& wire)
{
    m_units.setWireUnit(wire);
    if (m_units.unitListString().isEmpty()) {
        qDebug() << "UserInterface - ERROR:" << getAttributeName()
                 << "uses unit based values, set Units string in UI file.";
        return;
    }
    // Offered again against the engine's base unit.
    setUnitListString(m_units.unitListString());
    if (m_unitKeys.contains(m_defaultUnit))
        m_units.setDisplayUnit(m_units.unit(m_defaultUnit));
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
    const QString text = wholeNumberText(value, m_isHex);
    m_valueEdit->setText(text);
    m_savedText = text;
    emit valueChanged(double(value));
}

void NumericEntryImpl::setValue(double value, const QString& inputUnit)
{
    m_value = value;
    if (!inputUnit.isEmpty()) {
        m_units.takeBaseUnit(inputUnit);
        value = m_units.inDisplayUnit(value);
    }
    updateReading(value);
}

void NumericEntryImpl::setValue(double value)
{
    setValue(value, QString());
}

void NumericEntryImpl::setValue(long value, const QString& inputUnit)
{
    m_value = double(value);
    double shown = double(value);
    if (!inputUnit.isEmpty()) {
        m_units.takeBaseUnit(inputUnit);
        shown = m_units.inDisplayUnit(shown);
    }
    updateReading(long(shown));
}

void NumericEntryImpl::setValue(long value)
{
    setValue(value, QString());
}

void NumericEntryImpl::setValue(const QString& text)
{
    const QString shown = m_isHex ? text.toUpper() : text;
    m_valueEdit->setText(m_sizeName == QLatin1String("Thumb") ? thumbCut(shown) : shown);
    double number = 0.0;
    if (text.endsWith(QLatin1Char('?')))
        number = text.chopped(1).toDouble();
    else if (text.isEmpty() || text == QLatin1String("Over Limit"))
        return;
    else
        number = text.toDouble();
    emit valueChanged(m_units.broadcast(number));
}

// The small field keeps what the cut leaves, however odd: an operator of the
// small screen knows it so.
QString NumericEntryImpl::thumbCut(const QString& text) const
{
    QString rest = text;
    QString out;
    int cut = 0;
    while (text.length() > 4 && cut < 4 && !rest.isEmpty()) {
        rest.remove(0, 1);
        out += rest;
        if (rest != QLatin1String(".") && rest != QLatin1String("-"))
            ++cut;
    }
    return out;
}

void NumericEntryImpl::setPrecision(int precision)
{
    setPrecision(precision, m_units.inDisplayUnit(m_value));
}

void NumericEntryImpl::setPrecision(int precision, double value)
{
    m_precision = precision;
    updateReading(value);
    if (m_numpad)
        m_numpad->changePrecision(precision);
}

void NumericEntryImpl::clear()
{
    m_valueEdit->clear();
    if (m_unitSelector)
        m_unitSelector->clear();
}

// ---- look ----------------------------------------------------------------

void NumericEntryImpl::changeSize(const QString& size)
{
    m_sizeName = size;
    if (QRVUtil::startupSwitchIs("-size", QStringLiteral("small_portrait")) && size == QLatin1String("Max"))
        m_sizeName = QStringLiteral("Min");
    const bool withUnit = !m_unitNames.isEmpty() && !m_unitNames.first().isEmpty();
    const QString& sheet = m_sizeName == QLatin1String("Max")   ? (withUnit ? m_styleUnitMax : m_stylePlainMax)
                           : m_sizeName == QLatin1String("Min") ? (withUnit ? m_styleUnitMin : m_stylePlainMin)
                                                                : (withUnit ? m_styleUnitThumb : m_stylePlainThumb);
    const bool known = m_sizeName == QLatin1String("Max") || m_sizeName == QLatin1String("Min")
                       || m_sizeName == QLatin1String("Thumb");
    if (known)
        setStyleSheet(sheet);
    if (!m_unitSelector)
        return;
    if (withUnit && known)
        m_unitSelector->changeSize(m_sizeName);
    m_unitSelector->fitToWidestChoice();
}

void NumericEntryImpl::buildSheets(bool lockImage)
{
    m_styleUnitMax = NumericEntryStyle::withUnit(QStringLiteral("Max"), lockImage);
    m_styleUnitMin = NumericEntryStyle::withUnit(QStringLiteral("Min"), lockImage);
    m_styleUnitThumb = NumericEntryStyle::withUnit(QStringLiteral("Thumb"), lockImage);
    m_stylePlainMax = NumericEntryStyle::plain(QStringLiteral("Max"), lockImage);
    m_stylePlainMin = NumericEntryStyle::plain(QStringLiteral("Min"), lockImage);
    m_stylePlainThumb = NumericEntryStyle::plain(QStringLiteral("Thumb"), lockImage);
}

void NumericEntryImpl::setLockImageVisible(const bool& visible)
{
    buildSheets(visible);
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
    // The small field without a selector keeps its white border.
    for (QString* sheet : {&m_styleUnitMax, &m_styleUnitMin, &m_stylePlainMax, &m_stylePlainMin, &m_styleUnitThumb})
        *sheet += m_styleReadOnly;
    if (m_unitSelector)
        m_unitSelector->setReadOnlyStyle();
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
    if (m_numpad)
        m_numpad->raise();
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
        if (m_unitFrozen || !m_unitSelector)
            return;
        m_unitSelectOpen = true;
        m_unitSelector->acquireLock();
        return;
    }
    if (m_valueFrozen)
        return;
    m_savedText = m_valueEdit->text();
    if (m_unitSelector)
        m_savedUnit = m_unitSelector->getEnum();
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
    const QList<QString> units = m_unitNames;
    m_numpad = new NumpadEntryImpl(m_valueEdit, window(), &units, isHex, 260, 380, realtimeUpdate,
                                   m_units.inDisplayUnit(m_lowerLimit), m_units.inDisplayUnit(m_upperLimit), m_precision);
    m_numpad->hide();
    connect(m_numpad, &BaseEntryImpl::cancelEntry, this, &NumericEntryImpl::restoreValue);
    connect(m_numpad, &NumpadEntryImpl::updateUnit, this, &NumericEntryImpl::setUnit);
    connect(m_numpad, &NumpadEntryImpl::updateUnit, this, &NumericEntryImpl::enterValue);
    connect(m_numpad, qOverload<QString>(&NumpadEntryImpl::valueChanged), this,
            &NumericEntryImpl::setAndEnterValue);
    connect(m_numpad, qOverload<>(&NumpadEntryImpl::valueChanged), this, &NumericEntryImpl::noteEntry);
    connect(m_numpad, &BaseEntryImpl::clearEntry, this, &NumericEntryImpl::noteEntry);
    connect(m_numpad, &NumpadEntryImpl::rotateEntryMechanism, this, &NumericEntryImpl::rotateEntryMechanism);
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
    if (m_numLocked || !m_numpad) {
        emit CloseEntryMechanism();
        return;
    }
    QWidget* screen = GlobalImpl::getInstance()->systemModule()->getSystemScreen(QStringLiteral("MainWindow"));
    if (screen && m_numpad->parentWidget() != screen)
        m_numpad->setParent(screen);
    if (m_unitSelectOpen)
        return;
    if (m_unitSelector)
        m_unitSelector->setEnabled(true);
    const int selectorWidth = m_unitSelector && m_unitSelector->isVisible() ? m_unitSelector->width() : 0;
    const QWidget* area = m_numpad->parentWidget();
    m_placement = EntryPlacement(EntryPlacement::fieldRect(m_valueEdit, area), m_numpad->size(), selectorWidth,
                                 area ? area->size() : QSize(800, 480));
    m_numpad->move(m_placement.position());
    m_numpad->setValue(m_valueEdit->text());
    if (m_numpad->realtimeUpdate())
        m_numpad->updateCursorPosition();
    m_numpad->show();
    m_numpad->raise();
    m_valueEdit->setEnabled(true);
    m_valueEdit->setFocus();
    m_valueEdit->end(false);
    m_valueEdit->selectAll();
}

// The keypad is the only mechanism a field has for now; its rotate key
// leaves it where it is.
void NumericEntryImpl::rotateEntryMechanism(const QString&) {}

void NumericEntryImpl::closeInput()
{
    if (m_numpad)
        m_numpad->hide();
    m_valueEdit->setEnabled(false);
    if (m_unitSelector)
        m_unitSelector->setEnabled(false);
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
    m_nothingEnteredSinceSend = false;
}

void NumericEntryImpl::revertChanges()
{
    m_valueEdit->setText(m_savedText);
    if (m_unitSelector) {
        m_unitSelector->setEnum(m_savedUnit);
        m_units.setDisplayUnit(m_units.unit(m_savedUnit, getDisplayUnit()));
    }
    updateSliderBounds(m_savedUnit);
}

void NumericEntryImpl::restoreValue()
{
    revertChanges();
    const NumericLink* number = link<NumericLink>();
    if (number && number->isSettable())
        startSend(number, m_savedValue);
    closeInput();
}

void NumericEntryImpl::updateSliderBounds(long key)
{
    if (!m_numpad || !m_numpad->realtimeUpdate())
        return;
    const Units unit = m_units.unit(key, getBaseUnit());
    m_numpad->updateLimits(m_units.converted(m_lowerLimit, unit), m_units.converted(m_upperLimit, unit));
}

// ---- binding -------------------------------------------------------------

void NumericEntryImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    const QVariant hex = property("IsHex");
    if (hex.isValid())
        m_isHex = hex.toBool();
    WidgetBaseImpl::bindAttribute(attr);
    NumericLink* number
        = bindAs<NumericLink>(attr, NumericLink::AnyNumber, ">>>>>Expected Numeric type but received: %s (%s)");
    if (!number)
        return;
    number->selectReading(m_readingIndex);
    if (number->number() == NumericLink::Number::Meter)
        bindMeter(number);
    else if (number->isSettable())
        bindSettable(number);
    else
        bindReading(number);
}

void NumericEntryImpl::bindSettable(const NumericLink* number)
{
    readValue(number);
    if (!number->carriesUnits())
        m_units.setUnitless();
    setPrecision(number->isWhole() ? 0 : m_precision);
    if (number->number() == NumericLink::Number::Long)
        setValue(wholeNumberText(long(m_value), m_isHex));
    number->limits(&m_lowerLimit, &m_upperLimit);
    addNumpad(m_isHex, m_realtimeUpdate);
    if (number->carriesUnits()) {
        updateSliderBounds(m_unitSelector ? m_unitSelector->getEnum() : 0);
        setIndex(m_defaultUnit);
    }
    number->follow(boost::bind(&NumericEntryImpl::dds_callback, this, _1, _2));
    number->followLimits(boost::bind(&NumericEntryImpl::dds_params_callback, this, _1));
    connect(this, &NumericEntryImpl::updateLimits, this, &NumericEntryImpl::updateParams,
            Qt::ConnectionType(Qt::BlockingQueuedConnection | Qt::UniqueConnection));
}

void NumericEntryImpl::bindReading(const NumericLink* number)
{
    readValue(number);
    setPrecision(number->isWhole() ? 0 : m_precision);
    if (number->carriesUnits())
        setIndex(m_defaultUnit);
    number->follow(boost::bind(&NumericEntryImpl::dds_callback, this, _1, _2));
    setReadOnlyStyle();
}

// A value record brings its unit, which becomes the field's base unit.
void NumericEntryImpl::readValue(const NumericLink* number)
{
    NumericSample sample;
    number->read(&sample);
    m_value = sample.value;
    if (number->carriesUnits())
        initializeValueUnits(sample.units);
}

void NumericEntryImpl::bindMeter(const NumericLink* meter)
{
    NumericSample sample;
    QList<long> types;
    if (!meter->read(&sample, &types)) {
        qDebug() << "UserInterface - >>>>> Error meter reading structure empty for Numeric " << getAttributeName();
    } else {
        for (long type : qAsConst(types))
            m_readingNames << MeterReadings::translateReadingType(type);
        m_value = sample.value;
        initializeValueUnits(sample.units);
        m_readingHasNoValue = sample.noValue;
        m_readingDoubtful = sample.doubtful;
        setPrecision(m_precision);
        setIndex(m_defaultUnit);
        if (sample.noValue)
            setValue(QString());
        else
            setValue(QString::number(m_units.inDisplayUnit(m_value), 'g', 6) + (sample.doubtful ? QStringLiteral("?") : QString()));
    }
    meter->follow(boost::bind(&NumericEntryImpl::dds_callback, this, _1, _2));
    setReadOnlyStyle();
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

// ---- samples, on a DDS thread ---------------------------------------------

void NumericEntryImpl::logReceived(double number, const Units& unit) const
{
    if (!m_suppressDebug)
        qDebug().noquote() << "UserInterface -" << getAttributeName() << "@"
                           << GlobalImpl::getParentWindowName(const_cast<NumericEntryImpl*>(this)) << "Received:"
                           << QString::number(number, 'g', 15) << ValueHelper::getUnitString(unit);
}

void NumericEntryImpl::followBaseUnit(const Units& wire, bool alsoDisplay)
{
    if (m_units.followBaseUnit(wire, alsoDisplay))
        emit baseUnitChanged(wire);
}

void NumericEntryImpl::dds_callback(const char*, const NumericSample& sample)
{
    const NumericLink* number = link<NumericLink>();
    if (!number)
        return;
    m_value = sample.value;
    if (number->carriesUnits()) {
        logReceived(sample.value, sample.units);
        // A meter's reading may change its unit with the range; the field follows it all the way.
        followBaseUnit(sample.units, number->number() == NumericLink::Number::Meter);
    } else if (!m_suppressDebug) {
        qDebug() << "UserInterface - " << getAttributeName() << "Received:" << sample.value << ", Hex:"
                 << QString::number(qint64(sample.value), 16);
    }
    m_readingHasNoValue = sample.noValue;
    m_readingDoubtful = sample.doubtful;
    emit valueChange(sampleText(number, sample));
}

QString NumericEntryImpl::sampleText(const NumericLink* number, const NumericSample& sample) const
{
    switch (number->number()) {
    case NumericLink::Number::Long:
        return wholeNumberText(long(sample.value), m_isHex);
    case NumericLink::Number::Double:
        return m_isHex ? QString::number(qint64(sample.value), 16) : QString::number(sample.value, 'g', 6);
    case NumericLink::Number::ValueLong:
        return QString::number(m_units.inDisplayUnit(sample.value), 'g', 6);
    case NumericLink::Number::ValueDouble:
        return QString::number(m_units.inDisplayUnit(sample.value), 'f', m_precision);
    case NumericLink::Number::Meter:
        break;
    }
    if (sample.overLimit)
        return QStringLiteral("Over Limit");
    if (sample.noValue)
        return QString();
    return QString::number(m_units.inDisplayUnit(sample.value), 'f', m_precision)
           + (sample.doubtful ? QStringLiteral("?") : QString());
}

void NumericEntryImpl::dds_params_callback(const char*)
{
    emit updateLimits();
}

void NumericEntryImpl::updateParams()
{
    const NumericLink* number = link<NumericLink>();
    if (!number || !number->limits(&m_lowerLimit, &m_upperLimit))
        return;
    updateSliderBounds(number->carriesUnits() && m_unitSelector ? m_unitSelector->getEnum() : 0);
}

// ---- the way out ---------------------------------------------------------

void NumericEntryImpl::enterValue()
{
    const QString text = m_valueEdit->text();
    const NumericLink* number = link<NumericLink>();
    if (!number || !number->isSettable()) {
        const double entered = text.toDouble();
        m_value = ValueHelper::convertValue(entered, getDisplayUnit(), getBaseUnit());
        updateReading(entered);
    } else {
        const QString unit = ValueHelper::getUnitString(getDisplayUnit());
        if (m_nothingEnteredSinceSend && unit == m_unitOfLastSend) {
            // The box shows the engine's value from before the last send: sent
            // again, it would undo that send before the engine's sample comes.
        } else if (!showEngineValue(number)) {
            qDebug() << "UserInterface - NUMERIC:" << getAttributeName() << "threw exception while sending:" << text;
            revertChanges();
        } else {
            // The box shows the engine's value until the engine's sample brings the new one.
            startSend(number, enteredNumber(number, text));
            m_nothingEnteredSinceSend = true;
            m_unitOfLastSend = unit;
        }
    }
    emit valueChanged(m_units.broadcast(m_valueEdit->text().toDouble()));
}

// The operator's text as the engine takes it: in the base unit, whole numbers cut.
double NumericEntryImpl::enteredNumber(const NumericLink* number, const QString& text) const
{
    switch (number->number()) {
    case NumericLink::Number::Long:
        return double(text.toLong(nullptr, m_isHex ? 16 : 10));
    case NumericLink::Number::ValueLong:
        return std::trunc(ValueHelper::convertValue(long(text.toDouble()), getDisplayUnit(), getBaseUnit()));
    case NumericLink::Number::ValueDouble:
        return ValueHelper::convertValue(text.toDouble(), getDisplayUnit(), getBaseUnit());
    default:
        return text.toDouble();
    }
}

bool NumericEntryImpl::showEngineValue(const NumericLink* number)
{
    NumericSample sample;
    if (callEngine([&] { number->read(&sample); }) != EngineCall::Done)
        return false;
    m_valueEdit->setText(number->number() == NumericLink::Number::Long ? QString::number(long(sample.value))
                         : number->number() == NumericLink::Number::Double
                             ? QString::number(sample.value, 'f', m_precision)
                             : sampleText(number, sample));
    return true;
}

NumericEntryImpl::Outgoing NumericEntryImpl::outgoing(double number) const
{
    const NumericUnits::ForSend units = m_units.forSend();
    return {number, units.wireUnit, units.displayLabel, m_valueEdit->text()};
}

// ---- sends, on a worker ----------------------------------------------------

void NumericEntryImpl::startSend(const NumericLink* number, double value)
{
    const Outgoing out = outgoing(value);
    if (number->isWhole())
        sendOnWorker([this, number, out] { sendLong(number, out); });
    else
        sendOnWorker([this, number, out] { sendDouble(number, out); });
}

void NumericEntryImpl::sendDouble(const NumericLink* number, const Outgoing& out)
{
    send(out, [&] {
        if (number->carriesUnits())
            qDebug() << "UserInterface - Numeric: " << getAttributeName() << " - Sending (ValueDouble): "
                     << QString::number(out.number, 'g', 15) << out.unitLabel;
        else
            qDebug() << "UserInterface - Numeric: " << getAttributeName() << " - Sending (Double): " << out.number;
        number->set(out.number, out.wireUnit);
    }, "g");
}

void NumericEntryImpl::sendLong(const NumericLink* number, const Outgoing& out)
{
    send(out, [&] {
        if (number->carriesUnits())
            qDebug() << "UserInterface - Numeric: " << getAttributeName() << " - Sending (ValueLong): "
                     << CORBA::Long(out.number) << out.unitLabel;
        else
            qDebug() << "UserInterface - Numeric: " << getAttributeName() << " - Sending (Long): "
                     << CORBA::Long(out.number);
        number->set(out.number, out.wireUnit);
    }, "d");
}

// One catch order for every send: out of range is told to the operator and
// put right, a lost link veils the field, anything else is put right.
void NumericEntryImpl::send(const Outgoing& out, const std::function<void()>& call, const char* format)
{
    auto number = [format](double v) {
        return *format == 'g' ? QString::number(v, 'g', 6) : QString::number(qint64(v));
    };
    QString failure;
    const EngineCall outcome = callEngine([&] {
        try {
            call();
        } catch (const Brenmoor::Operation_errors::DataOutOfRange& error) {
            reportOutOfRange(QString::fromLatin1(error._name()), number(error.actual), number(error.lower),
                             number(error.upper));
        }
    }, &failure);
    if (outcome != EngineCall::Refused)
        return;
    qDebug() << "UserInterface - NUMERIC:" << getAttributeName() << "threw exception while sending:" << out.fieldText
             << failure;
    emit revertChangeSignal();
}

void NumericEntryImpl::reportOutOfRange(const QString& text, const QString& actual, const QString& lower,
                                        const QString& upper)
{
    qDebug() << "UserInterface -" << text << "Exception info (actual, lower, upper):" << actual << lower << upper;
    emit exceptionMessage(text + QStringLiteral(" - Exception info (actual, lower, upper): ") + actual
                          + QLatin1Char(' ') + lower + QLatin1Char(' ') + upper);
    emit revertChangeSignal();
}
