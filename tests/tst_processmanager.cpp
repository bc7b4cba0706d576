#include "ProcessManager.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

// Every command line goes to a recorder program that writes down its
// arguments; a sentinel file shows whether anything else ever ran.
class TestProcessManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void hostileWordsReachTheProgramVerbatim_data();
    void hostileWordsReachTheProgramVerbatim();
    void commandsThatCannotStartStillFinish_data();
    void commandsThatCannotStartStillFinish();
    void exitStatusIsReported();
    void commandsRunOneAfterAnother();

private:
    QStringList recordedArguments() const;
    QString sentinel() const { return m_dir->filePath(QStringLiteral("sentinel")); }

    QScopedPointer<QTemporaryDir> m_dir;
    QString m_record;
};

void TestProcessManager::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    m_record = m_dir->filePath(QStringLiteral("argv.txt"));
    qputenv("RV_ARGV_RECORD", m_record.toLocal8Bit());
}

QStringList TestProcessManager::recordedArguments() const
{
    QFile file(m_record);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromLocal8Bit(file.readAll()).split(QLatin1Char('\n'));
    lines.removeAll(QString());
    return lines;
}

void TestProcessManager::hostileWordsReachTheProgramVerbatim_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QStringList>("expected");

    const QString s = QStringLiteral("SENTINEL");
    QTest::newRow("semicolon") << "a;reboot" << QStringList{"a;reboot"};
    QTest::newRow("semicolon and command") << "a;touch SENTINEL" << QStringList{"a;touch", s};
    QTest::newRow("command substitution") << "\"$(touch SENTINEL)\"" << QStringList{"$(touch SENTINEL)"};
    QTest::newRow("bare substitution") << "$(touch SENTINEL)" << QStringList{"$(touch", "SENTINEL)"};
    QTest::newRow("backticks") << "`touch SENTINEL`" << QStringList{"`touch", "SENTINEL`"};
    QTest::newRow("pipe and redirect") << "x|touch SENTINEL>y" << QStringList{"x|touch", "SENTINEL>y"};
    QTest::newRow("double quotes keep blanks") << "\"my file.txt\"" << QStringList{"my file.txt"};
    QTest::newRow("single quotes are plain characters") << "'a b'" << QStringList{"'a", "b'"};
    QTest::newRow("newline separates words") << "a\ntouch SENTINEL" << QStringList{"a", "touch", s};
    QTest::newRow("leading dash stays an argument") << "-rf /" << QStringList{"-rf", "/"};
    QTest::newRow("ampersand") << "a && touch SENTINEL &" << QStringList{"a", "&&", "touch", s, "&"};
}

void TestProcessManager::hostileWordsReachTheProgramVerbatim()
{
    QFETCH(QString, arguments);
    QFETCH(QStringList, expected);
    arguments.replace(QStringLiteral("SENTINEL"), sentinel());
    expected.replaceInStrings(QStringLiteral("SENTINEL"), sentinel());

    ProcessManager manager;
    QSignalSpy started(&manager, &ProcessManager::started);
    QSignalSpy finished(&manager, &ProcessManager::finished);
    manager.startProcess(QStringLiteral(RV_ARGV_RECORDER " ") + arguments);

    QVERIFY(finished.wait(10000));
    QCOMPARE(started.count(), 1);
    QCOMPARE(finished.first().first().toInt(), 0);
    QCOMPARE(recordedArguments(), expected + QStringList{"--end--"});
    QVERIFY(!QFile::exists(sentinel()));
}

void TestProcessManager::commandsThatCannotStartStillFinish_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << QStringLiteral("   \t ");
    QTest::newRow("only quotes") << QStringLiteral("\"\"");
    QTest::newRow("leading dash program") << QStringLiteral("-rf /");
    QTest::newRow("missing program") << QStringLiteral("/nonexistent/program SENTINEL");
    QTest::newRow("shell syntax as program") << QStringLiteral("touch;SENTINEL");
}

void TestProcessManager::commandsThatCannotStartStillFinish()
{
    QFETCH(QString, command);
    command.replace(QStringLiteral("SENTINEL"), sentinel());

    ProcessManager manager;
    QSignalSpy started(&manager, &ProcessManager::started);
    QSignalSpy finished(&manager, &ProcessManager::finished);
    manager.startProcess(command);

    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 10000);
    QVERIFY(finished.first().first().toInt() != 0);
    QCOMPARE(started.count(), 0);
    QVERIFY(!manager.isRunning());
    QVERIFY(!QFile::exists(sentinel()));
}

void TestProcessManager::exitStatusIsReported()
{
    ProcessManager manager;
    QSignalSpy finished(&manager, &ProcessManager::finished);
    // The recorder exits with 4 when it is given no argument.
    manager.startProcess(QStringLiteral(RV_ARGV_RECORDER));
    QVERIFY(finished.wait(10000));
    QCOMPARE(finished.first().first().toInt(), 4);
}

void TestProcessManager::commandsRunOneAfterAnother()
{
    ProcessManager manager;
    QSignalSpy finished(&manager, &ProcessManager::finished);
    manager.startProcess(QStringLiteral(RV_ARGV_RECORDER " first"));
    manager.startProcess(QStringLiteral("/nonexistent/program"));
    manager.startProcess(QStringLiteral(RV_ARGV_RECORDER " third"));
    QVERIFY(manager.isRunning());

    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 3, 10000);
    QCOMPARE(finished.at(0).first().toInt(), 0);
    QVERIFY(finished.at(1).first().toInt() != 0);
    QCOMPARE(finished.at(2).first().toInt(), 0);
    QCOMPARE(recordedArguments(), (QStringList{"first", "--end--", "third", "--end--"}));
}

QTEST_MAIN(TestProcessManager)
#include "tst_processmanager.moc"
