// The instrument's DDS participant against a peer of another make, Cyclone
// DDS (rv-cyclone-probe), on UDP over 127.0.0.1: what the peer writes
// reaches a bound widget, what the engine writes reaches the peer, and a
// sample the peer writes that Fast DDS cannot read costs that sample, not
// the host.
#include "BoundedExit.h"
#include "ProgressBar.h"
#include "SimEngine.h"

#include <Brenmoor.hh>

#include <QProcess>
#include <QProgressBar>
#include <QtTest>

#include <memory>

namespace {

QProgressBar* barOf(QWidget* widget) { return widget->findChild<QProgressBar*>(); }

// The probe gives up a little before the test stops waiting for it, so
// that its own report is what a failure shows.
constexpr int probeSeconds = 12;
constexpr int waitMs = 15000;

// rv-cyclone-probe in a process of its own, on the test's DDS domain.
class CycloneProbe
{
public:
    explicit CycloneProbe(QStringList arguments)
    {
        arguments << QStringLiteral("--timeout") << QString::number(probeSeconds);
        m_process.start(QStringLiteral(RV_CYCLONE_PROBE), arguments);
    }
    ~CycloneProbe()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished(2000);
        }
    }

    // Reads what the probe printed so far; call from QTRY_* so that the
    // interface thread goes on serving the widgets' DDS deliveries.
    QStringList lines()
    {
        m_output += QString::fromLocal8Bit(m_process.readAllStandardOutput());
        return m_output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    bool finished() const { return m_process.state() == QProcess::NotRunning; }
    bool succeeded() const { return finished() && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0; }
    QString report()
    {
        return QStringLiteral("probe printed [%1], reported [%2]")
            .arg(lines().join(QStringLiteral("; ")), QString::fromLocal8Bit(m_process.readAllStandardError()).trimmed());
    }

private:
    QProcess m_process;
    QString m_output;
};

} // namespace

class TestDdsInterop : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void barShowsWhatTheForeignPeerWrites();
    void foreignPeerReadsWhatTheEngineWrites();
    // Last: until the library survives such a sample, it ends the process.
    void unreadableSampleCostsOnlyThatSample();

private:
    std::unique_ptr<SimEngine> m_engine;
};

void TestDdsInterop::initTestCase()
{
    m_engine = std::make_unique<SimEngine>();
    for (const char* name : {"Remote", "Level", "Hostile"}) {
        SimAttributeSetup setup;
        setup.name = name;
        setup.kind = SimKind::ReadingLong;
        setup.value = std::int64_t(5);
        m_engine->addAttribute(setup);
    }
}

void TestDdsInterop::barShowsWhatTheForeignPeerWrites()
{
    ProgressBar bar;
    bar.setUpdateDelay(0);
    bar.bindAttribute(m_engine->attribute("Remote"));
    QCOMPARE(barOf(&bar)->value(), 50);

    CycloneProbe probe({QStringLiteral("write"), QStringLiteral("Remote"), QStringLiteral("61"), QStringLiteral("73")});
    QTRY_COMPARE_WITH_TIMEOUT(barOf(&bar)->value(), 730, waitMs);
    QTRY_VERIFY_WITH_TIMEOUT(probe.finished(), waitMs);
    QVERIFY2(probe.succeeded(), qPrintable(probe.report()));
}

void TestDdsInterop::foreignPeerReadsWhatTheEngineWrites()
{
    CycloneProbe probe({QStringLiteral("read"), QStringLiteral("Level"), QStringLiteral("37")});
    QTRY_VERIFY2_WITH_TIMEOUT(probe.lines().contains(QStringLiteral("matched")) || probe.finished(),
                              qPrintable(probe.report()), waitMs);
    // The engine's writer may learn of the peer's reader a moment after the
    // reader learnt of it: repeat the change until a sample has crossed.
    QTRY_VERIFY_WITH_TIMEOUT([&] {
        m_engine->setValue("Level", std::int64_t(37));
        return probe.finished();
    }(), waitMs);
    QVERIFY2(probe.succeeded(), qPrintable(probe.report()));
    QVERIFY(probe.lines().contains(QStringLiteral("value 37")));
}

void TestDdsInterop::unreadableSampleCostsOnlyThatSample()
{
    ProgressBar bar;
    bar.setUpdateDelay(0);
    bar.bindAttribute(m_engine->attribute("Hostile"));

    // Fast CDR reads XCDR1 only: an XCDR2 sample cannot be read, and it
    // must not take the host down.
    CycloneProbe probe({QStringLiteral("write"), QStringLiteral("Hostile"), QStringLiteral("66"), QStringLiteral("--xcdr2")});
    QTRY_VERIFY_WITH_TIMEOUT(probe.finished(), waitMs);
    QVERIFY2(probe.succeeded(), qPrintable(probe.report()));
    QVERIFY(probe.lines().contains(QStringLiteral("wrote 66")));

    // The host is still here, and the bar still follows its engine.
    QTRY_VERIFY_WITH_TIMEOUT([&] {
        m_engine->setValue("Hostile", std::int64_t(9));
        return barOf(&bar)->value() == 90;
    }(), waitMs);
}

RV_TEST_MAIN_BOUNDED_EXIT(TestDdsInterop, QApplication)
#include "tst_ddsinterop.moc"
