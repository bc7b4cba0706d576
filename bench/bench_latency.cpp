// Sample-to-screen latency of the widget spine. The engine writes one
// EngineReadingLong sample at a time, and three receivers time it from the
// stamp the engine put into the sample's header:
//   a bound ProgressBar with no update delay: the inner bar has applied the
//   value on the interface thread (and has painted it);
//   a bare Fast DDS listener on the same topic: it has taken the sample;
//   the same listener's queued post: the functor has run on the interface thread.
// Then the bare listener alone, with no widget bound, as the baseline of
// the raw DDS delivery. Once against an engine in this process, once
// against an engine process. Prints p50 and p99 in microseconds, and the
// widget's p50 over the bare listener's.
#include "BenchReport.h"
#include "BenchSpine.h"
#include "DDS_BaseObj.h"
#include "DDS_ParticipantHolder.h"
#include "ProgressBar.h"
#include "SimAttribute.h"
#include "SimEngine.h"
#include "SimEngineProcess.h"

#include <TQMM_DDSPubSubTypes.h>

#include <fastdds/dds/domain/DomainParticipant.hpp>
#include <fastdds/dds/subscriber/DataReader.hpp>
#include <fastdds/dds/subscriber/DataReaderListener.hpp>
#include <fastdds/dds/subscriber/SampleInfo.hpp>
#include <fastdds/dds/subscriber/Subscriber.hpp>
#include <fastdds/dds/subscriber/qos/DataReaderQos.hpp>
#include <fastdds/dds/topic/Topic.hpp>

#include <QApplication>
#include <QCommandLineParser>
#include <QEvent>
#include <QFile>
#include <QProgressBar>
#include <QTemporaryDir>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace fdds = eprosima::fastdds::dds;

namespace {

// The clock of the engine's stamps.
std::int64_t wallNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

/*
  A reader of one attribute's topic without any of the widget machinery:
  on the DDS thread it takes every sample and hands its value and stamp on.
  The participant and topic are the ones the widgets use.
*/
class BareReader : public fdds::DataReaderListener
{
public:
    using Taken = std::function<void(int value, std::int64_t stampNs, std::int64_t takenNs)>;

    BareReader(const std::string& topicName, Taken taken)
        : m_taken(std::move(taken))
    {
        Brenmoor::DDS_ParticipantHolder* holder = Brenmoor::DDS_ParticipantHolder::instance();
        if (!holder->participant())
            return;
        m_subscriber = holder->participant()->create_subscriber(fdds::SUBSCRIBER_QOS_DEFAULT);
        m_topic = holder->acquireTopic(topicName, m_type);
        if (!m_subscriber || !m_topic)
            return;
        fdds::DataReaderQos qos;
        m_subscriber->get_default_datareader_qos(qos);
        qos.reliability().kind = fdds::RELIABLE_RELIABILITY_QOS;
        // Volatile matches a writer of any durability.
        qos.durability().kind = fdds::VOLATILE_DURABILITY_QOS;
        Brenmoor::DDS_ParticipantHolder::keepLocal(qos);
        m_reader = m_subscriber->create_datareader(m_topic, qos, this, fdds::StatusMask::data_available());
    }

    ~BareReader() override
    {
        Brenmoor::DDS_ParticipantHolder* holder = Brenmoor::DDS_ParticipantHolder::instance();
        // The reader goes before its listener, which is this object.
        if (m_subscriber) {
            m_subscriber->delete_contained_entities();
            holder->participant()->delete_subscriber(m_subscriber);
        }
        holder->releaseTopic(m_topic);
    }

    bool isReady() const { return m_reader != nullptr; }

    void on_data_available(fdds::DataReader* reader) override
    {
        // One call may stand for several samples.
        TQMM_DDS::ATTR_LONG sample;
        fdds::SampleInfo info;
        while (reader->take_next_sample(&sample, &info) == ReturnCode_t::RETCODE_OK) {
            const std::int64_t takenNs = wallNs();
            if (info.valid_data)
                m_taken(sample.value(), sample.header().stampNs(), takenNs);
        }
    }

private:
    Taken m_taken;
    fdds::TypeSupport m_type{new TQMM_DDS::ATTR_LONGPubSubType};
    fdds::Subscriber* m_subscriber = nullptr;
    fdds::Topic* m_topic = nullptr;
    fdds::DataReader* m_reader = nullptr;
};

enum Receiver
{
    Taken = 1,
    Posted = 2,
    Applied = 4,
    Painted = 8
};

//! When each receiver saw one sample, in system-clock nanoseconds.
struct SampleTimes
{
    std::int64_t stamp = 0;
    std::int64_t taken = 0;
    std::int64_t posted = 0;
    std::int64_t applied = 0;
    std::int64_t painted = 0;
};

/*
  One sample in flight at a time: the writing thread names the percentage it
  writes, and each receiver notes when it saw that percentage. A late sample
  of an earlier round carries another percentage and is ignored.
*/
class PacedSamples : public QObject
{
public:
    //! \a bar: the inner bar of the bound widget; null when no widget is bound.
    explicit PacedSamples(QProgressBar* bar)
        : m_bar(bar)
    {
        if (!bar)
            return;
        connect(bar, &QProgressBar::valueChanged, this,
                [this](int tenths) { note(tenths / 10, Applied, wallNs()); });
        bar->installEventFilter(this);
    }

    bool watchesWidget() const { return m_bar != nullptr; }

    //! On the DDS thread of the bare listener.
    void taken(int percent, std::int64_t stampNs, std::int64_t takenNs)
    {
        note(percent, Taken, takenNs, stampNs);
        QMetaObject::invokeMethod(
            this, [this, percent] { note(percent, Posted, wallNs()); }, Qt::QueuedConnection);
    }

    /*!
      On the writing thread: writes \a percent and waits until the receivers
      of \a wanted have seen it, or 50 ms. Returns the receivers that did.
    */
    int writeAndWait(const std::function<void(int)>& write, int percent, int wanted, SampleTimes* times)
    {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_expected = percent;
            m_times = SampleTimes();
            m_seen = 0;
        }
        write(percent);
        std::unique_lock<std::mutex> lock(m_mutex);
        m_change.wait_for(lock, std::chrono::milliseconds(50), [&] { return (m_seen & wanted) == wanted; });
        m_expected = -1;
        *times = m_times;
        return m_seen;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint || m_painting)
            return false;
        // The paint is part of what is timed: note the end of it.
        m_painting = true;
        watched->event(event);
        m_painting = false;
        note(m_bar->value() / 10, Painted, wallNs());
        return true;
    }

private:
    void note(int percent, Receiver receiver, std::int64_t ns, std::int64_t stampNs = 0)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (percent != m_expected || (m_seen & receiver))
            return;
        m_seen |= receiver;
        switch (receiver) {
        case Taken:
            m_times.taken = ns;
            m_times.stamp = stampNs;
            break;
        case Posted:
            m_times.posted = ns;
            break;
        case Applied:
            m_times.applied = ns;
            break;
        case Painted:
            m_times.painted = ns;
            break;
        }
        m_change.notify_all();
    }

    QProgressBar* m_bar;
    bool m_painting = false;
    std::mutex m_mutex;
    std::condition_variable m_change;
    int m_expected = -1;
    int m_seen = 0;
    SampleTimes m_times;
};

struct Figures
{
    std::vector<double> taken, posted, applied, painted;
    bool paintsSeen = false;
    bool matched = false;
};

/*
  Writes \a samples paced samples through \a write from a thread of its
  own while the interface thread runs its events, after waiting for the
  readers to match and a warm-up. \a write may be a remote call: it must
  not run on the interface thread, which would then wait for its reply
  before it could apply the sample.
*/
Figures measure(PacedSamples& paced, const std::function<void(int)>& write, int samples)
{
    Figures figures;
    std::thread writer([&] {
        int percent = 0;
        auto next = [&percent] { return percent = (percent + 1) % 101; };
        SampleTimes times;
        try {
            const int receivers = Taken | Posted | (paced.watchesWidget() ? Applied : 0);
            // A sample written before the readers have matched is lost.
            for (int attempt = 0; attempt < 200 && !figures.matched; ++attempt)
                figures.matched = (paced.writeAndWait(write, next(), receivers, &times) & receivers) == receivers;
            if (figures.matched) {
                for (int i = 0; i < 100; ++i) {
                    const int wanted = paced.watchesWidget() ? receivers | Painted : receivers;
                    figures.paintsSeen |= (paced.writeAndWait(write, next(), wanted, &times) & Painted) != 0;
                }
                const int wanted = figures.paintsSeen ? receivers | Painted : receivers;
                auto add = [&times](std::vector<double>& to, std::int64_t ns) {
                    if (ns)
                        to.push_back(double(ns - times.stamp) / 1000.0);
                };
                for (int i = 0; i < samples; ++i) {
                    // Widgets paint at the display's next frame: waiting for
                    // each paint would put every write on the tail of a paint
                    // pass. One sample in ten times the paint; the others
                    // leave a gap of 1 to 3 ms that falls anywhere in a frame.
                    const bool timesPaint = i % 10 == 0;
                    paced.writeAndWait(write, next(), timesPaint ? wanted : receivers, &times);
                    if (!timesPaint)
                        std::this_thread::sleep_for(std::chrono::milliseconds(1 + i % 3));
                    // Without the listener's stamp nothing of this sample can be timed.
                    if (!times.stamp)
                        continue;
                    add(figures.taken, times.taken);
                    add(figures.posted, times.posted);
                    add(figures.applied, times.applied);
                    if (timesPaint)
                        add(figures.painted, times.painted);
                }
            }
        } catch (const CORBA::Exception& error) {
            std::fprintf(stderr, "the engine failed a write: %s\n", error._name());
        }
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    QApplication::exec();
    writer.join();
    return figures;
}

/*
  A bare reader on \a topic and, when \a bind is given, a screen with one
  ProgressBar bound by it, with no update delay so that nothing is held
  back; the widget and its reader are gone on return.
*/
Figures measureOnScreen(const std::string& topic, const std::function<void(ProgressBar*)>& bind,
                        const std::function<void(int)>& write, int samples)
{
    QWidget screen;
    screen.resize(320, 80);
    ProgressBar* widget = nullptr;
    if (bind) {
        widget = new ProgressBar(&screen);
        widget->setGeometry(10, 10, 300, 50);
        widget->setUpdateDelay(0);
    }
    screen.show();
    PacedSamples paced(widget ? benchInnerBar(widget) : nullptr);
    BareReader reader(topic, [&paced](int value, std::int64_t stampNs, std::int64_t takenNs) {
        paced.taken(value, stampNs, takenNs);
    });
    if (!reader.isReady()) {
        std::fprintf(stderr, "the bare reader could not be made\n");
        return {};
    }
    if (widget)
        bind(widget);
    Figures figures = measure(paced, write, samples);
    delete widget;
    Brenmoor::DDS_BaseObj::waitForDisposals();
    return figures;
}

void printFigure(const char* what, const std::vector<double>& microseconds, int samples)
{
    std::printf("  %-46s p50 %8.1f us   p99 %8.1f us   (%zu of %d seen)\n", what,
                benchPercentile(microseconds, 0.5), benchPercentile(microseconds, 0.99), microseconds.size(),
                samples);
}

/*
  The three receivers in one run, then the bare listener alone: sharing
  the participant, it may wait while a widget's delivery holds the thread
  that serves both readers.
*/
void run(const char* engine, const std::string& topic, const std::function<void(ProgressBar*)>& bind,
         const std::function<void(int)>& write, int samples)
{
    std::printf("%s\n", engine);
    const Figures together = measureOnScreen(topic, bind, write, samples);
    if (!together.matched) {
        std::printf("  no sample reached all receivers within 10 s; nothing measured\n");
        return;
    }
    printFigure("ProgressBar applied it (valueChanged)", together.applied, samples);
    if (together.paintsSeen)
        printFigure("ProgressBar painted it (one sample in ten)", together.painted, (samples + 9) / 10);
    else
        std::printf("  ProgressBar painted it: no paint seen\n");
    printFigure("bare DDS listener took it", together.taken, samples);
    printFigure("bare listener + queued post ran", together.posted, samples);
    const Figures alone = measureOnScreen(topic, {}, write, samples);
    printFigure("bare DDS listener, no widget bound", alone.taken, samples);
    printFigure("bare listener + queued post, no widget bound", alone.posted, samples);

    const double widget = benchPercentile(together.applied, 0.5);
    const double bare = benchPercentile(together.taken, 0.5);
    const double bareAlone = benchPercentile(alone.taken, 0.5);
    std::printf("  widget p50 / bare listener p50: %.2f in the same run, %.2f against the listener alone "
                "(goal <= 1.5)\n  widget p99 %.1f us (goal < 1000 us)\n",
                bare > 0 ? widget / bare : 0.0, bareAlone > 0 ? widget / bareAlone : 0.0,
                benchPercentile(together.applied, 0.99));
}

} // namespace

int main(int argc, char* argv[])
{
    benchDefaultToOffscreen();
    QApplication app(argc, argv);
    QCommandLineParser options;
    options.setApplicationDescription(QStringLiteral("Sample-to-screen latency of a bound ProgressBar"));
    options.addHelpOption();
    const QCommandLineOption samplesOption(QStringLiteral("samples"), QStringLiteral("Samples per engine."),
                                           QStringLiteral("count"), QStringLiteral("10000"));
    options.addOption(samplesOption);
    options.process(app);
    const int samples = std::max(1, options.value(samplesOption).toInt());

    std::printf("%d paced samples per engine, one in flight; widget update delay 0 ms\n", samples);
    {
        SimEngine engine;
        benchAddLongReading(engine, "LatencyLocal", 0);
        run("engine in this process (SimEngine::setValue)", SimAttribute::valueTopicOf("LatencyLocal"),
            [&](ProgressBar* widget) { widget->bindAttribute(engine.attribute("LatencyLocal")); },
            [&](int percent) { engine.setValue("LatencyLocal", std::int64_t(percent)); }, samples);
    }
    {
        QTemporaryDir folder;
        const QString scenario = folder.filePath(QStringLiteral("latency.json"));
        QFile file(scenario);
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(R"({ "attributes": [ { "name": "LatencyRemote", "kind": "EngineReadingLong", "value": 0 } ] })") < 0)
            return 1;
        file.close();
        SimEngineProcess engine;
        if (!engine.start(scenario)) {
            std::fprintf(stderr, "the engine process did not start: %s\n", qPrintable(engine.errorString()));
            return 1;
        }
        Brenmoor::AttributeDirectory_var directory = engine.directory();
        SimEngineControl::Control_var control = engine.control();
        run("engine process (SimEngineControl::setLong)", SimAttribute::valueTopicOf("LatencyRemote"),
            [&](ProgressBar* widget) { widget->bindAttribute(directory->find("LatencyRemote")); },
            [&](int percent) { control->setLong("LatencyRemote", percent); }, samples);
        engine.terminate();
    }
    benchBoundShutdown(0);
    return 0;
}
