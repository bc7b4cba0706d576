// The two-pane file chooser over a temporary tree, the new-folder prompt,
// the storage roots, and file operations run through the process manager
// on names that a shell would have taken apart.
#include "ComboBoxImpl.h"
#include "FileBrowserImpl.h"
#include "GlobalImpl.h"
#include "ListView.h"
#include "NewFolderPrompt.h"
#include "ProcessManager.h"
#include "PushButtonImpl.h"
#include "ScrollButton.h"
#include "StorageRoots.h"
#include "SystemModule.h"
#include "TestSupport.h"
#include "TextEntryImpl.h"
#include "TextWidget.h"
#include "TreeView.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFileSystemModel>
#include <QPushButton>
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

void press(Kelvane::gui::PushButtonImpl* button)
{
    QTest::mouseClick(button->findChild<QPushButton*>(QStringLiteral("PushButton")), Qt::LeftButton);
}

//! A browser on a shown screen, with the parts a test touches.
struct Browser
{
    explicit Browser(QWidget* screen, const QString& path)
        : browser(new FileBrowserImpl(path, screen))
    {
        browser->resize(480, 480);
        browser->show();
    }
    ~Browser() { delete browser; }

    QFileSystemModel* model() const { return browser->findChild<QFileSystemModel*>(); }
    TreeView* tree() const { return browser->findChild<TreeView*>(); }
    ListView* list() const { return browser->findChild<ListView*>(); }
    QString lookIn() const { return browser->findChild<TextWidget*>()->getText(); }
    ComboBoxImpl* types() const { return browser->findChild<ComboBoxImpl*>(); }
    NewFolderPrompt* prompt() const { return browser->parentWidget()->findChild<NewFolderPrompt*>(); }
    Kelvane::gui::PushButtonImpl* button(const QString& text) const
    {
        for (auto* button : browser->findChildren<Kelvane::gui::PushButtonImpl*>())
            if (button->buttonText() == text)
                return button;
        return nullptr;
    }
    void pressArrow(Qt::ArrowType direction) const
    {
        for (auto* arrow : browser->findChildren<ScrollButton*>())
            if (arrow->direction() == direction)
                QTest::mouseClick(arrow, Qt::LeftButton);
    }
    //! The entry of \a name in the directory \a dir, once the model has read it.
    QModelIndex entry(const QString& dir, const QString& name) const
    {
        const QModelIndex parent = model()->index(dir);
        for (int row = 0; row < model()->rowCount(parent); ++row)
            if (model()->index(row, 0, parent).data().toString() == name)
                return model()->index(row, 0, parent);
        return QModelIndex();
    }
    //! A touch, or a double touch (the view sees the first press before the second).
    void click(QAbstractItemView* view, const QModelIndex& index, bool twice = false) const
    {
        const QPoint at = view->visualRect(index).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
        if (twice) {
            QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
            QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, at);
        }
    }

    FileBrowserImpl* browser;
};

} // namespace

class TestFileBrowser : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void startsOnAKnownPathOrHome_data();
    void startsOnAKnownPathOrHome();
    void treeAndListMoveTheViewAndTheName();
    void arrowsWalkTheTreeLines();
    void typeListFiltersTheModel();
    void newFolderTakesTheFirstFreeName_data();
    void newFolderTakesTheFirstFreeName();
    void leftKeyGoesUpAndDownAgain();
    void changeOfLanguageRestoresTheFixedTexts();
    void looks();
    void storageRoots();
    void copyAndRemoveTakeEachNameWhole_data();
    void copyAndRemoveTakeEachNameWhole();

private:
    QString path(const QString& relative) const { return m_dir->filePath(relative); }

    QWidget m_screen;
    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestFileBrowser::initTestCase()
{
    m_screen.resize(800, 600);
    m_screen.setObjectName(QStringLiteral("screen"));
    m_screen.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
    GlobalImpl::getInstance()->systemModule()->addSystemScreen(QStringLiteral("MainWindow"), &m_screen);
    m_screen.show();
}

// A small user storage: scripts, a result folder and loose files.
void TestFileBrowser::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    for (const char* file : {"USER/scripts/sweep.py", "USER/scripts/notes.txt", "USER/scripts/lib/helpers.py",
                             "USER/results/run1.csv", "USER/calibrate.py", "USER/readme.txt"})
        makeFile(path(file));
}

void TestFileBrowser::cleanup()
{
    QVERIFY(!m_screen.findChild<FileBrowserImpl*>());
    QVERIFY(!m_screen.findChild<NewFolderPrompt*>());
}

void TestFileBrowser::startsOnAKnownPathOrHome_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("shown"); // empty: the home folder
    QTest::newRow("known folder") << "USER/scripts" << "USER/scripts";
    QTest::newRow("null path") << QString() << "";
    QTest::newRow("empty path") << QStringLiteral("") << "";
    QTest::newRow("unknown folder") << "USER/missing" << "";
}

void TestFileBrowser::startsOnAKnownPathOrHome()
{
    QFETCH(QString, given);
    QFETCH(QString, shown);
    Browser b(&m_screen, given.isEmpty() ? given : path(given));
    shown = shown.isEmpty() ? QDir::homePath() : path(shown);
    QCOMPARE(b.lookIn(), shown);
    QCOMPARE(b.model()->filePath(b.list()->rootIndex()), shown);
}

void TestFileBrowser::treeAndListMoveTheViewAndTheName()
{
    Browser b(&m_screen, path("USER"));
    QTRY_VERIFY(b.entry(path("USER"), "scripts").isValid());
    b.browser->setFileName(QStringLiteral("typed.py"));
    b.click(b.tree(), b.entry(path("USER"), "scripts"));
    QCOMPARE(b.lookIn(), path("USER/scripts"));
    QCOMPARE(b.model()->filePath(b.list()->rootIndex()), path("USER/scripts"));
    QCOMPARE(b.browser->fileName(), QString());

    QTRY_VERIFY(b.entry(path("USER/scripts"), "lib").isValid());
    b.click(b.list(), b.entry(path("USER/scripts"), "sweep.py"));
    QCOMPARE(b.browser->fileName(), QStringLiteral("sweep.py"));
    b.click(b.list(), b.entry(path("USER/scripts"), "lib"), true);
    QCOMPARE(b.lookIn(), path("USER/scripts/lib"));
    QCOMPARE(b.browser->fileName(), QString());

    // Open reports the line as it stands, unchecked: here the folder and "/".
    QSignalSpy selected(b.browser, &FileBrowserImpl::fileSelected);
    press(b.button(QStringLiteral("Open")));
    QCOMPARE(selected.size(), 1);
    QCOMPARE(selected.first().first().toString(), path("USER/scripts/lib/"));
    QVERIFY(!b.browser->isVisible());
}

// The arrows step to the directory on the tree's line above or below,
// passing over files, and stay where no directory follows.
void TestFileBrowser::arrowsWalkTheTreeLines()
{
    Browser b(&m_screen, path("USER"));
    b.browser->setFilters(QStringLiteral("All Files (*)"));
    // The model sorts a listing after it has arrived, folders first.
    const auto line = [&b](int row) { return b.model()->index(row, 0, b.tree()->rootIndex()).data().toString(); };
    QTRY_COMPARE((QStringList{line(0), line(1), line(2), line(3)}),
                 (QStringList{"results", "scripts", "calibrate.py", "readme.txt"}));
    b.click(b.tree(), b.entry(path("USER"), "results"));

    const QList<QPair<Qt::ArrowType, QString>> steps{{Qt::RightArrow, "scripts"}, {Qt::RightArrow, "scripts"},
                                                     {Qt::LeftArrow, "results"}, {Qt::LeftArrow, "results"}};
    for (const auto& step : steps) {
        b.pressArrow(step.first);
        QCOMPARE(b.lookIn(), path("USER/" + step.second));
    }
}

void TestFileBrowser::typeListFiltersTheModel()
{
    Browser b(&m_screen, path("USER"));
    QCOMPARE(b.browser->filters(), QStringLiteral("Python Scripts (*.py)|All Files (*)"));
    QTRY_VERIFY(b.entry(path("USER"), "calibrate.py").isValid());
    QVERIFY(!b.entry(path("USER"), "readme.txt").isValid());

    b.browser->setProperty("FilterStrings", QStringLiteral("Text (*.txt)|No pattern|Two (*.py *.txt)|"));
    QTRY_VERIFY(b.entry(path("USER"), "readme.txt").isValid());
    // Without brackets the filter stays; two patterns stay one string.
    const QList<QPair<int, QString>> choices{{1, "*.txt"}, {2, "*.py *.txt"}, {3, "*.py *.txt"}};
    for (const auto& choice : choices) {
        b.types()->setEnum(choice.first);
        QCOMPARE(b.model()->nameFilters(), QStringList{choice.second});
    }
}

void TestFileBrowser::newFolderTakesTheFirstFreeName_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("proposed");
    QTest::newRow("none yet") << QStringList{} << "New Folder";
    QTest::newRow("plain and 2 taken") << QStringList{"New Folder", "New Folder_2"} << "New Folder_3";
    QTest::newRow("gap is filled") << QStringList{"New Folder", "New Folder_3"} << "New Folder_2";
    QTest::newRow("suffix alone does not count") << QStringList{"New Folder_2"} << "New Folder";
    QTest::newRow("a file takes the name too") << QStringList{"New Folder.file"} << "New Folder_2";
}

void TestFileBrowser::newFolderTakesTheFirstFreeName()
{
    QFETCH(QStringList, present);
    QFETCH(QString, proposed);
    for (const QString& name : present) {
        if (name.endsWith(QLatin1String(".file")))
            makeFile(path("USER/results/" + name.chopped(5)));
        else
            QDir().mkpath(path("USER/results/" + name));
    }
    Browser b(&m_screen, path("USER/results"));
    b.browser->setFilters(QStringLiteral("All Files (*)"));
    press(b.button(QStringLiteral("New Folder")));
    NewFolderPrompt* prompt = b.prompt();
    QVERIFY(prompt->isVisible());
    QCOMPARE(prompt->folderName(), proposed);
    QVERIFY((prompt->geometry().center() - b.browser->geometry().center()).manhattanLength() <= 2);

    press(prompt->findChild<Kelvane::gui::PushButtonImpl*>(QStringLiteral("Ok")));
    QVERIFY(!prompt->isVisible());
    QVERIFY(QFileInfo(path("USER/results/" + proposed)).isDir());
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

void TestFileBrowser::changeOfLanguageRestoresTheFixedTexts()
{
    Browser b(&m_screen, path("USER"));
    b.browser->setButtonText(QStringLiteral("Save"));
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(b.browser, &change);
    QVERIFY(b.button(QStringLiteral("Open")));
    QVERIFY(!b.button(QStringLiteral("Save")));
    QCOMPARE(b.types()->getLabel(), QStringLiteral("File of type"));
    QCOMPARE(b.browser->findChild<TextEntryImpl*>()->getLabel(), QStringLiteral("File"));
}

void TestFileBrowser::looks()
{
    Browser b(&m_screen, path("USER"));
    b.browser->setFilters(QStringLiteral("All Files (*)|Python Scripts (*.py)"));
    b.browser->move(20, 20);
    QTRY_VERIFY(b.entry(path("USER"), "scripts").isValid());
    b.click(b.tree(), b.entry(path("USER"), "scripts"));
    QTRY_VERIFY(b.entry(path("USER/scripts"), "sweep.py").isValid());
    b.click(b.list(), b.entry(path("USER/scripts"), "sweep.py"));
    TestSupport::savePng(b.browser, QStringLiteral("filebrowser-twopane"));
    press(b.button(QStringLiteral("New Folder")));
    TestSupport::savePng(b.prompt(), QStringLiteral("filebrowser-newfolder"));
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
