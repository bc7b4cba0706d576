// The demo instrument as a host runs it: it ends in order when told to, so
// that its engine ends with it and no shared memory is left behind.
#include <QProcess>
#include <QtTest>

#include <csignal>

class TestDemo : public QObject
{
    Q_OBJECT

private slots:
    void endsInOrderOnStopSignals_data();
    void endsInOrderOnStopSignals();
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
    demo.start(QStringLiteral(RV_DEMO_PROGRAM), QStringList());
    QVERIFY2(demo.waitForStarted(10000), qPrintable(demo.errorString()));
    // Long enough for its engine to serve and its screens to be bound.
    QTest::qWait(3000);
    QCOMPARE(demo.state(), QProcess::Running);

    ::kill(static_cast<pid_t>(demo.processId()), signal);
    QVERIFY(demo.waitForFinished(15000));
    QCOMPARE(demo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(demo.exitCode(), 0);
}

QTEST_GUILESS_MAIN(TestDemo)
#include "tst_demo.moc"
