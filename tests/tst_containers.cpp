#include "ContainerDialog.h"
#include "PushButtonImpl.h"
#include "TestSupport.h"

#include "CSS.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

namespace {

//! A main window of the instrument's size in the theme's background colour.
void makeScreen(QWidget* screen)
{
    screen->setObjectName(QStringLiteral("MainWindow"));
    screen->resize(800, 480);
    QPalette palette = screen->palette();
    palette.setColor(QPalette::Window, QColor(CSS::background()));
    screen->setPalette(palette);
    screen->setAutoFillBackground(true);
}

//! A finger pressed on \a grip at \a from and moved by \a delta before it lifts; the finger's
//! place on the screen is fixed while the grip moves under it.
void drag(QWidget* grip, const QPoint& from, const QPoint& delta)
{
    const QPoint start = grip->mapToGlobal(from);
    const auto send = [grip](QEvent::Type type, const QPoint& global, Qt::MouseButtons held) {
        QMouseEvent event(type, grip->mapFromGlobal(global), global, Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(grip, &event);
    };
    send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    send(QEvent::MouseMove, start + delta / 2, Qt::LeftButton);
    send(QEvent::MouseMove, start + delta, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, start + delta, Qt::NoButton);
}

void press(QWidget* container, const char* objectName)
{
    auto* target = container->findChild<QWidget*>(QLatin1String(objectName));
    QVERIFY2(target, objectName);
    if (auto* command = qobject_cast<Kelvane::gui::PushButtonImpl*>(target))
        target = command->findChild<QPushButton*>(QStringLiteral("PushButton"));
    QTest::mouseClick(target, Qt::LeftButton);
}

ContainerDialog* makeQuestion(QWidget* screen, const QString& buttons)
{
    auto* dialog = new ContainerDialog(screen);
    auto* text = new QLabel(QStringLiteral("Discard the changes to the measurement setup?"));
    text->setObjectName(QStringLiteral("dialog_text"));
    text->setWordWrap(true);
    long count = 0;
    QHBoxLayout* row = ContainerDialog::createButtonLayout(dialog, buttons, count);
    row->insertStretch(0);
    auto* grid = new QGridLayout;
    grid->addWidget(text, 0, 0, 1, int(count));
    grid->addLayout(row, 1, 0);
    dialog->setLayout(grid);
    dialog->setWindowTitle(QStringLiteral("Question"), 0);
    return dialog;
}

//! An 800 x 480 screen, shown, with a 300 x 200 panel at (100, 100).
struct PanelOnScreen
{
    PanelOnScreen()
    {
        makeScreen(&screen);
        panel->setGeometry(100, 100, 300, 200);
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
    }
    QFrame* titleBar() const { return panel->findChild<QFrame*>(QStringLiteral("TitleBar")); }

    QWidget screen;
    ContainerImpl* panel = new ContainerImpl(&screen);
};

} // namespace

class TestContainers : public QObject
{
    Q_OBJECT

private slots:
    void buttonListIsRead_data();
    void buttonListIsRead();
    void execEndsWithTheAnswer_data();
    void execEndsWithTheAnswer();
    void execBlocksTheRestOfTheScreen();
    void execSurvivesItsScreenGoingAway();
    void dragKeepsThePanelOnItsScreen_data();
    void dragKeepsThePanelOnItsScreen();
    void locationMemory();
    void sizeWords_data();
    void sizeWords();
    void thumbShowsOnlyTheTitleAndGivesBackTheMinimum();
    void drawerSlidesOverTheContent();
};

void TestContainers::buttonListIsRead_data()
{
    QTest::addColumn<QString>("buttons");
    QTest::addColumn<QStringList>("labels");
    QTest::addColumn<QList<int>>("results");
    QTest::addColumn<int>("skipped");

    QTest::newRow("cancel or ok") << "Cancel,0|OK,1" << QStringList{"Cancel", "OK"} << QList<int>{0, 1} << 0;
    QTest::newRow("no or yes") << "No,0|Yes,1" << QStringList{"No", "Yes"} << QList<int>{0, 1} << 0;
    QTest::newRow("only ok") << "OK,0" << QStringList{"OK"} << QList<int>{0} << 0;
    QTest::newRow("blanks and negatives") << " Retry , 2|Abort,-1" << QStringList{"Retry", "Abort"} << QList<int>{2, -1} << 0;
    QTest::newRow("comma in the label") << "Yes, please,1" << QStringList{"Yes, please"} << QList<int>{1} << 0;
    QTest::newRow("empty list") << "" << QStringList{} << QList<int>{} << 0;
    QTest::newRow("no comma") << "OK" << QStringList{} << QList<int>{} << 1;
    QTest::newRow("result not a number") << "Yes,one|No,0" << QStringList{"No"} << QList<int>{0} << 1;
    QTest::newRow("no label") << ",1|OK,1" << QStringList{"OK"} << QList<int>{1} << 1;
    QTest::newRow("empty entries") << "|No,0||Yes,1|" << QStringList{"No", "Yes"} << QList<int>{0, 1} << 3;
}

void TestContainers::buttonListIsRead()
{
    QFETCH(QString, buttons);
    QFETCH(QStringList, labels);
    QFETCH(QList<int>, results);
    QFETCH(int, skipped);

    for (int i = 0; i < skipped; ++i)
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("skipping malformed button entry")));
    QWidget screen;
    ContainerDialog dialog(&screen);
    long count = -1;
    QHBoxLayout* row = ContainerDialog::createButtonLayout(&dialog, buttons, count);
    dialog.setLayout(row);

    QCOMPARE(count, long(labels.size()));
    QCOMPARE(row->count(), labels.size());
    for (int i = 0; i < labels.size(); ++i) {
        auto* button = qobject_cast<Kelvane::gui::PushButtonImpl*>(row->itemAt(i)->widget());
        QVERIFY(button);
        QCOMPARE(button->buttonText(), labels.at(i));
        dialog.done(-99);
        press(&dialog, labels.at(i).toUtf8().constData());
        QCOMPARE(dialog.result(), results.at(i));
    }
}

void TestContainers::execEndsWithTheAnswer_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<int>("expected");
    QTest::addColumn<int>("windowClosed");

    QTest::newRow("yes") << "Yes" << 1 << 0;
    QTest::newRow("no") << "No" << 0 << 0;
    QTest::newRow("cancelDialog") << "cancel" << 0 << 0;
    QTest::newRow("close control") << "ContainerClose" << 0 << 1;
    QTest::newRow("close()") << "close" << 0 << 1;
}

void TestContainers::execEndsWithTheAnswer()
{
    QFETCH(QString, action);
    QFETCH(int, expected);
    QFETCH(int, windowClosed);

    QWidget screen;
    makeScreen(&screen);
    screen.show();
    ContainerDialog* dialog = makeQuestion(&screen, QStringLiteral("No,0|Yes,1"));
    QSignalSpy closed(dialog, &ContainerBase::WindowClosed);
    QPoint shownAt;
    bool shown = false;
    QTimer::singleShot(20, dialog, [&] {
        shown = dialog->isVisible();
        shownAt = dialog->geometry().center();
        TestSupport::savePng(&screen, QStringLiteral("containerdialog_no_yes"));
        if (action == QLatin1String("cancel"))
            dialog->cancelDialog();
        else if (action == QLatin1String("close"))
            dialog->close();
        else
            press(dialog, action.toUtf8().constData());
    });

    QCOMPARE(dialog->exec(), expected);
    QVERIFY(shown);
    QVERIFY((shownAt - screen.rect().center()).manhattanLength() <= 2);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(closed.count(), windowClosed);
}

void TestContainers::execBlocksTheRestOfTheScreen()
{
    QWidget screen;
    makeScreen(&screen);
    auto* behind = new QPushButton(QStringLiteral("Behind"), &screen);
    behind->setGeometry(10, 10, 100, 40);
    screen.show();
    QSignalSpy behindClicks(behind, &QPushButton::clicked);
    ContainerDialog* dialog = makeQuestion(&screen, QStringLiteral("OK,1"));
    QTimer::singleShot(20, dialog, [&] {
        QTest::mouseClick(behind, Qt::LeftButton);
        press(dialog, "OK");
    });

    QCOMPARE(dialog->exec(), 1);
    QCOMPARE(behindClicks.count(), 0);
    QTest::mouseClick(behind, Qt::LeftButton);
    QCOMPARE(behindClicks.count(), 1);
}

void TestContainers::execSurvivesItsScreenGoingAway()
{
    auto* screen = new QWidget;
    makeScreen(screen);
    screen->show();
    QPointer<ContainerDialog> dialog = makeQuestion(screen, QStringLiteral("No,0|Yes,1"));
    QTimer::singleShot(20, [screen] { delete screen; });

    QCOMPARE(dialog->exec(), 0);
    QVERIFY(dialog.isNull());
}

void TestContainers::dragKeepsThePanelOnItsScreen_data()
{
    QTest::addColumn<QPoint>("delta");
    QTest::addColumn<QPoint>("expected");

    QTest::newRow("inside") << QPoint(50, 30) << QPoint(150, 130);
    QTest::newRow("past the right and bottom") << QPoint(2000, 900) << QPoint(500, 280);
    QTest::newRow("past the left and top") << QPoint(-400, -300) << QPoint(0, 0);
    QTest::newRow("along the bottom") << QPoint(-20, 500) << QPoint(80, 280);
}

void TestContainers::dragKeepsThePanelOnItsScreen()
{
    QFETCH(QPoint, delta);
    QFETCH(QPoint, expected);

    PanelOnScreen on;
    drag(on.titleBar(), QPoint(40, 10), delta);
    QCOMPARE(on.panel->pos(), expected);

    on.panel->move(-50, 9000);
    QCOMPARE(on.panel->pos(), QPoint(0, 280));
}

void TestContainers::locationMemory()
{
    PanelOnScreen on;
    on.panel->move(40, 60);
    on.panel->restoreLocation();
    QCOMPARE(on.panel->pos(), QPoint(40, 60));

    on.panel->saveLocation();
    on.panel->move(300, 200);
    on.panel->restoreLocation();
    QCOMPARE(on.panel->pos(), QPoint(40, 60));

    on.panel->move(450, 250);
    on.panel->saveLocation();
    on.screen.resize(600, 400);
    on.panel->restoreLocation();
    QCOMPARE(on.panel->pos(), QPoint(300, 200));
}

void TestContainers::sizeWords_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QRect>("expected");

    // "control" is a press on the title bar's maximise and restore control.
    // The screen shrinks to 640 x 400 after the words.
    const QRect normal(100, 100, 300, 200);
    const QRect screen(0, 0, 640, 400);
    QTest::newRow("max") << QStringList{"Max"} << "Max" << screen;
    QTest::newRow("max then min") << QStringList{"Max", "Min"} << "Min" << normal;
    QTest::newRow("max twice then min") << QStringList{"Max", "Max", "Min"} << "Min" << normal;
    QTest::newRow("control maximises") << QStringList{"control"} << "Max" << screen;
    QTest::newRow("control restores") << QStringList{"control", "control"} << "Min" << normal;
    QTest::newRow("thumb then min") << QStringList{"Thumb", "Min"} << "Min" << normal;
    QTest::newRow("thumb then max") << QStringList{"Thumb", "Max"} << "Max" << screen;
    QTest::newRow("unknown word") << QStringList{"Huge"} << "Min" << normal;
    QTest::newRow("lower case") << QStringList{"max"} << "Min" << normal;
}

void TestContainers::sizeWords()
{
    QFETCH(QStringList, words);
    QFETCH(QString, size);
    QFETCH(QRect, expected);

    PanelOnScreen on;
    QSignalSpy heard(on.panel, &ContainerImpl::changeSize);

    for (const QString& word : words) {
        if (word == QLatin1String("control"))
            press(on.panel, "ContainerMaxRestore");
        else
            on.panel->changeSize(word);
    }
    on.screen.resize(640, 400);
    QCOMPARE(on.panel->currentSize(), size);
    QCOMPARE(on.panel->geometry(), expected);
    QCOMPARE(heard.count(), words.size());
}

void TestContainers::thumbShowsOnlyTheTitleAndGivesBackTheMinimum()
{
    PanelOnScreen on;
    on.panel->setWindowTitle(QStringLiteral("Trace"));
    on.panel->setMinimumSize(250, 150);

    on.panel->changeSize(QStringLiteral("Thumb"));
    QVERIFY(on.panel->height() < 70);
    QVERIFY(on.panel->width() >= 160);
    QVERIFY(on.titleBar()->isVisible());
    QVERIFY(!on.panel->getContainerFrame()->isVisible());
    TestSupport::savePng(&on.screen, QStringLiteral("container_thumb"));

    drag(on.titleBar(), QPoint(20, 10), QPoint(200, 150));
    on.panel->changeSize(QStringLiteral("Min"));
    QCOMPARE(on.panel->minimumSize(), QSize(250, 150));
    QCOMPARE(on.panel->geometry(), QRect(300, 250, 300, 200));
    QVERIFY(on.panel->getContainerFrame()->isVisible());
}

void TestContainers::drawerSlidesOverTheContent()
{
    PanelOnScreen on;
    ContainerImpl* panel = on.panel;
    panel->setWindowTitle(QStringLiteral("Channel"));
    auto* content = new QVBoxLayout;
    content->addWidget(new QLabel(QStringLiteral("Channel 1: 12.5 V")));
    content->addStretch();
    panel->setLayout(content);
    auto* tab = panel->findChild<QWidget*>(QStringLiteral("ContainerDrawerTab"));
    auto* drawer = panel->findChild<QFrame*>(QStringLiteral("ContainerDrawer"));

    panel->setDrawerOpen(true);
    QVERIFY(!panel->isDrawerOpen());
    QVERIFY(!tab->isVisible());

    panel->addDrawer(new QLabel(QStringLiteral("Coupling: DC")));
    QVERIFY(tab->isVisible());
    QTest::mouseClick(tab, Qt::LeftButton);
    QVERIFY(panel->isDrawerOpen());
    QCoreApplication::processEvents(); // a layout set on a shown panel shows its widgets queued
    TestSupport::savePng(&on.screen, QStringLiteral("container_drawer"));

    panel->resize(450, 300);
    const QRect contentArea = panel->getContainerFrame()->geometry();
    QCOMPARE(drawer->geometry().right(), contentArea.right());
    QCOMPARE(drawer->height(), contentArea.height());
    QCOMPARE(tab->geometry().right() + 1, drawer->x());

    panel->changeSize(QStringLiteral("Thumb"));
    QVERIFY(!panel->isDrawerOpen());
    QVERIFY(!tab->isVisible());
}

QTEST_MAIN(TestContainers)
#include "tst_containers.moc"
