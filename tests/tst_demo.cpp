// The demo instrument as a host runs it: it ends in order when told to, so
// that its engine ends with it and no shared memory is left behind; it says
// how it is used; it shows a form of the user's own against an engine
// process, and turns bad input into one clear line, never a hang.
#include "BoundedExit.h"
#include "SimEngineProcess.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace {

const QString demoProgram = QStringLiteral(RV_DEMO_PROGRAM);
const QString userForm = QStringLiteral(RV_TEST_DATA "/userform.ui");

struct Outcome
{
    int exitCode = -1;
    QString out;
    QStringList errorLines;
    qint64 milliseconds = 0;
    QImage picture;
};

// Runs \a program to its end within \a timeoutMs; a program still running then is killed and fails the test.
Outcome run(const QString& program, const QStringList& arguments, int timeoutMs = 20000,
            const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(environment);
    QElapsedTimer clock;
    clock.start();
    process.start(program, arguments);
    if (!process.waitForFinished(timeoutMs)) {
        process.kill();
        process.waitForFinished();
        qWarning("%s did not end within %d ms", qPrintable(program), timeoutMs);
        return {};
    }
    Outcome outcome;
    outcome.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    outcome.out = QString::fromLocal8Bit(process.readAllStandardOutput());
    outcome.errorLines = QString::fromLocal8Bit(process.readAllStandardError()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    outcome.milliseconds = clock.elapsed();
    return outcome;
}

QStringList linesWith(const QStringList& lines, const QString& text)
{
    return lines.filter(text);
}

} // namespace

class TestDemo : public QObject
{
    Q_OBJECT

private slots:
    void endsInOrderOnStopSignals_data();
    void endsInOrderOnStopSignals();
    void helpNamesEveryOption_data();
    void helpNamesEveryOption();
    void helpNeedsNoDisplay();
    void formShowsLiveValuesAndNamesUnknownAttributesOnce();
    void formAgainstAnEngineThatIsNotRunningShowsTheLoss();
    void badInputEndsWithOneLine_data();
    void badInputEndsWithOneLine();

private:
    //! Runs the demo on the user form against the engine of \a iorFile; its picture is kept under \a name.
    Outcome renderUserForm(const QString& iorFile, const QString& name);

    QTemporaryDir m_folder;
};

void TestDemo::endsInOrderOnStopSignals_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << int(SIGTERM);
    QTest::newRow("SIGINT") << int(SIGINT);
}

void TestDemo::endsInOrderOnStopSignals()
{
    QFETCH(int, signal);
    QProcess demo;
    demo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    demo.start(demoProgram, QStringList());
    QVERIFY2(demo.waitForStarted(10000), qPrintable(demo.errorString()));
    // Long enough for its engine to serve and its screens to be bound.
    QTest::qWait(3000);
    QCOMPARE(demo.state(), QProcess::Running);

    ::kill(static_cast<pid_t>(demo.processId()), signal);
    QVERIFY(demo.waitForFinished(15000));
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(demo.exitCode(), 0);
}

void TestDemo::helpNamesEveryOption_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("rv-demo") << demoProgram
                             << QStringList{"help", "form", "forms", "engine-ior", "scenario", "render", "seconds",
                                            "systype", "size", "res", "notransparency"};
    QTest::newRow("rv-sim-engine") << SimEngineProcess::program()
                                   << QStringList{"help", "ior-file", "control-ior-file", "parent-pid"};
}

void TestDemo::helpNamesEveryOption()
{
    QFETCH(QString, program);
    QFETCH(QStringList, options);
    const Outcome outcome = run(program, {QStringLiteral("--help")}, 10000);
    QCOMPARE(outcome.exitCode, 0);
    QVERIFY(outcome.out.startsWith(QStringLiteral("Usage: ")));
    // Each option on a line of its own, followed by what it does.
    for (const QString& option : options) {
        const QRegularExpression line(QStringLiteral("^ +(-\\S+, )?--%1( <[^>]+>)? +\\S").arg(option),
                                      QRegularExpression::MultilineOption);
        QVERIFY2(line.match(outcome.out).hasMatch(), qPrintable(option + QStringLiteral(" in:\n") + outcome.out));
    }
}

void TestDemo::helpNeedsNoDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    const Outcome outcome = run(demoProgram, {QStringLiteral("-help")}, 10000, environment);
    QCOMPARE(outcome.exitCode, 0);
    QVERIFY(outcome.out.contains(QStringLiteral("--form <file>")));
}

Outcome TestDemo::renderUserForm(const QString& iorFile, const QString& name)
{
    // Into the run's pictures, to be looked at.
    const QString folder = QStringLiteral(RV_TEST_OUTPUT "/demo_form_") + name;
    QFile::remove(QDir(folder).filePath(QStringLiteral("userform.png")));
    Outcome outcome = run(demoProgram, {QStringLiteral("--form"), userForm, QStringLiteral("--engine-ior"), iorFile,
                                        QStringLiteral("--render"), folder, QStringLiteral("--seconds"), QStringLiteral("2")});
    outcome.picture = QImage(QDir(folder).filePath(QStringLiteral("userform.png")));
    return outcome;
}

void TestDemo::formShowsLiveValuesAndNamesUnknownAttributesOnce()
{
    SimEngineProcess engine;
    QVERIFY2(engine.start(QStringLiteral(RV_TEST_DATA "/userform.json")), qPrintable(engine.errorString()));
    const Outcome outcome = renderUserForm(engine.iorFile(), QStringLiteral("live"));
    QCOMPARE(outcome.exitCode, 0);
    QVERIFY(!outcome.picture.isNull());

    // Two widgets share one unknown name: one message names each unknown name once.
    const QStringList unknown = linesWith(outcome.errorLines, QStringLiteral("no attribute"));
    QCOMPARE(unknown.size(), 1);
    QVERIFY2(unknown.first().startsWith(QStringLiteral("rv-demo: status: the engine has no attributes ")),
             qPrintable(unknown.first()));
    QCOMPARE(unknown.first().count(QStringLiteral("\"Missing\"")), 1);
    QCOMPARE(unknown.first().count(QStringLiteral("\"Absent\"")), 1);
    QVERIFY(!unknown.first().contains(QStringLiteral("Stage")));
    QVERIFY2(linesWith(outcome.errorLines, QStringLiteral("Engine link lost")).isEmpty(),
             qPrintable(outcome.errorLines.join(QLatin1Char('\n'))));
}

void TestDemo::formAgainstAnEngineThatIsNotRunningShowsTheLoss()
{
    // The reference of an engine no longer running, as a killed one leaves it behind.
    const QString staleIor = m_folder.filePath(QStringLiteral("stale.ior"));
    {
        SimEngineProcess engine;
        QVERIFY2(engine.start(QStringLiteral(RV_TEST_DATA "/userform.json")), qPrintable(engine.errorString()));
        QVERIFY(QFile::copy(engine.iorFile(), staleIor));
        QVERIFY(engine.terminate());
    }
    const Outcome outcome = renderUserForm(staleIor, QStringLiteral("no_engine"));
    QCOMPARE(outcome.exitCode, 0);
    QVERIFY(!outcome.picture.isNull());
    // Rendered on time: the interface thread never waited for the engine.
    QVERIFY2(outcome.milliseconds < 8000, qPrintable(QString::number(outcome.milliseconds)));
    QCOMPARE(linesWith(outcome.errorLines, QStringLiteral("rv-demo: status: Engine link lost")).size(), 1);
}

void TestDemo::badInputEndsWithOneLine_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("line");
    const QString data = QStringLiteral(RV_TEST_DATA);
    QTest::newRow("engine without scenario") << SimEngineProcess::program() << QStringList() << 2
                                             << QStringLiteral("rv-sim-engine: give one scenario file (see --help)");
    QTest::newRow("form not XML") << demoProgram << QStringList{"--form", data + "/notxml.ui"} << 1
                                  << QStringLiteral("rv-demo: form %1/notxml.ui: ").arg(data);
    QTest::newRow("class the library lacks")
        << demoProgram << QStringList{"--form", data + "/unknownclass.ui"} << 1
        << QStringLiteral("rv-demo: form %1/unknownclass.ui names unknown classes: SpectrumDial").arg(data);
    QTest::newRow("missing form") << demoProgram << QStringList{"--form", data + "/nothere.ui"} << 1
                                  << QStringLiteral("rv-demo: cannot open form %1/nothere.ui: No such file or directory")
                                         .arg(data);
    QTest::newRow("missing engine reference")
        << demoProgram << QStringList{"--form", userForm, "--engine-ior", data + "/nothere.ior"} << 2
        << QStringLiteral("rv-demo: cannot read the engine reference file %1/nothere.ior").arg(data);
    QTest::newRow("misspelt option") << demoProgram << QStringList{"--from", userForm} << 2
                                     << QStringLiteral("rv-demo: Unknown option 'from'. (see --help)");
    QTest::newRow("form and forms") << demoProgram << QStringList{"--form", userForm, "--forms", data} << 2
                                    << QStringLiteral("rv-demo: give --form or --forms, not both");
}

void TestDemo::badInputEndsWithOneLine()
{
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, line);
    const Outcome outcome = run(program, arguments, 10000);
    QCOMPARE(outcome.exitCode, exitCode);
    QCOMPARE(outcome.errorLines.size(), 1);
    QVERIFY2(outcome.errorLines.first().startsWith(line), qPrintable(outcome.errorLines.first()));
}

RV_TEST_MAIN_BOUNDED_EXIT(TestDemo, QCoreApplication)
#include "tst_demo.moc"
