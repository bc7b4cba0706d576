// The browsers' list, file operations run through the process manager on
// names that a shell would have taken apart, and the storage roots.
#include "ListView.h"
#include "ProcessManager.h"
#include "StorageRoots.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

void makeFile(const QString& path, const QByteArray& content = "print('hello')\n")
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    file.write(content);
}

/*!
  Every entry under \a root by its relative path: "d" for a folder,
  "l <target>" for a link (never followed), "f <size> <sha1>" for a file.
*/
QMap<QString, QString> listing(const QString& root)
{
    QMap<QString, QString> entries;
    QDirIterator it(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo info(it.next());
        QFile file(info.filePath());
        const QString description = info.isSymLink() ? "l " + info.symLinkTarget()
                                    : info.isDir()   ? QStringLiteral("d")
                                    : file.open(QIODevice::ReadOnly)
                                        ? QString("f %1 %2").arg(info.size()).arg(QString::fromLatin1(
                                              QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha1).toHex()))
                                        : QStringLiteral("unreadable");
        entries.insert(QDir(root).relativeFilePath(info.filePath()), description);
    }
    return entries;
}

bool isAtOrUnder(const QString& path, const QString& entry)
{
    return path == entry || path.startsWith(entry + QLatin1Char('/'));
}

} // namespace

class TestFileBrowser : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void leftKeyGoesUpAndDownAgain();
    void storageRoots();
    void copyAndRemoveTakeEachNameWhole_data();
    void copyAndRemoveTakeEachNameWhole();

private:
    QString path(const QString& relative) const { return m_dir->filePath(relative); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestFileBrowser::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
}

void TestFileBrowser::leftKeyGoesUpAndDownAgain()
{
    ListView view;
    QStringList heard;
    connect(&view, &ListView::moveUpDirectory, this, [&] { heard << QStringLiteral("up"); });
    connect(&view, &ListView::moveDownDirectory, this, [&] { heard << QStringLiteral("down"); });
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(heard, (QStringList{"up", "down", "down"}));
}

void TestFileBrowser::storageRoots()
{
    qputenv("RV_STORAGE_ROOT", "/tmp/rv-demo/");
    QCOMPARE(StorageRoots::userStorage() + " " + StorageRoots::removableMedia(),
             QStringLiteral("/tmp/rv-demo/USER /tmp/rv-demo/mnt"));
    qputenv("RV_STORAGE_ROOT", "");
    QCOMPARE(StorageRoots::userStorage() + " " + StorageRoots::removableMedia(), QStringLiteral("/USER /mnt"));
    qunsetenv("RV_STORAGE_ROOT");
}

void TestFileBrowser::copyAndRemoveTakeEachNameWhole_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("decoys");
    QTest::newRow("blanks") << "two words.txt" << QStringList{"two", "words.txt"};
    QTest::newRow("quotes") << "say \"hi\" it's.txt" << QStringList{"say", "hi", "it"};
    QTest::newRow("semicolon") << "a;touch pwned.txt" << QStringList{"a", "pwned.txt"};
    QTest::newRow("substitution") << "$(touch pwned).txt" << QStringList{"pwned"};
    QTest::newRow("backticks") << "`touch pwned`.txt" << QStringList{"pwned"};
    QTest::newRow("star") << "*.txt" << QStringList{"starred.txt", "other.txt"};
    QTest::newRow("newline") << "first\nsecond.txt" << QStringList{"first", "second.txt"};
    QTest::newRow("leading dash") << "-rf" << QStringList{"rf"};
    QTest::newRow("folder of all of it") << "-r dir; $(x) `y` */" << QStringList{"-r", "dir", "x", "y"};
}

// Run in the tree's folder with relative names, so that a name beginning
// with a dash stands first in its argument, where only "--" keeps it a name.
void TestFileBrowser::copyAndRemoveTakeEachNameWhole()
{
    QFETCH(QString, name);
    QFETCH(QStringList, decoys);
    const bool folder = name.endsWith(QLatin1Char('/'));
    if (folder)
        name.chop(1);
    const QString work = path("work");
    QDir().mkpath(work + "/dest dir");
    for (const QString& decoy : decoys)
        makeFile(work + "/" + decoy, decoy.toUtf8());
    const QString timed = folder ? name + "/inner file.py" : name;
    makeFile(work + "/" + timed, "the one\n");
    QFile stamped(work + "/" + timed);
    QVERIFY(stamped.open(QIODevice::Append));
    QVERIFY(stamped.setFileTime(QDateTime(QDate(2020, 1, 2), QTime(3, 4, 5)), QFileDevice::FileModificationTime));
    stamped.close();
    // A link to a folder of files: removing the link must leave them.
    makeFile(work + "/kept/precious.csv", "1,2,3\n");
    QVERIFY(QFile::link(work + "/kept", work + "/link " + name));

    const QString previous = QDir::currentPath();
    QDir::setCurrent(work);
    ProcessManager manager;
    QSignalSpy finished(&manager, &ProcessManager::finished);
    const auto run = [&](const QString& program, const QStringList& arguments) {
        manager.startProcess(program, arguments, program + ' ' + arguments.join(' '));
        return finished.wait(10000) ? finished.takeFirst().first().toInt() : -1;
    };
    const QMap<QString, QString> before = listing(work);
    QMap<QString, QString> expected = before;
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        if (isAtOrUnder(it.key(), name))
            expected.insert("dest dir/" + it.key(), it.value());
    const QStringList copy = QStringList{"--preserve=timestamps"} + (folder ? QStringList{"-rf"} : QStringList{});
    QCOMPARE(run("cp", copy + QStringList{"--", name, "dest dir"}), 0);
    QCOMPARE(listing(work), expected);
    QCOMPARE(QFileInfo(work + "/dest dir/" + timed).lastModified(), QFileInfo(work + "/" + timed).lastModified());

    for (const QString& gone : {name, "link " + name}) {
        QCOMPARE(run("rm", {"-rf", "--", gone}), 0);
        for (auto it = before.cbegin(); it != before.cend(); ++it)
            if (isAtOrUnder(it.key(), gone))
                expected.remove(it.key());
    }
    QDir::setCurrent(previous);
    QCOMPARE(listing(work), expected);
}

QTEST_MAIN(TestFileBrowser)
#include "tst_filebrowser.moc"
