// The frame's links to engine attributes, against the simulated engine over
// real CORBA and DDS: which interfaces each family takes, the lines a
// mismatch leaves, reading, sending and following through each family, and
// the links' life with the binding.
#include "BooleanLink.h"
#include "CommandLink.h"
#include "EnumLink.h"
#include "MeterLink.h"
#include "NumericLink.h"
#include "SimEngine.h"
#include "StringLink.h"
#include "TraceLink.h"
#include "ValueHelper.h"
#include "WidgetBaseImpl.h"

#include <QtTest>

#include <atomic>
#include <mutex>

namespace {

// A bare frame through which the test binds as a widget would.
class LinkProbe : public WidgetBaseImpl
{
public:
    using WidgetBaseImpl::bindAs;
    using WidgetBaseImpl::link;
    ~LinkProbe() override { releaseSubscriptions(); }
};

// Collects what the frame writes to the debug log.
class DebugLines
{
public:
    DebugLines() : m_previous(qInstallMessageHandler(&DebugLines::collect)) { s_lines.clear(); }
    ~DebugLines() { qInstallMessageHandler(m_previous); }
    QStringList lines() const { return s_lines; }

private:
    static void collect(QtMsgType, const QMessageLogContext&, const QString& line) { s_lines << line; }
    static QStringList s_lines;
    QtMessageHandler m_previous;
};
QStringList DebugLines::s_lines;

// The last sample a link delivered, seen from the test's thread.
struct LastSample
{
    std::mutex mutex;
    NumericSample sample;
    std::atomic<int> count{0};

    boost::function<void(const char*, const NumericSample&)> callback()
    {
        return [this](const char*, const NumericSample& seen) {
            std::lock_guard<std::mutex> lock(mutex);
            sample = seen;
            ++count;
        };
    }
    double value()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return sample.value;
    }
};

// The engine holds whole numbers as such.
SimValue engineNumber(bool whole, double value)
{
    if (whole)
        return std::int64_t(value);
    return value;
}

SimAttributeSetup setup(const std::string& name, SimKind kind, SimValue value)
{
    SimAttributeSetup attribute;
    attribute.name = name;
    attribute.kind = kind;
    attribute.value = value;
    attribute.limits = SimLimits{-50.0, 5000.0, 1.0};
    attribute.units = SimUnits{"0,0,0", "Hz;;;;"};
    return attribute;
}

} // namespace

class TestAttributeLink : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void numericLinkSpeaksEveryNumberInterface_data();
    void numericLinkSpeaksEveryNumberInterface();
    void readingsRefuseASend();
    void meterReadingIsChosenByIndex();
    void mismatchWritesTheWidgetsLineOrNothing();
    void enumLinkFollowsValueAndList();
    void commandLinkSetsTrueOrOne();
    void stringLinkKeepsEveryCharacter();
    void traceLinkReadsAndFollowsBothKinds();
    void linksLiveUntilTheBindingIsReleased();

private:
    Brenmoor::EngineReadingBase_ptr attribute(const std::string& name) { return m_engine->attribute(name); }

    std::unique_ptr<SimEngine> m_engine;
};

void TestAttributeLink::initTestCase()
{
    m_engine = std::make_unique<SimEngine>();
    m_engine->addAttribute(setup("AttribLong", SimKind::AttribLong, std::int64_t(7)));
    m_engine->addAttribute(setup("AttribDouble", SimKind::AttribDouble, 2.5));
    m_engine->addAttribute(setup("AttribValueLong", SimKind::AttribValueLong, std::int64_t(300)));
    m_engine->addAttribute(setup("AttribValueDouble", SimKind::AttribValueDouble, 1234.5));
    m_engine->addAttribute(setup("ReadingLong", SimKind::ReadingLong, std::int64_t(9)));
    m_engine->addAttribute(setup("ReadingDouble", SimKind::ReadingDouble, -1.25));
    m_engine->addAttribute(setup("ReadingValueLong", SimKind::ReadingValueLong, std::int64_t(40)));
    m_engine->addAttribute(setup("ReadingValueDouble", SimKind::ReadingValueDouble, 0.5));
    SimAttributeSetup meter = setup("Meter", SimKind::ReadingMeterReading, -20.0);
    meter.units = SimUnits{"10,0,-3", "W;;;;"};
    meter.meter.items = {SimMeterItem{0, 3.0}, SimMeterItem{4, 0.0}};
    meter.meter.flags[1] = true;
    m_engine->addAttribute(meter);
    m_engine->addAttribute(setup("Switch", SimKind::AttribBoolean, false));
    m_engine->addAttribute(setup("Alarm", SimKind::ReadingBoolean, true));
    m_engine->addAttribute(setup("Label", SimKind::AttribString, std::string("first")));
    m_engine->addAttribute(setup("Serial", SimKind::ReadingString, std::string("SN-1")));
    m_engine->addAttribute(setup("Trace", SimKind::BasicTrace, std::vector<float>{1.0f, 2.0f, 3.0f}));
    m_engine->addAttribute(setup("IQ", SimKind::ReadingComplexTrace, std::vector<std::complex<double>>{{1.0, -1.0}}));
    SimAttributeSetup mode = setup("Mode", SimKind::AttribEnum, std::int64_t(1));
    mode.enumEntries = {{1, "Sweep", true}, {2, "Zero span", true}, {3, "List", false}};
    m_engine->addAttribute(mode);
}

void TestAttributeLink::numericLinkSpeaksEveryNumberInterface_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("settable");
    QTest::addColumn<double>("initial");
    QTest::addColumn<double>("next");

    using N = NumericLink::Number;
    QTest::newRow("AttribLong") << "AttribLong" << int(N::Long) << true << 7.0 << 12.0;
    QTest::newRow("AttribDouble") << "AttribDouble" << int(N::Double) << true << 2.5 << 3.75;
    QTest::newRow("AttribValueLong") << "AttribValueLong" << int(N::ValueLong) << true << 300.0 << 450.0;
    QTest::newRow("AttribValueDouble") << "AttribValueDouble" << int(N::ValueDouble) << true << 1234.5 << 99.25;
    QTest::newRow("ReadingLong") << "ReadingLong" << int(N::Long) << false << 9.0 << 10.0;
    QTest::newRow("ReadingDouble") << "ReadingDouble" << int(N::Double) << false << -1.25 << 4.5;
    QTest::newRow("ReadingValueLong") << "ReadingValueLong" << int(N::ValueLong) << false << 40.0 << 41.0;
    QTest::newRow("ReadingValueDouble") << "ReadingValueDouble" << int(N::ValueDouble) << false << 0.5 << 0.75;
}

void TestAttributeLink::numericLinkSpeaksEveryNumberInterface()
{
    QFETCH(QString, name);
    QFETCH(int, number);
    QFETCH(bool, settable);
    QFETCH(double, initial);
    QFETCH(double, next);
    const std::string attributeName = name.toStdString();
    const bool whole = number == int(NumericLink::Number::Long) || number == int(NumericLink::Number::ValueLong);

    LinkProbe probe;
    const Brenmoor::EngineReadingBase_var attr = attribute(attributeName);
    const NumericLink* link = probe.bindAs<NumericLink>(attr, NumericLink::AnyNumber, "mismatch %s (%s)");
    QVERIFY(link);
    QCOMPARE(int(link->number()), number);
    QCOMPARE(link->isSettable(), settable);

    NumericSample sample;
    QVERIFY(link->read(&sample));
    QCOMPARE(sample.value, initial);
    if (link->carriesUnits())
        QCOMPARE(ValueHelper::getUnitString(sample.units), QStringLiteral("Hz"));
    // A value record carries its upper limit, read or settable; a plain number none.
    const bool record = number == int(NumericLink::Number::ValueLong) || number == int(NumericLink::Number::ValueDouble);
    QCOMPARE(sample.upperLimit, record ? 5000.0 : qQNaN());

    double lower = 0.0;
    double upper = 0.0;
    QCOMPARE(link->limits(&lower, &upper), settable);
    if (settable) {
        QCOMPARE(lower, -50.0);
        QCOMPARE(upper, 5000.0);
    }

    LastSample last;
    link->follow(last.callback());
    QTRY_COMPARE(last.value(), initial);
    if (settable) {
        link->set(next, sample.units);
        QCOMPARE(m_engine->value(attributeName), engineNumber(whole, next));
    } else {
        m_engine->setValue(attributeName, engineNumber(whole, next));
    }
    QTRY_COMPARE(last.value(), next);
    std::lock_guard<std::mutex> lock(last.mutex);
    QCOMPARE(last.sample.upperLimit, sample.upperLimit);
}

void TestAttributeLink::readingsRefuseASend()
{
    LinkProbe probe;
    const Brenmoor::EngineReadingBase_var reading = attribute("ReadingDouble");
    const NumericLink* number = probe.bindAs<NumericLink>(reading, NumericLink::AnyNumber, nullptr);
    QVERIFY(number);
    QVERIFY_EXCEPTION_THROWN(number->set(1.0, Kelvane::Value::Units()), CORBA::BAD_OPERATION);

    const Brenmoor::EngineReadingBase_var alarm = attribute("Alarm");
    const BooleanLink* boolean = probe.bindAs<BooleanLink>(alarm, BooleanLink::ReadingBoolean, nullptr);
    QVERIFY(boolean);
    QCOMPARE(boolean->value(), true);
    QVERIFY_EXCEPTION_THROWN(boolean->set(false), CORBA::BAD_OPERATION);
}

void TestAttributeLink::meterReadingIsChosenByIndex()
{
    LinkProbe probe;
    const Brenmoor::EngineReadingBase_var attr = attribute("Meter");
    NumericLink* meter = probe.bindAs<NumericLink>(attr, NumericLink::ReadingMeter, nullptr);
    QVERIFY(meter);
    QCOMPARE(meter->number(), NumericLink::Number::Meter);

    NumericSample first;
    QList<long> types;
    QVERIFY(meter->read(&first, &types));
    QCOMPARE(types, (QList<long>{0, 4}));
    QCOMPARE(first.value, -17.0);
    QVERIFY(first.doubtful);
    QCOMPARE(ValueHelper::getUnitString(first.units), QStringLiteral("dBm"));

    meter->selectReading(1);
    LastSample last;
    meter->follow(last.callback());
    m_engine->setValue("Meter", -30.0);
    QTRY_COMPARE(last.value(), -30.0);

    // The full record stays with the meter family.
    const MeterLink* record = probe.bindAs<MeterLink>(attr, MeterLink::ReadingMeter, nullptr);
    QVERIFY(record);
    const Brenmoor::MeterReading::ReadingList_var list = record->value();
    QCOMPARE(list->readings.length(), CORBA::ULong(2));
}

void TestAttributeLink::mismatchWritesTheWidgetsLineOrNothing()
{
    LinkProbe probe;
    probe.setAttributeName(QStringLiteral("Power"));
    const Brenmoor::EngineReadingBase_var boolean = attribute("Switch");
    {
        DebugLines log;
        QVERIFY(!probe.bindAs<EnumLink>(boolean, EnumLink::AttribEnum, ">>>>>Expected Enumeration type but received: %s (%s)"));
        QCOMPARE(log.lines(), QStringList{">>>>>Expected Enumeration type but received: EngineAttribBoolean (Power)"});
    }
    {
        // A family member the widget does not take is a mismatch too.
        DebugLines log;
        const Brenmoor::EngineReadingBase_var reading = attribute("ReadingLong");
        QVERIFY(!probe.bindAs<NumericLink>(reading, NumericLink::AttribLong, nullptr));
        QVERIFY(log.lines().isEmpty());
    }
    QVERIFY(!probe.bindAs<EnumLink>(Brenmoor::EngineReadingBase::_nil(), EnumLink::AttribEnum, "unused"));
    QVERIFY(!probe.link<AttributeLink>());
}

void TestAttributeLink::enumLinkFollowsValueAndList()
{
    LinkProbe probe;
    const Brenmoor::EngineReadingBase_var attr = attribute("Mode");
    const EnumLink* mode = probe.bindAs<EnumLink>(attr, EnumLink::AttribEnum, nullptr);
    QVERIFY(mode);
    const QList<EnumLink::Entry> entries = mode->entries();
    QCOMPARE(entries.size(), 3);
    QCOMPARE(entries.at(1).label, QStringLiteral("Zero span"));
    QVERIFY(entries.at(1).enabled);
    QVERIFY(!entries.at(2).enabled);
    QCOMPARE(mode->value(), 1L);

    std::atomic<int> value{0};
    std::atomic<int> listChanges{0};
    mode->follow([&](const char*, int seen) { value = seen; }, [&](const char*) { ++listChanges; });
    mode->set(2);
    QTRY_COMPARE(value.load(), 2);
    const int before = listChanges;
    m_engine->setEnumEntries("Mode", {{1, "Sweep", true}, {2, "Zero span", true}});
    QTRY_VERIFY(listChanges > before);
    QCOMPARE(mode->entries().size(), 2);
    probe.releaseBinding();
}

void TestAttributeLink::commandLinkSetsTrueOrOne()
{
    LinkProbe probe;
    const Brenmoor::EngineReadingBase_var onOff = attribute("Switch");
    const CommandLink* toTrue = probe.bindAs<CommandLink>(onOff, CommandLink::AttribBoolean | CommandLink::AttribLong, nullptr);
    QVERIFY(toTrue);
    toTrue->trigger();
    QCOMPARE(m_engine->value("Switch"), SimValue(true));

    const Brenmoor::EngineReadingBase_var count = attribute("AttribLong");
    const CommandLink* toOne = probe.bindAs<CommandLink>(count, CommandLink::AttribBoolean | CommandLink::AttribLong, nullptr);
    QVERIFY(toOne);
    toOne->trigger();
    QCOMPARE(m_engine->value("AttribLong"), SimValue(std::int64_t(1)));
}

void TestAttributeLink::stringLinkKeepsEveryCharacter()
{
    LinkProbe probe;
    const Brenmoor::EngineReadingBase_var label = attribute("Label");
    const StringLink* text = probe.bindAs<StringLink>(label, StringLink::AttribString | StringLink::ReadingString, nullptr);
    QVERIFY(text);
    QVERIFY(text->isSettable());
    QCOMPARE(text->value(), QStringLiteral("first"));

    QString seen;
    std::mutex mutex;
    text->follow([&](const char*, const QString& value) {
        std::lock_guard<std::mutex> lock(mutex);
        seen = value;
    });
    const QString unicode = QStringLiteral("Gr\u00fc\u00dfe \u65e5\u672c \u0645\u0631\u062d\u0628\u0627 \U0001F50B");
    text->set(unicode);
    QCOMPARE(text->value(), unicode);
    QTRY_VERIFY([&] {
        std::lock_guard<std::mutex> lock(mutex);
        return seen == unicode;
    }());

    const Brenmoor::EngineReadingBase_var serial = attribute("Serial");
    const StringLink* reading = probe.bindAs<StringLink>(serial, StringLink::AttribString | StringLink::ReadingString, nullptr);
    QVERIFY(reading);
    QVERIFY(!reading->isSettable());
    QVERIFY_EXCEPTION_THROWN(reading->set(QStringLiteral("SN-2")), CORBA::BAD_OPERATION);
}

void TestAttributeLink::traceLinkReadsAndFollowsBothKinds()
{
    LinkProbe probe;
    const int both = TraceLink::BasicTrace | TraceLink::ComplexTrace;
    const Brenmoor::EngineReadingBase_var basic = attribute("Trace");
    const TraceLink* trace = probe.bindAs<TraceLink>(basic, both, nullptr);
    QVERIFY(trace);
    QVERIFY(!trace->isComplex());
    const Brenmoor::BASIC_TRACE::BT_DATA_var read = trace->value();
    QCOMPARE(read->samples.length(), CORBA::ULong(3));
    QCOMPARE(read->samples[2], 3.0f);

    std::atomic<int> basicPoints{0};
    std::atomic<bool> wrongKind{false};
    trace->follow([&](const char*, const Brenmoor::BASIC_TRACE::BT_DATA& data) { basicPoints = int(data.samples.length()); },
                  [&](const char*, const Brenmoor::ComplexDoubleSeq&) { wrongKind = true; });
    m_engine->setValue("Trace", std::vector<float>{4.0f, 5.0f, 6.0f, 7.0f});
    QTRY_COMPARE(basicPoints.load(), 4);
    QVERIFY(!wrongKind);

    const Brenmoor::EngineReadingBase_var iq = attribute("IQ");
    const TraceLink* complex = probe.bindAs<TraceLink>(iq, both, nullptr);
    QVERIFY(complex);
    QVERIFY(complex->isComplex());
    QVERIFY_EXCEPTION_THROWN(Brenmoor::BASIC_TRACE::BT_DATA_var(complex->value()), CORBA::BAD_OPERATION);
    std::atomic<int> complexPoints{0};
    complex->follow([](const char*, const Brenmoor::BASIC_TRACE::BT_DATA&) {},
                    [&](const char*, const Brenmoor::ComplexDoubleSeq& points) { complexPoints = int(points.length()); });
    m_engine->setValue("IQ", std::vector<std::complex<double>>{{1.0, 0.0}, {0.0, 1.0}});
    QTRY_COMPARE(complexPoints.load(), 2);
}

void TestAttributeLink::linksLiveUntilTheBindingIsReleased()
{
    LinkProbe probe;
    const Brenmoor::EngineReadingBase_var first = attribute("ReadingLong");
    const Brenmoor::EngineReadingBase_var second = attribute("ReadingDouble");
    const NumericLink* a = probe.bindAs<NumericLink>(first, NumericLink::AnyNumber, nullptr);
    const NumericLink* b = probe.bindAs<NumericLink>(second, NumericLink::AnyNumber, nullptr);
    QCOMPARE(probe.link<NumericLink>(0), a);
    QCOMPARE(probe.link<NumericLink>(), b);
    QCOMPARE(probe.link<NumericLink>(-2), a);
    QVERIFY(!probe.link<NumericLink>(2));

    // The link holds its own reference: the caller's may go.
    QVERIFY(!b->attribute()->_non_existent());

    probe.releaseBinding();
    QVERIFY(!probe.link<NumericLink>());
    QVERIFY(!probe.link<NumericLink>(0));

    // A new binding starts afresh: one to an attribute the widget does not
    // take leaves no link, and nothing goes to the attribute bound before.
    probe.bindAttribute(Brenmoor::EngineReadingBase::_duplicate(first));
    QVERIFY(probe.bindAs<NumericLink>(first, NumericLink::AnyNumber, nullptr));
    const Brenmoor::EngineReadingBase_var other = attribute("Switch");
    probe.bindAttribute(Brenmoor::EngineReadingBase::_duplicate(other));
    QVERIFY(!probe.bindAs<NumericLink>(other, NumericLink::AnyNumber, nullptr));
    QVERIFY(!probe.link<NumericLink>());
}

QTEST_MAIN(TestAttributeLink)
#include "tst_attributelink.moc"
