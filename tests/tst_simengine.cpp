// The simulated engine as a client meets it: over the ORB through its
// AttributeDirectory, and on plain DDS readers of its topics; in this
// process and as a separate rv-sim-engine process.

#include "BoundedExit.h"
#include "DDS_ParticipantHolder.h"
#include "ORB_Wrapper.h"
#include "SimEngine.h"
#include "SimEngineProcess.h"
#include "SimScenario.h"
#include "SimSimulator.h"

#include <TQMM_DDSPubSubTypes.h>

#include <fastdds/dds/domain/DomainParticipant.hpp>
#include <fastdds/dds/subscriber/DataReader.hpp>
#include <fastdds/dds/subscriber/SampleInfo.hpp>
#include <fastdds/dds/subscriber/Subscriber.hpp>
#include <fastdds/dds/subscriber/qos/DataReaderQos.hpp>

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>

using namespace eprosima::fastdds::dds;

namespace {

constexpr int sampleWaitMs = 3000;
// Discovery between two processes takes longer than within one.
constexpr int matchWaitMs = 8000;

const Brenmoor::LockerID owner{100, 1};
const Brenmoor::LockerID stranger{200, 2};

// A plain reader of one topic, set up as a widget's subscription would be.
template <class PubSubType>
class TopicReader
{
public:
    using Sample = typename PubSubType::type;

    explicit TopicReader(const std::string& topicName)
    {
        TypeSupport type(new PubSubType());
        m_topic = holder()->acquireTopic(topicName, type);
        m_subscriber = holder()->participant()->create_subscriber(SUBSCRIBER_QOS_DEFAULT);
        DataReaderQos qos = DATAREADER_QOS_DEFAULT;
        qos.reliability().kind = RELIABLE_RELIABILITY_QOS;
        qos.history().kind = KEEP_ALL_HISTORY_QOS;
        qos.data_sharing().off();
        m_reader = m_subscriber->create_datareader(m_topic, qos);
    }

    ~TopicReader()
    {
        m_subscriber->delete_datareader(m_reader);
        holder()->participant()->delete_subscriber(m_subscriber);
        holder()->releaseTopic(m_topic);
    }

    //! Samples written before a writer matched are lost: wait for it first.
    bool waitForWriter(int timeoutMs = matchWaitMs)
    {
        QElapsedTimer clock;
        clock.start();
        SubscriptionMatchedStatus status;
        while (clock.elapsed() < timeoutMs) {
            m_reader->get_subscription_matched_status(status);
            if (status.current_count > 0)
                return true;
            QTest::qWait(10);
        }
        return false;
    }

    /*!
      Between processes the writer learns of a new reader a little after the
      reader has matched it, and what it writes meanwhile never reaches this
      reader (volatile durability): repeat the change until a sample comes.
    */
    std::optional<Sample> nextAfterRepeating(const std::function<void()>& change)
    {
        for (int attempt = 0; attempt < 20; ++attempt) {
            change();
            if (auto sample = next(250))
                return sample;
        }
        return std::nullopt;
    }

    std::optional<Sample> next(int timeoutMs = sampleWaitMs)
    {
        Sample sample;
        SampleInfo info;
        if (!m_reader->wait_for_unread_message(eprosima::fastrtps::Duration_t(timeoutMs / 1000.0))
            || m_reader->take_next_sample(&sample, &info) != ReturnCode_t::RETCODE_OK || !info.valid_data)
            return std::nullopt;
        return sample;
    }

private:
    static Brenmoor::DDS_ParticipantHolder* holder() { return Brenmoor::DDS_ParticipantHolder::instance(); }

    Topic* m_topic = nullptr;
    Subscriber* m_subscriber = nullptr;
    DataReader* m_reader = nullptr;
};

using LongReader = TopicReader<TQMM_DDS::ATTR_LONGPubSubType>;
using DoubleReader = TopicReader<TQMM_DDS::ATTR_DOUBLEPubSubType>;
using SignalReader = TopicReader<TQMM_DDS::ATTR_VOIDPubSubType>;

template <class Interface>
typename Interface::_var_type narrowed(Brenmoor::AttributeDirectory_ptr directory, const char* name)
{
    CORBA::Object_var object = directory->find(name);
    return Interface::_narrow(object);
}

std::string topicOf(Brenmoor::EngineReadingBase_ptr attribute)
{
    CORBA::String_var topic = attribute->topic();
    return topic.in();
}

SimAttributeSetup setup(const char* name, SimKind kind, std::optional<SimValue> value = std::nullopt,
                        std::optional<SimLimits> limits = std::nullopt)
{
    SimAttributeSetup result;
    result.name = name;
    result.kind = kind;
    result.value = std::move(value);
    result.limits = limits;
    return result;
}

// A scenario of attributes, each given by its fields.
QByteArray scenarioOf(const QByteArrayList& attributes)
{
    return R"({"attributes":[{)" + attributes.join("},{") + "}]}";
}

QByteArray oneAttribute(const QByteArray& fields)
{
    return scenarioOf({R"("name":"A",)" + fields});
}

QString exceptionName(const std::function<void()>& call)
{
    try {
        call();
    } catch (const CORBA::Exception& error) {
        return QString::fromLatin1(error._name());
    }
    return QStringLiteral("none");
}

} // namespace

class TestSimEngine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void typeInfoMatchesServedInterface_data();
    void typeInfoMatchesServedInterface();
    void directoryListsAndRefusesNames();
    void recordsCarryUnitsAndLimits();
    void setAppliesAndPublishes();
    void setOfValueRecordKeepsEngineUnits();
    void engineChangePublishesInOrder();
    void setOutsideLimitsRaisesDataOutOfRange_data();
    void setOutsideLimitsRaisesDataOutOfRange();
    void lockAdmitsOnlyItsOwner();
    void enumListChangeIsAnnounced();
    void limitsChangeIsAnnounced();
    void rampMovesTheValue();
    void drainFallsThenClimbsBack_data();
    void drainFallsThenClimbsBack();
    void reshapeChangesTheListAndKeepsTheValueListed();
    void textsCycleTravelWholeAndRefuseWhatTheyAreTold();
    void scenarioRejectsBadInput_data();
    void scenarioRejectsBadInput();
    void scenarioAcceptsValuesAtTheirBounds_data();
    void scenarioAcceptsValuesAtTheirBounds();
    void processRefusesBadScenario();

    void processServesDemoScenario();
    void failNextSetRaisesChosenFailure_data();
    void failNextSetRaisesChosenFailure();
    void hungSetTimesOutWhileReadsGoOn();
    void quitEndsProcessCleanly();
    void killedEngineFailsFast();

private:
    Brenmoor::AttributeDirectory_ptr directoryFor(bool remote) const;

    std::unique_ptr<SimEngine> m_engine;
    Brenmoor::AttributeDirectory_var m_directory;
    SimEngineProcess m_process;
    Brenmoor::AttributeDirectory_var m_remoteDirectory;
    SimEngineControl::Control_var m_remoteControl;
};

void TestSimEngine::initTestCase()
{
    m_engine = std::make_unique<SimEngine>();
    // One attribute of each kind, named after its interface.
    for (int k = 0; k <= static_cast<int>(SimKind::AttribEnum); ++k) {
        const auto kind = static_cast<SimKind>(k);
        m_engine->addAttribute(setup(simKindInfo(kind).interfaceName, kind));
    }

    SimAttributeSetup span = setup("Span", SimKind::AttribDouble, 50.0, SimLimits{0, 100, 1});
    span.units = {"0,3,0", "Hz;;;;"};
    m_engine->addAttribute(span);
    m_engine->addAttribute(setup("Count", SimKind::AttribLong, std::int64_t{5}, SimLimits{0, 10, 1}));
    SimAttributeSetup gain = setup("Gain", SimKind::AttribValueDouble, 1.5, SimLimits{-10, 10, 0.5});
    gain.units = {"10,0,0", "1;;;;"};
    m_engine->addAttribute(gain);
    SimAttributeSetup band = setup("Band", SimKind::AttribEnum, std::int64_t{0});
    band.enumEntries = {{0, "Low", true}, {1, "Mid", true}, {2, "High", false}};
    m_engine->addAttribute(band);
    m_engine->addAttribute(setup("Mute", SimKind::AttribBoolean, false));
    m_engine->addAttribute(setup("Marker", SimKind::ReadingLong, std::int64_t{0}));
    SimAttributeSetup meter = setup("Meter", SimKind::ReadingMeterReading, 12.0, SimLimits{-20, 10, 1});
    meter.units = {"0,-3,0", "V;;;;"};
    meter.meter.items = {{0, 0.0}, {4, -2.5}};
    meter.meter.flags[1] = true;
    m_engine->addAttribute(meter);
    m_engine->addAttribute(setup("Trace", SimKind::BasicTrace, std::vector<float>{1, 2, 3}, SimLimits{0, 100, 1}));
    SimAttributeSetup ramp = setup("Ramp", SimKind::ReadingLong, std::int64_t{0});
    ramp.simulation = {SimSimulation::Kind::Ramp, 1000, 0, 100, {}};
    m_engine->addAttribute(ramp);
    SimAttributeSetup filter = setup("Filter", SimKind::AttribEnum, std::int64_t{3});
    filter.enumEntries = {{1, "Narrow", true}, {2, "Wide", true}, {3, "Open", true}};
    filter.simulation = {SimSimulation::Kind::Reshape, 500, 0, 0, {}};
    m_engine->addAttribute(filter);
    SimAttributeSetup motto = setup("Motto", SimKind::AttribString, std::string("first"));
    motto.simulation = {SimSimulation::Kind::Cycle, 200, 0, 0, {"first", "second"}};
    motto.refusedTexts = {"forbidden"};
    m_engine->addAttribute(motto);

    // Through the ORB from a stringified reference, as a host finds the engine.
    Brenmoor::AttributeDirectory_var local = m_engine->directory();
    CORBA::Object_var object = ORB_Wrapper::objectFromString(ORB_Wrapper::objectToString(local));
    m_directory = Brenmoor::AttributeDirectory::_narrow(object);
    QVERIFY(!CORBA::is_nil(m_directory));
}

void TestSimEngine::cleanupTestCase()
{
    m_directory = Brenmoor::AttributeDirectory::_nil();
    m_engine.reset();
}

Brenmoor::AttributeDirectory_ptr TestSimEngine::directoryFor(bool remote) const
{
    return remote ? m_remoteDirectory.in() : m_directory.in();
}

void TestSimEngine::typeInfoMatchesServedInterface_data()
{
    QTest::addColumn<QString>("interfaceName");
    QTest::addColumn<QString>("typeName");
    const char* rows[][2] = {
        {"EngineReadingLong", "long"},           {"EngineReadingLongLong", "longlong"},
        {"EngineReadingDouble", "double"},       {"EngineReadingBoolean", "boolean"},
        {"EngineReadingString", "string"},       {"EngineReadingValueLong", "ValueLong"},
        {"EngineReadingValueDouble", "ValueDouble"}, {"EngineReadingMeterReading", "MeterReading"},
        {"EngineReadingComplexTrace", "ComplexTrace"}, {"EngineBasicTrace", "BasicTrace"},
        {"EngineAttribBoolean", "boolean"},      {"EngineAttribLong", "long"},
        {"EngineAttribDouble", "double"},        {"EngineAttribValueLong", "ValueLong"},
        {"EngineAttribValueDouble", "ValueDouble"}, {"EngineAttribLongLong", "longlong"},
        {"EngineAttribString", "string"},        {"EngineAttribEnum", "enum"},
    };
    for (const auto& row : rows)
        QTest::newRow(row[0]) << row[0] << row[1];
}

void TestSimEngine::typeInfoMatchesServedInterface()
{
    QFETCH(QString, interfaceName);
    QFETCH(QString, typeName);
    const QByteArray name = interfaceName.toLatin1();
    Brenmoor::EngineReadingBase_var attribute = m_directory->find(name.constData());
    Brenmoor::TypeInfo_var info = attribute->typeInfo();
    QCOMPARE(QString(info->interfaceName.in()), interfaceName);
    QCOMPARE(QString(info->typeName.in()), typeName);
    // A widget narrows by the name it was told: the object must really be of that interface.
    QVERIFY(attribute->_is_a(("IDL:Brenmoor/" + name + ":1.0").constData()));
    QCOMPARE(QString::fromStdString(topicOf(attribute)), "rv/attr/" + interfaceName);
}

void TestSimEngine::directoryListsAndRefusesNames()
{
    Brenmoor::NameSeq_var names = m_directory->names();
    QCOMPARE(names->length(), CORBA::ULong(m_engine->names().size()));
    QCOMPARE(QString(names[0].in()), QStringLiteral("EngineReadingLong"));

    try {
        CORBA::Object_var none = m_directory->find("NoSuchAttribute");
        QFAIL("find() of an unknown name returned");
    } catch (const Brenmoor::AttributeDirectory::UnknownAttribute& error) {
        QCOMPARE(QString(error.name.in()), QStringLiteral("NoSuchAttribute"));
    }
}

void TestSimEngine::recordsCarryUnitsAndLimits()
{
    auto gain = narrowed<Brenmoor::EngineAttribValueDouble>(m_directory, "Gain");
    Brenmoor::VALUE_DOUBLE::VALUE_var value = gain->value();
    QCOMPARE(QString(value->units.scale.in()), QStringLiteral("10,0,0"));
    QCOMPARE(value->lowerLimit, -10.0);
    QCOMPARE(value->upperLimit, 10.0);
    QCOMPARE(value->currentValue, 1.5);

    auto meter = narrowed<Brenmoor::EngineReadingMeterReading>(m_directory, "Meter");
    Brenmoor::MeterReading::ReadingList_var reading = meter->value();
    QCOMPARE(reading->readings.length(), CORBA::ULong(2));
    QCOMPARE(reading->readings[0].value, 12.0);
    QCOMPARE(reading->readings[1].value, 9.5);
    QCOMPARE(reading->readings[1].type, 4);
    QCOMPARE(QString(reading->readings[1].units.scale.in()), QStringLiteral("0,-3,0"));
    QCOMPARE(reading->upperLimit.currentValue, 10.0);
    QVERIFY2(reading->flag3, "a reading above the upper limit is flagged over limit");
    QVERIFY(reading->flag1 && !reading->flag0);

    auto trace = narrowed<Brenmoor::EngineBasicTrace>(m_directory, "Trace");
    Brenmoor::BASIC_TRACE::BT_DATA_var data = trace->value();
    QCOMPARE(data->pointCount, 3);
    QCOMPARE(data->samples.length(), CORBA::ULong(3));
    QCOMPARE(data->samples[2], 3.0f);
    QCOMPARE(data->stop, 100.0f);

    auto band = narrowed<Brenmoor::EngineAttribEnum>(m_directory, "Band");
    Brenmoor::EngineAttribEnumParams_var entries = band->params();
    QCOMPARE(entries->length(), CORBA::ULong(3));
    QCOMPARE(QString(entries[1].label.in()), QStringLiteral("Mid"));
    QVERIFY(!entries[2].enabled);
}

void TestSimEngine::setAppliesAndPublishes()
{
    auto span = narrowed<Brenmoor::EngineAttribDouble>(m_directory, "Span");
    DoubleReader reader(topicOf(span));
    QVERIFY(reader.waitForWriter());
    const unsigned before = m_engine->setCount("Span");

    span->set(owner, 75.0);

    QCOMPARE(span->value(), 75.0);
    // The value before the set may come first: the writer keeps its last
    // sample for readers that join late.
    auto sample = reader.next();
    while (sample && sample->value() != 75.0)
        sample = reader.next();
    QVERIFY(sample);
    QVERIFY(sample->header().serial() > 0);
    QVERIFY(sample->header().stampNs() > 0);
    QCOMPARE(m_engine->setCount("Span"), before + 1);
    QCOMPARE(m_engine->lastLocker("Span")->processId, owner.processId);
    QCOMPARE(std::get<double>(*m_engine->lastSetValue("Span")), 75.0);
}

void TestSimEngine::setOfValueRecordKeepsEngineUnits()
{
    auto gain = narrowed<Brenmoor::EngineAttribValueDouble>(m_directory, "Gain");
    Brenmoor::VALUE_DOUBLE::VALUE sent;
    sent.units.scale = "0,-3,0";
    sent.units.base = "W;;;;";
    sent.lowerLimit = -1000;
    sent.upperLimit = 1000;
    sent.currentValue = 2.5;

    gain->set(owner, sent);

    Brenmoor::VALUE_DOUBLE::VALUE_var value = gain->value();
    QCOMPARE(value->currentValue, 2.5);
    QCOMPARE(QString(value->units.scale.in()), QStringLiteral("10,0,0"));
    QCOMPARE(value->upperLimit, 10.0);
}

void TestSimEngine::engineChangePublishesInOrder()
{
    auto marker = narrowed<Brenmoor::EngineReadingLong>(m_directory, "Marker");
    LongReader reader(topicOf(marker));
    QVERIFY(reader.waitForWriter());

    m_engine->setValue("Marker", std::int64_t{41});
    m_engine->setValue("Marker", std::int64_t{42});

    const auto first = reader.next();
    const auto second = reader.next();
    QVERIFY(first && second);
    QCOMPARE(first->value(), 41);
    QCOMPARE(second->value(), 42);
    QCOMPARE(second->header().serial(), first->header().serial() + 1);
    QCOMPARE(marker->value(), 42);
    QVERIFY_EXCEPTION_THROWN(m_engine->setValue("Marker", 4.2), std::invalid_argument);
    QVERIFY_EXCEPTION_THROWN(m_engine->setValue("NoSuchAttribute", 4.2), std::out_of_range);
}

void TestSimEngine::setOutsideLimitsRaisesDataOutOfRange_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("sent");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::newRow("long above") << "Count" << 11.0 << 0.0 << 10.0;
    QTest::newRow("long below") << "Count" << -1.0 << 0.0 << 10.0;
    QTest::newRow("double above") << "Span" << 100.5 << 0.0 << 100.0;
    QTest::newRow("value double below") << "Gain" << -11.0 << -10.0 << 10.0;
    QTest::newRow("enum not listed") << "Band" << 7.0 << 0.0 << 2.0;
    QTest::newRow("enum disabled") << "Band" << 2.0 << 0.0 << 2.0;
}

void TestSimEngine::setOutsideLimitsRaisesDataOutOfRange()
{
    QFETCH(QString, name);
    QFETCH(double, sent);
    QFETCH(double, lower);
    QFETCH(double, upper);
    const QByteArray attribute = name.toLatin1();
    const SimValue before = m_engine->value(attribute.toStdString());
    const unsigned count = m_engine->setCount(attribute.toStdString());

    try {
        if (name == "Count")
            narrowed<Brenmoor::EngineAttribLong>(m_directory, "Count")->set(owner, CORBA::Long(sent));
        else if (name == "Span")
            narrowed<Brenmoor::EngineAttribDouble>(m_directory, "Span")->set(owner, sent);
        else if (name == "Band")
            narrowed<Brenmoor::EngineAttribEnum>(m_directory, "Band")->set(owner, CORBA::Long(sent));
        else {
            Brenmoor::VALUE_DOUBLE::VALUE record;
            record.currentValue = sent;
            narrowed<Brenmoor::EngineAttribValueDouble>(m_directory, "Gain")->set(owner, record);
        }
        QFAIL("set() outside the limits was accepted");
    } catch (const Brenmoor::Operation_errors::DataOutOfRange& error) {
        QCOMPARE(error.actual, sent);
        QCOMPARE(error.lower, lower);
        QCOMPARE(error.upper, upper);
    }
    QVERIFY(m_engine->value(attribute.toStdString()) == before);
    QCOMPARE(m_engine->setCount(attribute.toStdString()), count + 1);
}

void TestSimEngine::lockAdmitsOnlyItsOwner()
{
    auto mute = narrowed<Brenmoor::EngineAttribBoolean>(m_directory, "Mute");
    CORBA::String_var lockTopic = mute->lockTopic();
    SignalReader reader(lockTopic.in());
    QVERIFY(reader.waitForWriter());

    m_engine->lock("Mute", owner);
    QVERIFY(reader.next());
    QVERIFY(mute->isWritableBy(owner));
    QVERIFY(!mute->isWritableBy(stranger));
    QVERIFY_EXCEPTION_THROWN(mute->set(stranger, true), Brenmoor::Operation_errors::Locked);
    QVERIFY(!mute->value());
    mute->set(owner, true);
    QVERIFY(mute->value());

    m_engine->unlock("Mute");
    QVERIFY(reader.next());
    QVERIFY(mute->isWritableBy(stranger));
    mute->set(stranger, false);
    QVERIFY(!mute->value());
    QVERIFY_EXCEPTION_THROWN(m_engine->lock("Marker", owner), std::invalid_argument);
}

void TestSimEngine::enumListChangeIsAnnounced()
{
    auto band = narrowed<Brenmoor::EngineAttribEnum>(m_directory, "Band");
    CORBA::String_var paramsTopic = band->paramsTopic();
    SignalReader reader(paramsTopic.in());
    QVERIFY(reader.waitForWriter());

    m_engine->setEnumEntries("Band", {{0, "Low", true}, {2, "High", true}});

    QVERIFY(reader.next());
    Brenmoor::EngineAttribEnumParams_var entries = band->params();
    QCOMPARE(entries->length(), CORBA::ULong(2));
    QCOMPARE(QString(entries[1].label.in()), QStringLiteral("High"));
    band->set(owner, 2);
    QCOMPARE(band->value(), 2);
}

void TestSimEngine::limitsChangeIsAnnounced()
{
    auto count = narrowed<Brenmoor::EngineAttribLong>(m_directory, "Count");
    CORBA::String_var limitsTopic = count->limitsTopic();
    SignalReader reader(limitsTopic.in());
    QVERIFY(reader.waitForWriter());

    m_engine->setLimits("Count", {0, 20, 2});

    QVERIFY(reader.next());
    const Brenmoor::LimitsLong limits = count->limits();
    QCOMPARE(limits.upper, 20);
    QCOMPARE(limits.step, 2);
    count->set(owner, 15);
    QCOMPARE(count->value(), 15);
}

void TestSimEngine::rampMovesTheValue()
{
    auto ramp = narrowed<Brenmoor::EngineReadingLong>(m_directory, "Ramp");
    LongReader reader(topicOf(ramp));
    QVERIFY(reader.waitForWriter());

    const auto first = reader.next();
    const auto second = reader.next();
    QVERIFY(first && second);
    QVERIFY(first->value() != second->value());
    QVERIFY(second->value() >= 0 && second->value() <= 100);
}

void TestSimEngine::drainFallsThenClimbsBack_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<int>("periodMs");
    QTest::newRow("a battery's minutes") << 0.0 << 600.0 << 60000;
    QTest::newRow("around zero, quickly") << -5.0 << 5.0 << 300;
}

void TestSimEngine::drainFallsThenClimbsBack()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(int, periodMs);
    // Driven by the clock it is given: each step is one tenth of a period.
    const SimSimulator::Clock::time_point start;
    SimSimulator drain({SimSimulation::Kind::Drain, periodMs, min, max, {}}, start);
    SimAttributeState state{max, {}, {}, {}, {}, {}};
    std::vector<double> values;
    for (int step = 0; step <= 20; ++step) {
        const auto next = drain.advance(start + std::chrono::milliseconds(periodMs * step / 10), state);
        QVERIFY2(next, "a drain moves at every tick");
        state.value = *next;
        values.push_back(std::get<double>(*next));
        QVERIFY(values.back() >= min && values.back() <= max);
    }
    const auto bottom = values.begin() + 10;
    QCOMPARE(values.front(), max);
    QCOMPARE(*bottom, min);
    QCOMPARE(values.back(), max);
    QVERIFY(std::adjacent_find(values.begin(), bottom + 1, std::less_equal<>()) == bottom + 1);
    QVERIFY(std::adjacent_find(bottom, values.end(), std::greater_equal<>()) == values.end());
}

void TestSimEngine::reshapeChangesTheListAndKeepsTheValueListed()
{
    auto filter = narrowed<Brenmoor::EngineAttribEnum>(m_directory, "Filter");
    CORBA::String_var paramsTopic = filter->paramsTopic();
    SignalReader reader(paramsTopic.in());
    QVERIFY(reader.waitForWriter());

    // Whichever phase the first announcement catches, the next one has the other length.
    QVERIFY(reader.next());
    const CORBA::ULong before = Brenmoor::EngineAttribEnumParams_var(filter->params())->length();
    QVERIFY(reader.next());
    const CORBA::ULong after = Brenmoor::EngineAttribEnumParams_var(filter->params())->length();
    QCOMPARE(std::minmax(before, after), std::minmax(CORBA::ULong(2), CORBA::ULong(3)));
    // The value 3 cannot stay set while "Open" is missing.
    if (after == 2)
        QCOMPARE(filter->value(), 1);
}

void TestSimEngine::textsCycleTravelWholeAndRefuseWhatTheyAreTold()
{
    auto motto = narrowed<Brenmoor::EngineAttribString>(m_directory, "Motto");
    auto valueOf = [&motto] { return QString::fromUtf8(CORBA::String_var(motto->value()).in()); };
    QTRY_COMPARE(valueOf(), QStringLiteral("second"));
    QTRY_COMPARE(valueOf(), QStringLiteral("first"));

    try {
        motto->set(owner, "forbidden");
        QFAIL("a refused text was taken");
    } catch (const CORBA::BAD_PARAM&) {
    }
    const QString text = QStringLiteral("Grüße \u6f22\u5b57 \u0645\u0631\u062d\u0628\u0627\tline\nnext");
    motto->set(owner, text.toUtf8().constData());
    QCOMPARE(std::get<std::string>(m_engine->value("Motto")), text.toStdString());
}

void TestSimEngine::scenarioRejectsBadInput_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("complaint");
    QTest::newRow("not JSON") << QByteArray("{") << "JSON";
    QTest::newRow("no list") << QByteArray("{}") << "attributes";
    QTest::newRow("no name") << QByteArray(R"({"attributes":[{"kind":"EngineReadingLong"}]})") << "name";
    QTest::newRow("unknown kind") << QByteArray(R"({"attributes":[{"name":"A","kind":"EngineReadingFoo"}]})")
                                  << "unknown kind";
    QTest::newRow("wrong value type")
        << QByteArray(R"({"attributes":[{"name":"A","kind":"EngineAttribDouble","value":true}]})") << "number";
    QTest::newRow("long out of range")
        << QByteArray(R"({"attributes":[{"name":"A","kind":"EngineReadingLong","value":3e9}]})") << "range";
    QTest::newRow("fractional enum")
        << QByteArray(R"({"attributes":[{"name":"A","kind":"EngineAttribEnum","enum":[{"value":0.5}]}]})")
        << "whole number";
    QTest::newRow("walk on a boolean")
        << QByteArray(R"({"attributes":[{"name":"A","kind":"EngineAttribBoolean","simulation":{"kind":"walk"}}]})")
        << "does not suit";
    QTest::newRow("drain on a boolean")
        << oneAttribute(R"("kind":"EngineReadingBoolean","simulation":{"kind":"drain"})") << "does not suit";
    QTest::newRow("cycle of a text without texts")
        << oneAttribute(R"("kind":"EngineAttribString","simulation":{"kind":"cycle"})") << "does not suit";
    QTest::newRow("texts not strings")
        << oneAttribute(R"("kind":"EngineAttribString","simulation":{"kind":"cycle","texts":[1]})")
        << "A/simulation/texts/0: a string is needed";
    QTest::newRow("refused texts not a list") << oneAttribute(R"("kind":"EngineAttribString","refuse":"x")")
                                              << "A/refuse: a list is needed";
    QTest::newRow("unknown simulation")
        << QByteArray(R"({"attributes":[{"name":"A","kind":"EngineReadingLong","simulation":{"kind":"spin"}}]})")
        << "spin";
    QTest::newRow("malformed unit")
        << QByteArray(R"({"attributes":[{"name":"A","kind":"EngineAttribDouble","units":"0,7,0:Hz;;;;"}]})")
        << "exponent";
    QTest::newRow("meter flag out of range")
        << QByteArray(R"({"attributes":[{"name":"A","kind":"EngineReadingMeterReading","meter":{"flags":[7]}}]})")
        << "flag";
    QTest::newRow("unknown reading type")
        << QByteArray(R"({"attributes":[{"name":"A","kind":"EngineReadingMeterReading","meter":{"items":[{"type":9}]}}]})")
        << "reading type";

    // Numbers that do not fit where they go.
    const QString beyond64 = QStringLiteral("A/value: a whole number within the 64-bit range is needed");
    QTest::newRow("longlong 1e300") << oneAttribute(R"("kind":"EngineAttribLongLong","value":1e300)") << beyond64;
    QTest::newRow("longlong 2^63")
        << oneAttribute(R"("kind":"EngineAttribLongLong","value":9223372036854775808)") << beyond64;
    QTest::newRow("longlong -1e19") << oneAttribute(R"("kind":"EngineReadingLongLong","value":-1e19)") << beyond64;
    QTest::newRow("long value 3e9 names the field")
        << oneAttribute(R"("kind":"EngineAttribLong","value":3e9)")
        << "A/value: a whole number within the 32-bit range";
    QTest::newRow("enum value 1e10")
        << oneAttribute(R"("kind":"EngineAttribEnum","enum":[{"value":1e10,"label":"Far"}])")
        << "A/enum/value: a whole number within the 32-bit range";
    QTest::newRow("enum value -2^31-1")
        << oneAttribute(R"("kind":"EngineAttribEnum","enum":[{"value":-2147483649,"label":"Far"}])")
        << "A/enum/value: a whole number within the 32-bit range";
    QTest::newRow("meter item type 1e300")
        << oneAttribute(R"("kind":"EngineReadingMeterReading","meter":{"items":[{"type":1e300}]})")
        << "A/meter/items/type: a reading type from 0 to 8 is needed";
    QTest::newRow("trace sample beyond a float")
        << oneAttribute(R"("kind":"EngineBasicTrace","value":[1,1e39])")
        << "A/value: a number within the range of a float";

    // Limits.
    QTest::newRow("limits not an object") << oneAttribute(R"("kind":"EngineAttribDouble","limits":[0,1])")
                                          << "A/limits: an object is needed";
    QTest::newRow("limits inverted")
        << oneAttribute(R"("kind":"EngineAttribDouble","limits":{"lower":10,"upper":1})")
        << "A/limits/lower: above the upper limit";
    QTest::newRow("limits without upper") << oneAttribute(R"("kind":"EngineAttribDouble","limits":{"lower":10})")
                                          << "A/limits/upper: a number is needed";
    QTest::newRow("step zero")
        << oneAttribute(R"("kind":"EngineAttribDouble","limits":{"lower":0,"upper":1,"step":0})")
        << "A/limits/step: a positive number is needed";
    QTest::newRow("step negative")
        << oneAttribute(R"("kind":"EngineAttribDouble","limits":{"lower":0,"upper":1,"step":-0.5})")
        << "A/limits/step: a positive number is needed";
    QTest::newRow("step NaN string")
        << oneAttribute(R"("kind":"EngineAttribDouble","limits":{"lower":0,"upper":1,"step":"NaN"})")
        << "A/limits/step: a number is needed";
    QTest::newRow("long limit beyond 32 bits")
        << oneAttribute(R"("kind":"EngineAttribLong","limits":{"lower":0,"upper":1e10})")
        << "A/limits/upper: a whole number within the 32-bit range";
    QTest::newRow("long limit fractional")
        << oneAttribute(R"("kind":"EngineAttribValueLong","limits":{"lower":0.5,"upper":10})")
        << "A/limits/lower: a whole number is needed";
    QTest::newRow("long step below one")
        << oneAttribute(R"("kind":"EngineAttribLong","limits":{"lower":0,"upper":10,"step":0.4})")
        << "A/limits/step: a whole number is needed";
    QTest::newRow("trace limit beyond a float")
        << oneAttribute(R"("kind":"EngineBasicTrace","limits":{"lower":0,"upper":1e300})")
        << "A/limits/upper: a number within the range of a float";

    // Simulations.
    QTest::newRow("simulation not an object") << oneAttribute(R"("kind":"EngineReadingLong","simulation":"walk")")
                                              << "A/simulation: an object is needed";
    QTest::newRow("period NaN string")
        << oneAttribute(R"("kind":"EngineReadingLong","simulation":{"kind":"walk","period_ms":"NaN"})")
        << "A/simulation/period_ms: a number is needed";
    const QString period = QStringLiteral("A/simulation/period_ms: a whole number from 1 to 86400000 is needed");
    QTest::newRow("period 1e300")
        << oneAttribute(R"("kind":"EngineReadingLong","simulation":{"kind":"walk","period_ms":1e300})") << period;
    QTest::newRow("period zero")
        << oneAttribute(R"("kind":"EngineReadingLong","simulation":{"kind":"walk","period_ms":0})") << period;
    QTest::newRow("period over a day")
        << oneAttribute(R"("kind":"EngineReadingLong","simulation":{"kind":"walk","period_ms":86400001})") << period;
    QTest::newRow("period fractional")
        << oneAttribute(R"("kind":"EngineReadingLong","simulation":{"kind":"walk","period_ms":2.5})")
        << "A/simulation/period_ms: a whole number is needed";
    QTest::newRow("min a string")
        << oneAttribute(R"("kind":"EngineReadingDouble","simulation":{"kind":"walk","min":"low"})")
        << "A/simulation/min: a number is needed";
    QTest::newRow("min above max")
        << oneAttribute(R"("kind":"EngineReadingDouble","simulation":{"kind":"ramp","min":5,"max":1})")
        << "A/simulation/min: above max";
    QTest::newRow("max beyond a long")
        << oneAttribute(R"("kind":"EngineReadingLong","simulation":{"kind":"ramp","max":1e10})")
        << "A/simulation/max: outside the range of the kind";
    QTest::newRow("kind not a string")
        << oneAttribute(R"("kind":"EngineReadingLong","simulation":{"kind":1})")
        << "A/simulation/kind: a string is needed";

    // Names, which become DDS topic names.
    QTest::newRow("attribute not an object")
        << QByteArray(R"({"attributes":[5]})") << "attribute 1: an object is needed";
    QTest::newRow("name not a string") << scenarioOf({R"("name":5,"kind":"EngineReadingLong")"})
                                       << "attribute 1/name: a name is needed";
    QTest::newRow("name empty") << scenarioOf({R"("name":"","kind":"EngineReadingLong")"})
                                << "attribute 1/name: a name is needed";
    QTest::newRow("name of 10 MB")
        << scenarioOf({R"("name":")" + QByteArray(10 * 1024 * 1024, 'a') + R"(","kind":"EngineReadingLong")"})
        << "attribute 1/name: at most 240 bytes";
    QTest::newRow("name of 241 bytes")
        << scenarioOf({R"("name":"Ü)" + QByteArray(239, 'a') + R"(","kind":"EngineReadingLong")"})
        << "attribute 1/name: at most 240 bytes";
    QTest::newRow("name with NUL") << scenarioOf({R"("name":"A\u0000B","kind":"EngineReadingLong")"})
                                   << "attribute 1/name: no control characters";
    QTest::newRow("name with newline")
        << scenarioOf({R"("name":"A","kind":"EngineReadingLong")", R"("name":"B\n","kind":"EngineReadingLong")"})
        << "attribute 2/name: no control characters";
    QTest::newRow("name twice")
        << scenarioOf({R"("name":"A","kind":"EngineReadingLong")", R"("name":"A","kind":"EngineAttribLong")"})
        << "A/name: declared twice";

    // Other fields of the wrong shape: none falls back to a default.
    QTest::newRow("units a number") << oneAttribute(R"("kind":"EngineAttribDouble","units":5)")
                                    << "A/units: a string is needed";
    QTest::newRow("string value with NUL") << oneAttribute(R"("kind":"EngineAttribString","value":"a\u0000b")")
                                           << "A/value: no NUL characters";
    QTest::newRow("trace not a list") << oneAttribute(R"("kind":"EngineBasicTrace","value":5)")
                                      << "A/value: a list is needed";
    QTest::newRow("complex point of three")
        << oneAttribute(R"("kind":"EngineReadingComplexTrace","value":[[1,2],[1,2,3]])") << "A/value: an [i, q] pair";
    QTest::newRow("complex point a number")
        << oneAttribute(R"("kind":"EngineReadingComplexTrace","value":[1,2])") << "A/value: an [i, q] pair";
    QTest::newRow("enum not a list") << oneAttribute(R"("kind":"EngineAttribEnum","enum":{"value":0})")
                                     << "A/enum: a list is needed";
    QTest::newRow("enum entry not an object") << oneAttribute(R"("kind":"EngineAttribEnum","enum":[0])")
                                              << "A/enum: an object is needed";
    QTest::newRow("enum label a number")
        << oneAttribute(R"("kind":"EngineAttribEnum","enum":[{"value":0,"label":0}])")
        << "A/enum/label: a string is needed";
    QTest::newRow("enum label with NUL")
        << oneAttribute(R"("kind":"EngineAttribEnum","enum":[{"value":0,"label":"a\u0000"}])")
        << "A/enum/label: no NUL characters";
    QTest::newRow("enum enabled a string")
        << oneAttribute(R"("kind":"EngineAttribEnum","enum":[{"value":0,"label":"Off","enabled":"no"}])")
        << "A/enum/enabled: true or false is needed";
    QTest::newRow("enum value twice")
        << oneAttribute(R"("kind":"EngineAttribEnum","enum":[{"value":1,"label":"On"},{"value":1,"label":"Also on"}])")
        << "A/enum/value: 1 is listed twice";
    // The simulator steps a value with a list through its entries, as whole numbers.
    QTest::newRow("enum on a double")
        << oneAttribute(R"("kind":"EngineAttribDouble","simulation":{"kind":"walk"},)"
                        R"("enum":[{"value":0,"label":"Off"}])")
        << "A/enum: an EngineAttribDouble has no enumerator list";
    QTest::newRow("meter on a double") << oneAttribute(R"("kind":"EngineReadingDouble","meter":{"flags":[1]})")
                                       << "A/meter: an EngineReadingDouble has no meter reading";
    QTest::newRow("meter not an object") << oneAttribute(R"("kind":"EngineReadingMeterReading","meter":[1])")
                                         << "A/meter: an object is needed";
    QTest::newRow("meter items not a list")
        << oneAttribute(R"("kind":"EngineReadingMeterReading","meter":{"items":{"type":0}})")
        << "A/meter/items: a list is needed";
    QTest::newRow("meter item not an object")
        << oneAttribute(R"("kind":"EngineReadingMeterReading","meter":{"items":[0]})")
        << "A/meter/items: an object is needed";
    QTest::newRow("meter offset a string")
        << oneAttribute(R"("kind":"EngineReadingMeterReading","meter":{"items":[{"type":0,"offset":"-3"}]})")
        << "A/meter/items/offset: a number is needed";
    QTest::newRow("meter flags a number") << oneAttribute(R"("kind":"EngineReadingMeterReading","meter":{"flags":1})")
                                          << "A/meter/flags: a list is needed";
}

void TestSimEngine::scenarioRejectsBadInput()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, complaint);
    try {
        SimScenario::parse(json);
        QFAIL("a bad scenario was accepted");
    } catch (const std::runtime_error& error) {
        QVERIFY2(QString(error.what()).contains(complaint), error.what());
    }
}

void TestSimEngine::scenarioAcceptsValuesAtTheirBounds_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("longlong -2^63") << oneAttribute(R"("kind":"EngineAttribLongLong","value":-9223372036854775808)");
    // The largest double below 2^63.
    QTest::newRow("longlong 2^63-1024") << oneAttribute(R"("kind":"EngineAttribLongLong","value":9223372036854774784)");
    QTest::newRow("long limits at 32 bits")
        << oneAttribute(R"("kind":"EngineAttribLong","value":-2147483648,)"
                        R"("limits":{"lower":-2147483648,"upper":2147483647,"step":1})");
    QTest::newRow("enum values at 32 bits")
        << oneAttribute(R"("kind":"EngineAttribEnum","value":2147483647,)"
                        R"("enum":[{"value":-2147483648,"label":"Low"},{"value":2147483647}])");
    QTest::newRow("equal limits, fine step")
        << oneAttribute(R"("kind":"EngineAttribDouble","limits":{"lower":-1e300,"upper":-1e300,"step":1e-300})");
    QTest::newRow("period of a day and of 1 ms")
        << scenarioOf({R"("name":"A","kind":"EngineReadingLong","simulation":{"kind":"walk","period_ms":86400000})",
                       R"("name":"B","kind":"EngineReadingLong",)"
                       R"("simulation":{"kind":"ramp","period_ms":1,"min":5,"max":5})"});
    QTest::newRow("name of 240 bytes")
        << scenarioOf({R"("name":"Ü)" + QByteArray(238, 'a') + R"(","kind":"EngineReadingLong")"});
    QTest::newRow("names that differ in case")
        << scenarioOf({R"("name":"Span","kind":"EngineReadingLong")", R"("name":"span","kind":"EngineReadingLong")"});
}

void TestSimEngine::scenarioAcceptsValuesAtTheirBounds()
{
    QFETCH(QByteArray, json);
    try {
        QVERIFY(!SimScenario::parse(json).empty());
    } catch (const std::runtime_error& error) {
        QFAIL(error.what());
    }
}

void TestSimEngine::processRefusesBadScenario()
{
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    const QString path = folder.filePath(QStringLiteral("bad.json"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(scenarioOf({R"("name":"Gain","kind":"EngineAttribDouble",)"
                           R"("limits":{"lower":0,"upper":1,"step":"NaN"})"}));
    file.close();

    QProcess engine;
    engine.start(SimEngineProcess::program(),
                 {path, QStringLiteral("--parent-pid"), QString::number(QCoreApplication::applicationPid())});
    QVERIFY2(engine.waitForFinished(10000), "the engine served a bad scenario");

    const QString complaint = QString::fromUtf8(engine.readAllStandardError());
    QCOMPARE(engine.exitStatus(), QProcess::NormalExit);
    QCOMPARE(engine.exitCode(), 2);
    QVERIFY2(complaint.contains(QStringLiteral("Gain/limits/step: a number is needed")), qPrintable(complaint));
}

void TestSimEngine::processServesDemoScenario()
{
    QVERIFY2(m_process.start(QStringLiteral(RV_DEMO_SCENARIO)), qPrintable(m_process.errorString()));
    m_remoteDirectory = m_process.directory();
    m_remoteControl = m_process.control();
    Brenmoor::NameSeq_var names = m_remoteDirectory->names();
    QVERIFY(names->length() >= 7);

    auto frequency = narrowed<Brenmoor::EngineAttribDouble>(m_remoteDirectory, "Frequency");
    QCOMPARE(frequency->value(), 1e9);
    DoubleReader reader(topicOf(frequency));
    QVERIFY(reader.waitForWriter());

    const auto sample = reader.nextAfterRepeating([&] { m_remoteControl->setDouble("Frequency", 2.5e9); });

    QCOMPARE(frequency->value(), 2.5e9);
    QVERIFY(sample);
    QCOMPARE(sample->value(), 2.5e9);
    QVERIFY_EXCEPTION_THROWN(m_remoteControl->setDouble("Progress", 1.0), SimEngineControl::BadRequest);
}

void TestSimEngine::failNextSetRaisesChosenFailure_data()
{
    QTest::addColumn<bool>("remote");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("remoteKind");
    QTest::addColumn<QString>("raised");
    struct Row
    {
        SimFailure::Kind kind;
        SimEngineControl::FailureKind remoteKind;
        const char* raised;
    };
    const Row rows[] = {{SimFailure::Kind::DataOutOfRange, SimEngineControl::DATA_OUT_OF_RANGE, "DataOutOfRange"},
                        {SimFailure::Kind::Locked, SimEngineControl::LOCKED, "Locked"},
                        {SimFailure::Kind::Unknown, SimEngineControl::SYSTEM_UNKNOWN, "UNKNOWN"},
                        {SimFailure::Kind::BadParam, SimEngineControl::SYSTEM_BAD_PARAM, "BAD_PARAM"},
                        {SimFailure::Kind::Transient, SimEngineControl::SYSTEM_TRANSIENT, "TRANSIENT"},
                        {SimFailure::Kind::CommFailure, SimEngineControl::SYSTEM_COMM_FAILURE, "COMM_FAILURE"}};
    for (bool remote : {false, true}) {
        for (const Row& row : rows)
            QTest::addRow("%s %s", remote ? "process" : "in-process", row.raised)
                << remote << static_cast<int>(row.kind) << static_cast<int>(row.remoteKind) << row.raised;
    }
}

void TestSimEngine::failNextSetRaisesChosenFailure()
{
    QFETCH(bool, remote);
    QFETCH(int, kind);
    QFETCH(int, remoteKind);
    QFETCH(QString, raised);
    QVERIFY2(!remote || !CORBA::is_nil(m_remoteControl), "the engine process did not start");
    // Each within the attribute's limits, and new to it.
    const char* name = remote ? "Frequency" : "Span";
    const double sent = (remote ? 2e3 : 40.0) + kind;
    SimFailure failure;
    failure.kind = static_cast<SimFailure::Kind>(kind);
    if (remote)
        m_remoteControl->failNextSet(name, 1, {static_cast<SimEngineControl::FailureKind>(remoteKind), 0, 0, 0});
    else
        m_engine->failNextSet(name, 1, failure);
    auto attribute = narrowed<Brenmoor::EngineAttribDouble>(directoryFor(remote), name);

    QCOMPARE(exceptionName([&] { attribute->set(owner, sent); }), raised);
    QVERIFY(attribute->value() != sent);
    // Only the next call fails.
    attribute->set(owner, sent);
    QCOMPARE(attribute->value(), sent);
}

void TestSimEngine::hungSetTimesOutWhileReadsGoOn()
{
    QVERIFY2(!CORBA::is_nil(m_remoteControl), "the engine process did not start");
    auto frequency = narrowed<Brenmoor::EngineAttribDouble>(m_remoteDirectory, "Frequency");
    m_remoteControl->hangNextSet("Frequency", 1, 4000);
    QElapsedTimer clock;
    clock.start();

    QCOMPARE(exceptionName([&] { frequency->set(owner, 3e9); }), QStringLiteral("TIMEOUT"));

    const qint64 waited = clock.elapsed();
    QVERIFY2(waited >= ORB_Wrapper::callTimeoutMs - 100 && waited < ORB_Wrapper::callTimeoutMs + 1000,
             qPrintable(QString::number(waited)));
    // The delayed set() must not hold up reads meanwhile.
    double readBack = 0;
    QCOMPARE(exceptionName([&] { readBack = frequency->value(); }), QStringLiteral("none"));
    QVERIFY(readBack != 3e9);
}

void TestSimEngine::quitEndsProcessCleanly()
{
    QVERIFY2(!CORBA::is_nil(m_remoteControl), "the engine process did not start");
    m_remoteControl->quit();
    QVERIFY(m_process.waitForExit(5000));
    QVERIFY(!QFile::exists(m_process.iorFile()));
}

void TestSimEngine::killedEngineFailsFast()
{
    SimEngineProcess process;
    QVERIFY2(process.start(QStringLiteral(RV_DEMO_SCENARIO)), qPrintable(process.errorString()));
    Brenmoor::AttributeDirectory_var directory = process.directory();
    auto power = narrowed<Brenmoor::EngineAttribBoolean>(directory, "Power");
    QVERIFY(power->value());

    process.kill();
    QElapsedTimer clock;
    clock.start();

    const QString first = exceptionName([&] { power->value(); });
    QVERIFY2(first == "COMM_FAILURE" || first == "TRANSIENT", qPrintable(first));
    QCOMPARE(exceptionName([&] { power->set(owner, false); }), QStringLiteral("TRANSIENT"));
    QVERIFY(clock.elapsed() < 1000);
}

RV_TEST_MAIN_BOUNDED_EXIT(TestSimEngine, QCoreApplication)
#include "tst_simengine.moc"
