#include "NumericEntryBinding.h"

#include "ComboBoxImpl.h"
#include "GlobalImpl.h"
#include "MeterReadings.h"
#include "NumericEntryImpl.h"
#include "NumericLink.h"
#include "ValueHelper.h"

#include <QDebug>
#include <QLineEdit>

#include <boost/bind/bind.hpp>

#include <cmath>

using namespace boost::placeholders;
using Kelvane::Value::Units;

struct NumericEntryBinding::Outgoing
{
    double number = 0.0;
    Units wireUnit;
    QString unitLabel;
    QString fieldText;
};

NumericEntryBinding::NumericEntryBinding(NumericEntryImpl* field)
    : m_field(field)
{
}

QString NumericEntryBinding::wholeNumberText(long value, bool hex)
{
    return QString::number(value, hex ? 16 : 10);
}

// ---- binding -------------------------------------------------------------

void NumericEntryBinding::bind(NumericLink* number)
{
    number->selectReading(m_field->m_readingIndex);
    if (number->number() == NumericLink::Number::Meter)
        bindMeter(number);
    else if (number->isSettable())
        bindSettable(number);
    else
        bindReading(number);
}

void NumericEntryBinding::bindSettable(const NumericLink* number)
{
    NumericEntryImpl* field = m_field;
    readValue(number);
    if (!number->carriesUnits())
        field->m_units.setUnitless();
    field->setPrecision(number->isWhole() ? 0 : field->m_precision);
    if (number->number() == NumericLink::Number::Long)
        field->setValue(wholeNumberText(long(field->m_value), field->m_isHex));
    number->limits(&field->m_lowerLimit, &field->m_upperLimit);
    field->addNumpad(field->m_isHex, field->m_realtimeUpdate);
    if (field->m_useSpinWheel)
        field->addSpinWheel(field->m_lowerLimit, field->m_upperLimit);
    if (field->m_sliderBar > 0)
        field->addSliderControl(true, field->m_lowerLimit, field->m_upperLimit);
    if (number->carriesUnits()) {
        field->m_mechanisms.updateSliderBounds(field->m_unitSelector.key());
        field->setIndex(field->m_defaultUnit);
    }
    number->follow(boost::bind(&NumericEntryImpl::dds_callback, field, _1, _2));
    number->followLimits(boost::bind(&NumericEntryImpl::dds_params_callback, field, _1));
    QObject::connect(field, &NumericEntryImpl::updateLimits, field, &NumericEntryImpl::updateParams,
                     Qt::ConnectionType(Qt::BlockingQueuedConnection | Qt::UniqueConnection));
}

void NumericEntryBinding::bindReading(const NumericLink* number)
{
    readValue(number);
    m_field->setPrecision(number->isWhole() ? 0 : m_field->m_precision);
    if (number->carriesUnits())
        m_field->setIndex(m_field->m_defaultUnit);
    number->follow(boost::bind(&NumericEntryImpl::dds_callback, m_field, _1, _2));
    m_field->setReadOnlyStyle();
}

// A value record brings its unit, which becomes the field's base unit.
void NumericEntryBinding::readValue(const NumericLink* number)
{
    NumericSample sample;
    number->read(&sample);
    m_field->m_value = sample.value;
    if (number->carriesUnits())
        takeWireUnit(sample.units);
}

void NumericEntryBinding::takeWireUnit(const Units& wire)
{
    NumericEntryImpl* field = m_field;
    field->m_units.setWireUnit(wire);
    if (field->m_units.unitListString().isEmpty()) {
        qDebug() << "UserInterface - ERROR:" << field->getAttributeName()
                 << "uses unit based values, set Units string in UI file.";
        return;
    }
    // Offered again against the engine's base unit.
    field->setUnitListString(field->m_units.unitListString());
    if (field->m_unitSelector.keys().contains(field->m_defaultUnit))
        field->m_units.setDisplayUnit(field->m_units.unit(field->m_defaultUnit));
}

void NumericEntryBinding::updateLimits(const NumericLink* number)
{
    NumericEntryImpl* field = m_field;
    if (!number->limits(&field->m_lowerLimit, &field->m_upperLimit))
        return;
    field->m_mechanisms.updateSliderBounds(number->carriesUnits() ? field->m_unitSelector.key() : 0);
}

void NumericEntryBinding::bindMeter(const NumericLink* meter)
{
    NumericEntryImpl* field = m_field;
    NumericSample sample;
    QList<long> types;
    if (!meter->read(&sample, &types)) {
        qDebug() << "UserInterface - >>>>> Error meter reading structure empty for Numeric "
                 << field->getAttributeName();
    } else {
        for (long type : qAsConst(types))
            field->m_readingNames << MeterReadings::translateReadingType(type);
        field->m_value = sample.value;
        takeWireUnit(sample.units);
        field->m_readingHasNoValue = sample.noValue;
        field->m_readingDoubtful = sample.doubtful;
        field->setPrecision(field->m_precision);
        field->setIndex(field->m_defaultUnit);
        if (sample.noValue)
            field->setValue(QString());
        else
            field->setValue(QString::number(field->m_units.inDisplayUnit(field->m_value), 'g', 6)
                            + (sample.doubtful ? QStringLiteral("?") : QString()));
    }
    meter->follow(boost::bind(&NumericEntryImpl::dds_callback, field, _1, _2));
    field->setReadOnlyStyle();
}

// ---- samples, on a DDS thread ---------------------------------------------

QString NumericEntryBinding::takeSample(const NumericLink* number, const NumericSample& sample)
{
    NumericEntryImpl* field = m_field;
    field->m_value = sample.value;
    if (number->carriesUnits()) {
        logReceived(sample.value, sample.units);
        // A meter's reading may change its unit with the range; the field follows it all the way.
        if (field->m_units.followBaseUnit(sample.units, number->number() == NumericLink::Number::Meter))
            emit field->baseUnitChanged(sample.units);
    } else if (!field->m_suppressDebug) {
        qDebug() << "UserInterface - " << field->getAttributeName() << "Received:" << sample.value << ", Hex:"
                 << QString::number(qint64(sample.value), 16);
    }
    field->m_readingHasNoValue = sample.noValue;
    field->m_readingDoubtful = sample.doubtful;
    return sampleText(number, sample);
}

void NumericEntryBinding::logReceived(double number, const Units& unit) const
{
    if (!m_field->m_suppressDebug)
        qDebug().noquote() << "UserInterface -" << m_field->getAttributeName() << "@"
                           << GlobalImpl::getParentWindowName(m_field) << "Received:"
                           << QString::number(number, 'g', 15) << ValueHelper::getUnitString(unit);
}

QString NumericEntryBinding::sampleText(const NumericLink* number, const NumericSample& sample) const
{
    const NumericUnits& units = m_field->m_units;
    const int precision = m_field->m_precision;
    switch (number->number()) {
    case NumericLink::Number::Long:
        return wholeNumberText(long(sample.value), m_field->m_isHex);
    case NumericLink::Number::Double:
        return m_field->m_isHex ? QString::number(qint64(sample.value), 16) : QString::number(sample.value, 'g', 6);
    case NumericLink::Number::ValueLong:
        return QString::number(units.inDisplayUnit(sample.value), 'g', 6);
    case NumericLink::Number::ValueDouble:
        return QString::number(units.inDisplayUnit(sample.value), 'f', precision);
    case NumericLink::Number::Meter:
        break;
    }
    if (sample.overLimit)
        return QStringLiteral("Over Limit");
    if (sample.noValue)
        return QString();
    return QString::number(units.inDisplayUnit(sample.value), 'f', precision)
           + (sample.doubtful ? QStringLiteral("?") : QString());
}

// ---- the way out ---------------------------------------------------------

void NumericEntryBinding::enter(const NumericLink* number, const QString& text)
{
    const QString unit = ValueHelper::getUnitString(m_field->getDisplayUnit());
    if (m_nothingEnteredSinceSend && unit == m_unitOfLastSend) {
        // The box shows the engine's value from before the last send: sent
        // again, it would undo that send before the engine's sample comes.
    } else if (!showEngineValue(number)) {
        qDebug() << "UserInterface - NUMERIC:" << m_field->getAttributeName() << "threw exception while sending:"
                 << text;
        m_field->revertChanges();
    } else {
        startSend(number, enteredNumber(number, text));
        m_nothingEnteredSinceSend = true;
        m_unitOfLastSend = unit;
    }
}

void NumericEntryBinding::noteEntry()
{
    m_nothingEnteredSinceSend = false;
}

// The operator's text as the engine takes it: in the base unit, whole numbers cut.
double NumericEntryBinding::enteredNumber(const NumericLink* number, const QString& text) const
{
    switch (number->number()) {
    case NumericLink::Number::Long:
        return double(text.toLong(nullptr, m_field->m_isHex ? 16 : 10));
    case NumericLink::Number::ValueLong:
        return std::trunc(m_field->m_units.inBaseUnit(double(long(text.toDouble()))));
    case NumericLink::Number::ValueDouble:
        return m_field->m_units.inBaseUnit(text.toDouble());
    default:
        return text.toDouble();
    }
}

bool NumericEntryBinding::showEngineValue(const NumericLink* number)
{
    NumericSample sample;
    if (m_field->callEngine([&] { number->read(&sample); }) != WidgetBaseImpl::EngineCall::Done)
        return false;
    const NumericLink::Number kind = number->number();
    m_field->m_valueEdit->setText(kind == NumericLink::Number::Long     ? QString::number(long(sample.value))
                                  : kind == NumericLink::Number::Double ? QString::number(sample.value, 'f', m_field->m_precision)
                                                                        : sampleText(number, sample));
    return true;
}

// ---- sends, on a worker ----------------------------------------------------

void NumericEntryBinding::startSend(const NumericLink* number, double value)
{
    const NumericUnits::ForSend units = m_field->m_units.forSend();
    const Outgoing out{value, units.wireUnit, units.displayLabel, m_field->m_valueEdit->text()};
    if (number->isWhole())
        m_field->sendOnWorker([this, number, out] { sendLong(number, out); });
    else
        m_field->sendOnWorker([this, number, out] { sendDouble(number, out); });
}

void NumericEntryBinding::sendDouble(const NumericLink* number, const Outgoing& out)
{
    send(out, [&] {
        if (number->carriesUnits())
            qDebug() << "UserInterface - Numeric: " << m_field->getAttributeName() << " - Sending (ValueDouble): "
                     << QString::number(out.number, 'g', 15) << out.unitLabel;
        else
            qDebug() << "UserInterface - Numeric: " << m_field->getAttributeName() << " - Sending (Double): "
                     << out.number;
        number->set(out.number, out.wireUnit);
    }, "g");
}

void NumericEntryBinding::sendLong(const NumericLink* number, const Outgoing& out)
{
    send(out, [&] {
        if (number->carriesUnits())
            qDebug() << "UserInterface - Numeric: " << m_field->getAttributeName() << " - Sending (ValueLong): "
                     << CORBA::Long(out.number) << out.unitLabel;
        else
            qDebug() << "UserInterface - Numeric: " << m_field->getAttributeName() << " - Sending (Long): "
                     << CORBA::Long(out.number);
        number->set(out.number, out.wireUnit);
    }, "d");
}

// One catch order for every send: out of range is told to the operator and
// put right, a lost link veils the field, anything else is put right.
void NumericEntryBinding::send(const Outgoing& out, const std::function<void()>& call, const char* format)
{
    auto number = [format](double v) {
        return *format == 'g' ? QString::number(v, 'g', 6) : QString::number(qint64(v));
    };
    QString failure;
    const WidgetBaseImpl::EngineCall outcome = m_field->callEngine([&] {
        try {
            call();
        } catch (const Brenmoor::Operation_errors::DataOutOfRange& error) {
            reportOutOfRange(QString::fromLatin1(error._name()), number(error.actual), number(error.lower),
                             number(error.upper));
        }
    }, &failure);
    if (outcome != WidgetBaseImpl::EngineCall::Refused)
        return;
    qDebug() << "UserInterface - NUMERIC:" << m_field->getAttributeName() << "threw exception while sending:"
             << out.fieldText << failure;
    emit m_field->revertChangeSignal();
}

void NumericEntryBinding::reportOutOfRange(const QString& text, const QString& actual, const QString& lower,
                                           const QString& upper)
{
    qDebug() << "UserInterface -" << text << "Exception info (actual, lower, upper):" << actual << lower << upper;
    emit m_field->exceptionMessage(text + QStringLiteral(" - Exception info (actual, lower, upper): ") + actual
                                   + QLatin1Char(' ') + lower + QLatin1Char(' ') + upper);
    emit m_field->revertChangeSignal();
}
