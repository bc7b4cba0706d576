#include "ScrollButton.h"
#include "ScrollableMenuBarFrame.h"
#include "Tab.h"
#include "TabBar.h"
#include "TabImpl.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QtTest>

namespace {

//! A touch at a screen position, delivered to \a target as the window system would.
void touch(QWidget* target, QEvent::Type type, const QPoint& screenPos)
{
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, target->mapFromGlobal(screenPos), screenPos, Qt::LeftButton, held, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

QPoint centreOf(const QWidget* widget)
{
    return widget->mapToGlobal(widget->rect().center());
}

//! A finger put on \a tab, moved by \a travel in \a steps, and lifted.
void swipe(Tab* tab, const QPoint& travel, int steps = 4)
{
    const QPoint start = centreOf(tab);
    touch(tab, QEvent::MouseButtonPress, start);
    for (int i = 1; i <= steps; ++i)
        touch(tab, QEvent::MouseMove, start + travel * i / steps);
    touch(tab, QEvent::MouseButtonRelease, start + travel);
}

ScrollButton* arrow(const TabImpl& tabs, Qt::ArrowType direction)
{
    for (ScrollButton* button : tabs.findChildren<ScrollButton*>())
        if (button->direction() == direction && button->parentWidget() == tabs.bar())
            return button;
    return nullptr;
}

//! The rows of \a image, top half against bottom half, that hold the label's dark ink.
QPair<int, int> inkByHalf(const QImage& image)
{
    int upper = 0;
    int lower = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 60)
                (y < image.height() / 2 ? upper : lower)++;
    return {upper, lower};
}

QRect inkBounds(const QImage& image)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 60)
                bounds |= QRect(x, y, 1, 1);
    return bounds;
}

} // namespace

class TestTabs : public QObject
{
    Q_OBJECT

private slots:
    void tapSelectsAndDragDoesNot_data();
    void tapSelectsAndDragDoesNot();
    void dragSlidesTheStripByTheFingersTravel();
    void arrowsStepAcrossHiddenTabs();
    void hiddenTabsKeepTheirIndex();
    void oddRequestsChangeNothing();
    void tabAddedWhileDragging();
    void sideBarsTurnTheirLabels_data();
    void sideBarsTurnTheirLabels();

private:
    //! A shown tab widget of \a count pages named "Page 0", "Page 1", ...
    static std::unique_ptr<TabImpl> tabWidget(int count, int width = 420);
};

std::unique_ptr<TabImpl> TestTabs::tabWidget(int count, int width)
{
    auto tabs = std::make_unique<TabImpl>();
    tabs->resize(width, 200);
    for (int i = 0; i < count; ++i)
        tabs->addTab(new QWidget, QStringLiteral("Page %1").arg(i));
    tabs->show();
    if (!QTest::qWaitForWindowExposed(tabs.get()))
        return nullptr;
    return tabs;
}

void TestTabs::tapSelectsAndDragDoesNot_data()
{
    QTest::addColumn<QPoint>("travel");
    QTest::addColumn<bool>("selects");

    QTest::newRow("still") << QPoint(0, 0) << true;
    QTest::newRow("20 along") << QPoint(20, 0) << true;
    QTest::newRow("10 along, 10 across") << QPoint(10, -10) << true;
    QTest::newRow("21 along") << QPoint(21, 0) << false;
    QTest::newRow("11 along, 10 across") << QPoint(-11, 10) << false;
    QTest::newRow("off the strip") << QPoint(0, 300) << false;
}

void TestTabs::tapSelectsAndDragDoesNot()
{
    QFETCH(QPoint, travel);
    QFETCH(bool, selects);

    const auto tabs = tabWidget(3);
    QVERIFY(tabs);
    QSignalSpy changed(tabs.get(), &QTabWidget::currentChanged);
    swipe(tabs->bar()->tab(2), travel);

    QCOMPARE(tabs->currentIndex(), selects ? 2 : 0);
    QCOMPARE(tabs->bar()->currentIndex(), tabs->currentIndex());
    QCOMPARE(changed.count(), selects ? 1 : 0);
    QCOMPARE(tabs->bar()->tab(2)->isChecked(), selects);
    QCOMPARE(tabs->bar()->tab(0)->isChecked(), !selects);

    // A tap on the tab already current keeps it checked; a drag from it too.
    swipe(tabs->bar()->tab(tabs->currentIndex()), travel);
    QVERIFY(tabs->bar()->tab(tabs->currentIndex())->isChecked());
}

void TestTabs::dragSlidesTheStripByTheFingersTravel()
{
    const auto tabs = tabWidget(8);
    QVERIFY(tabs);
    ScrollableMenuBarFrame* strip = tabs->bar()->strip();
    QVERIFY(strip->isScrollable());
    QCOMPARE(strip->x(), 0);
    QVERIFY(!tabs->findChild<ScrollButton*>(QStringLiteral("MenuBarBack"))->isVisible());

    swipe(tabs->bar()->tab(1), QPoint(-90, 3));
    QCOMPARE(strip->x(), -90);
    QCOMPARE(tabs->currentIndex(), 0);

    // The strip stops with its last tab at the view's end, however far the finger goes.
    swipe(tabs->bar()->tab(3), QPoint(-5000, 0), 10);
    const QWidget* view = strip->parentWidget();
    QCOMPARE(strip->x() + strip->width(), view->width());
    TestSupport::savePng(tabs.get(), QStringLiteral("tabs_dragged_to_the_end"));

    // Selecting a tab out of view slides it back in, to the view's start.
    tabs->setCurrentIndex(1);
    QCOMPARE(strip->x(), -tabs->bar()->tab(1)->x());
}

void TestTabs::arrowsStepAcrossHiddenTabs()
{
    const auto tabs = tabWidget(6);
    QVERIFY(tabs);
    ScrollButton* back = arrow(*tabs, Qt::LeftArrow);
    ScrollButton* forward = arrow(*tabs, Qt::RightArrow);
    QVERIFY(back && forward);
    tabs->hideTab(1);
    tabs->hideTab(2);
    tabs->hideTab(5);
    QVERIFY(!back->isEnabled());
    QVERIFY(forward->isEnabled());

    const QList<int> forwardSteps{3, 4};
    for (int expected : forwardSteps) {
        QTest::mouseClick(forward, Qt::LeftButton);
        QCOMPARE(tabs->currentIndex(), expected);
    }
    QVERIFY(!forward->isEnabled());
    QVERIFY(back->isEnabled());
    const QList<int> backSteps{3, 0};
    for (int expected : backSteps) {
        QTest::mouseClick(back, Qt::LeftButton);
        QCOMPARE(tabs->currentIndex(), expected);
    }
    QVERIFY(!back->isEnabled());

    const auto single = tabWidget(1);
    QVERIFY(single);
    QVERIFY(!arrow(*single, Qt::LeftArrow)->isEnabled());
    QVERIFY(!arrow(*single, Qt::RightArrow)->isEnabled());
}

void TestTabs::hiddenTabsKeepTheirIndex()
{
    const auto tabs = tabWidget(4);
    QVERIFY(tabs);
    tabs->setCurrentIndex(2);
    tabs->hideTab(2);
    QCOMPARE(tabs->currentIndex(), 0);
    QVERIFY(tabs->bar()->isTabHidden(2));

    // A host may still open a hidden tab's page; the tab stays hidden and the arrows go on from it.
    tabs->setCurrentIndex(2);
    QCOMPARE(tabs->currentWidget(), tabs->widget(2));
    QCOMPARE(tabs->bar()->currentIndex(), 2);
    QVERIFY(tabs->bar()->isTabHidden(2));
    QTest::mouseClick(arrow(*tabs, Qt::RightArrow), Qt::LeftButton);
    QCOMPARE(tabs->currentIndex(), 3);

    tabs->showTab(2);
    QVERIFY(!tabs->bar()->isTabHidden(2));
    QCOMPARE(tabs->bar()->tab(2)->labelText(), QStringLiteral("Page 2"));
    QCOMPARE(tabs->count(), 4);

    // With every tab hidden nothing can be stepped to, and the page stays.
    for (int i = 0; i < 4; ++i)
        tabs->hideTab(i);
    QCOMPARE(tabs->currentIndex(), 3);
    QVERIFY(!arrow(*tabs, Qt::LeftArrow)->isEnabled());
    QVERIFY(!arrow(*tabs, Qt::RightArrow)->isEnabled());
}

void TestTabs::oddRequestsChangeNothing()
{
    const auto tabs = tabWidget(3);
    QVERIFY(tabs);
    tabs->setCurrentIndex(1);
    for (int index : {-1, 3, 99}) {
        for (const char* action : {"select", "select", "hide", "show", "name"})
            QTest::ignoreMessage(QtDebugMsg, qPrintable(QStringLiteral("UserInterface - TabBar: no tab %1 to %2")
                                                            .arg(index)
                                                            .arg(QLatin1String(action))));
        tabs->setCurrentIndex(index);
        tabs->bar()->setCurrentIndex(index);
        tabs->hideTab(index);
        tabs->showTab(index);
        tabs->setTabText(index, QStringLiteral("none"));
        QCOMPARE(tabs->currentIndex(), 1);
        QCOMPARE(tabs->bar()->currentIndex(), 1);
    }

    // A removed page leaves its tab on the bar; touching that tab opens no page.
    tabs->removeTab(1);
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->bar()->count(), 3);
    QWidget* shown = tabs->currentWidget();
    swipe(tabs->bar()->tab(2), QPoint());
    QCOMPARE(tabs->currentWidget(), shown);
}

void TestTabs::tabAddedWhileDragging()
{
    const auto tabs = tabWidget(5);
    QVERIFY(tabs);
    Tab* held = tabs->bar()->tab(1);
    const QPoint start = centreOf(held);
    touch(held, QEvent::MouseButtonPress, start);
    touch(held, QEvent::MouseMove, start + QPoint(-40, 0));
    tabs->addTab(new QWidget, QStringLiteral("Late page"));
    touch(held, QEvent::MouseMove, start + QPoint(-80, 0));
    touch(held, QEvent::MouseButtonRelease, start + QPoint(-80, 0));

    QCOMPARE(tabs->bar()->count(), 6);
    QCOMPARE(tabs->currentIndex(), 0);
    ScrollableMenuBarFrame* strip = tabs->bar()->strip();
    QCOMPARE(strip->width(), strip->layout()->sizeHint().width());
    QCOMPARE(strip->x(), -80);
    tabs->setCurrentIndex(5);
    QCOMPARE(strip->x() + strip->width(), strip->parentWidget()->width());
}

void TestTabs::sideBarsTurnTheirLabels_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("startsLow");
    QTest::addColumn<bool>("fromForm");

    QTest::newRow("left reads upward") << int(QTabWidget::West) << true << false;
    QTest::newRow("right reads downward") << int(QTabWidget::East) << false << false;
    // A form sets the position through the property, past the bar.
    QTest::newRow("left, from a form") << int(QTabWidget::West) << true << true;
}

void TestTabs::sideBarsTurnTheirLabels()
{
    QFETCH(int, position);
    QFETCH(bool, startsLow);
    QFETCH(bool, fromForm);

    TabImpl tabs;
    tabs.resize(300, 420);
    // A heavy first letter and light ones after it tell where the label starts.
    tabs.addTab(new QWidget, QStringLiteral("M....."));
    tabs.addTab(new QWidget, QStringLiteral("Second"));
    if (fromForm)
        tabs.setProperty("tabPosition", position);
    else
        tabs.setTabPosition(QTabWidget::TabPosition(position));
    tabs.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tabs));
    if (!fromForm)
        TestSupport::savePng(&tabs, position == QTabWidget::West ? QStringLiteral("tabs_left") : QStringLiteral("tabs_right"));
    // The bar stands as a narrow column along its side.
    QVERIFY(tabs.bar()->width() < 50 && tabs.bar()->height() == tabs.height());

    Tab* current = tabs.bar()->tab(0);
    QVERIFY(current->height() > current->width());
    // The checked tab is white with black letters.
    const QImage label = current->grab().toImage();
    const QRect ink = inkBounds(label);
    QVERIFY2(ink.height() > 2 * ink.width(), qPrintable(QStringLiteral("ink %1x%2").arg(ink.width()).arg(ink.height())));
    const QPair<int, int> halves = inkByHalf(label.copy(ink));
    QCOMPARE(halves.second > halves.first, startsLow);
}

QTEST_MAIN(TestTabs)
#include "tst_tabs.moc"
