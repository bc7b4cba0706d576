#include "HorizontalScrollBarImpl.h"
#include "PushButtonImpl.h"
#include "QRVStatusBar.h"
#include "ScrollButton.h"
#include "ScrollableMenuBarFrame.h"
#include "TestSupport.h"
#include "VerticalScrollBarImpl.h"

#include "CSS.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

using Kelvane::gui::HorizontalScrollBarImpl;
using Kelvane::gui::PushButtonImpl;
using Kelvane::gui::ScrollBarImpl;
using Kelvane::gui::VerticalScrollBarImpl;

namespace {

class CountingButton : public PushButtonImpl
{
public:
    using PushButtonImpl::PushButtonImpl;
    void buttonClicked() override
    {
        ++presses;
        PushButtonImpl::buttonClicked();
    }
    int presses = 0;
};

void paintDark(QWidget* widget)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, QColor(CSS::background()));
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

//! White where the button shows its arrow, black elsewhere.
QImage arrowMask(ScrollButton* button)
{
    QImage mask = button->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QRgb arrow = QColor(CSS::text()).rgb();
    for (int y = 0; y < mask.height(); ++y)
        for (int x = 0; x < mask.width(); ++x)
            mask.setPixel(x, y, mask.pixel(x, y) == arrow ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
    return mask;
}

QPushButton* menuItem(int number)
{
    auto* item = new QPushButton(QStringLiteral("Menu %1").arg(number));
    item->setFixedSize(80, 40);
    return item;
}

} // namespace

class TestPlatformWidgets : public QObject
{
    Q_OBJECT

private slots:
    void pushButtonClickReachesButtonClicked();
    void pushButtonLockOverlayCoversIt();
    void scrollBarThickness_data();
    void scrollBarThickness();
    void scrollButtonPointsItsWay_data();
    void scrollButtonPointsItsWay();
    void menuBarPlacesAFittingStrip_data();
    void menuBarPlacesAFittingStrip();
    void menuBarScrollsAnOverflowingStrip();
    void menuBarFollowsItsHolder();
    void statusBarKeepsPermanentWidgetsBesideTheTime();
};

void TestPlatformWidgets::pushButtonClickReachesButtonClicked()
{
    CountingButton button;
    button.setProperty("ButtonText", QStringLiteral("Start"));
    auto* inner = button.findChild<QPushButton*>(QStringLiteral("PushButton"));
    QCOMPARE(inner->text(), QStringLiteral("Start"));
    QSignalSpy clicked(&button, &PushButtonImpl::clicked);

    QTest::mouseClick(inner, Qt::LeftButton);
    QCOMPARE(button.presses, 1);
    QCOMPARE(clicked.count(), 1);
}

void TestPlatformWidgets::pushButtonLockOverlayCoversIt()
{
    QWidget holder;
    paintDark(&holder);
    auto* button = new PushButtonImpl(&holder);
    button->setButtonText(QStringLiteral("Acquire"));
    button->setGeometry(10, 10, 160, 50);
    holder.resize(180, 70);
    holder.show();
    QVERIFY(QTest::qWaitForWindowExposed(&holder));
    TestSupport::savePng(&holder, QStringLiteral("pushbutton"));
    auto* inner = button->findChild<QPushButton*>(QStringLiteral("PushButton"));
    auto* overlay = button->findChild<QPushButton*>(QStringLiteral("LockOverlay"));
    const QPoint centre = button->rect().center();
    QCOMPARE(button->childAt(centre), inner);

    emit button->SetLocked(true);
    QCOMPARE(button->childAt(centre), overlay);
    TestSupport::savePng(&holder, QStringLiteral("pushbutton_locked"));
    button->resize(220, 60);
    QCOMPARE(overlay->geometry(), button->rect());
    QCOMPARE(button->childAt(QPoint(215, 55)), overlay);

    emit button->SetLocked(false);
    QCOMPARE(button->childAt(centre), inner);
}

void TestPlatformWidgets::scrollBarThickness_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<ScrollBarImpl::Style>("style");
    QTest::addColumn<int>("thickness");

    QTest::newRow("vertical") << Qt::Vertical << ScrollBarImpl::Default << 40;
    QTest::newRow("vertical thin") << Qt::Vertical << ScrollBarImpl::Thin << 20;
    QTest::newRow("horizontal") << Qt::Horizontal << ScrollBarImpl::Default << 40;
    QTest::newRow("horizontal thin") << Qt::Horizontal << ScrollBarImpl::Thin << 20;
}

void TestPlatformWidgets::scrollBarThickness()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(ScrollBarImpl::Style, style);
    QFETCH(int, thickness);

    QWidget holder;
    paintDark(&holder);
    ScrollBarImpl* bar = orientation == Qt::Vertical ? static_cast<ScrollBarImpl*>(new VerticalScrollBarImpl(&holder))
                                                     : new HorizontalScrollBarImpl(&holder);
    QCOMPARE(bar->orientation(), orientation);
    bar->setStyle(style);
    QCOMPARE(bar->scrollBarStyle(), style);
    bar->ensurePolished();
    const QSize hint = bar->sizeHint();
    QCOMPARE(orientation == Qt::Vertical ? hint.width() : hint.height(), thickness);

    bar->setRange(0, 100);
    bar->setPageStep(30);
    bar->setValue(40);
    bar->setGeometry(QRect(QPoint(10, 10), orientation == Qt::Vertical ? QSize(thickness, 200) : QSize(200, thickness)));
    holder.resize(bar->width() + 20, bar->height() + 20);
    TestSupport::savePng(&holder, QStringLiteral("scrollbar_") + QString::fromLatin1(QTest::currentDataTag()).replace(' ', '_'));
}

void TestPlatformWidgets::scrollButtonPointsItsWay_data()
{
    QTest::addColumn<Qt::ArrowType>("direction");
    QTest::addColumn<QTransform>("fromRight");

    QTest::newRow("left") << Qt::LeftArrow << QTransform::fromScale(-1, 1);
    QTest::newRow("down") << Qt::DownArrow << QTransform().rotate(90);
    QTest::newRow("up") << Qt::UpArrow << QTransform().rotate(-90);
}

void TestPlatformWidgets::scrollButtonPointsItsWay()
{
    QFETCH(Qt::ArrowType, direction);
    QFETCH(QTransform, fromRight);

    ScrollButton button(Qt::RightArrow);
    button.resize(40, 40);
    const QImage expected = arrowMask(&button).transformed(fromRight);
    button.setDirection(direction);
    const QImage shown = arrowMask(&button);

    // Edge pixels may differ by antialiasing; a wrong direction differs in its body.
    int arrowPixels = 0;
    int mismatches = 0;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            arrowPixels += qRed(shown.pixel(x, y)) ? 1 : 0;
            mismatches += shown.pixel(x, y) != expected.pixel(x, y) ? 1 : 0;
        }
    }
    QVERIFY(arrowPixels > 50);
    QVERIFY2(mismatches * 10 < arrowPixels, qPrintable(QStringLiteral("%1 of %2").arg(mismatches).arg(arrowPixels)));
}

void TestPlatformWidgets::menuBarPlacesAFittingStrip_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("x");

    // Two items of 80 with a gap of 4 make a strip of 164 in a holder of 400.
    QTest::newRow("left") << int(Qt::AlignLeft) << 0;
    QTest::newRow("centre") << int(Qt::AlignHCenter) << 118;
    QTest::newRow("right") << int(Qt::AlignRight) << 236;
}

void TestPlatformWidgets::menuBarPlacesAFittingStrip()
{
    QFETCH(int, alignment);
    QFETCH(int, x);

    QWidget holder;
    holder.resize(400, 50);
    ScrollableMenuBarFrame strip(&holder, Qt::AlignmentFlag(alignment));
    strip.addWidget(menuItem(1));
    strip.addWidget(menuItem(2));
    holder.show();
    QVERIFY(QTest::qWaitForWindowExposed(&holder));

    QVERIFY(!strip.isScrollable());
    QCOMPARE(strip.geometry(), QRect(x, 0, 164, 40));
    const QList<ScrollButton*> arrows = holder.findChildren<ScrollButton*>();
    QCOMPARE(arrows.size(), 2);
    for (ScrollButton* arrow : arrows)
        QVERIFY(!arrow->isVisible());

    strip.setAlignment(Qt::AlignRight | Qt::AlignBottom);
    QCOMPARE(strip.geometry(), QRect(236, 10, 164, 40));
}

void TestPlatformWidgets::menuBarScrollsAnOverflowingStrip()
{
    QWidget holder;
    paintDark(&holder);
    holder.resize(400, 50);
    ScrollableMenuBarFrame strip(&holder, Qt::AlignCenter);
    for (int i = 1; i <= 10; ++i) {
        auto* item = new PushButtonImpl;
        item->setButtonText(QStringLiteral("Menu %1").arg(i));
        item->setFixedSize(100, 40);
        strip.addWidget(item);
    }
    holder.show();
    QVERIFY(QTest::qWaitForWindowExposed(&holder));
    auto* back = holder.findChild<ScrollButton*>(QStringLiteral("MenuBarBack"));
    auto* forward = holder.findChild<ScrollButton*>(QStringLiteral("MenuBarForward"));
    QSignalSpy moving(&strip, &ScrollableMenuBarFrame::moving);

    // Ten items of 100 with nine gaps of 4: 1036, between arrows of 40 in a holder of 400.
    QVERIFY(strip.isScrollable());
    QCOMPARE(strip.width(), 1036);
    QVERIFY(back->isVisible() && forward->isVisible());
    QCOMPARE(strip.x(), 40);
    QVERIFY(!back->isEnabled());
    QVERIFY(forward->isEnabled());
    TestSupport::savePng(&holder, QStringLiteral("menubar_overflowing"));

    QTest::mouseClick(forward, Qt::LeftButton);
    QCOMPARE(strip.x(), 40 - 100);
    QCOMPARE(moving.count(), 1);
    QVERIFY(back->isEnabled());

    for (int i = 0; i < 10; ++i)
        QTest::mouseClick(forward, Qt::LeftButton);
    QCOMPARE(strip.x(), 400 - 40 - 1036);
    QVERIFY(!forward->isEnabled());

    strip.move(100, 30);
    QCOMPARE(strip.pos(), QPoint(40, 5));
    strip.move(QPoint(-150, 30));
    QCOMPARE(strip.pos(), QPoint(-150, 5));
}

void TestPlatformWidgets::menuBarFollowsItsHolder()
{
    QWidget holder;
    holder.resize(300, 50);
    auto* strip = new ScrollableMenuBarFrame(&holder, Qt::AlignLeft);
    for (int i = 1; i <= 5; ++i)
        strip->addWidget(menuItem(i));
    holder.show();
    auto* forward = holder.findChild<ScrollButton*>(QStringLiteral("MenuBarForward"));
    QVERIFY(forward->isVisible());

    holder.resize(600, 50);
    QVERIFY(!forward->isVisible());
    QCOMPARE(strip->x(), 0);

    // Moved into a narrower holder, the strip takes its arrows along and starts at its first item.
    QWidget narrow;
    narrow.resize(200, 50);
    strip->setParent(&narrow);
    strip->show();
    narrow.show();
    QCOMPARE(forward->parentWidget(), &narrow);
    QVERIFY(forward->isVisible());
    QCOMPARE(strip->x(), 40);
    delete strip;
    QVERIFY(narrow.findChildren<ScrollButton*>().isEmpty());
}

void TestPlatformWidgets::statusBarKeepsPermanentWidgetsBesideTheTime()
{
    QRVStatusBar bar;
    bar.resize(600, 40);
    auto* lamp = new QLabel(QStringLiteral("lamp"));
    bar.addPermanentWidget(lamp);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    bar.addMessage(QStringLiteral("A message long enough to want the whole width of the bar and more"));
    QApplication::processEvents();

    const QLabel* message = bar.findChild<QLabel*>(QStringLiteral("StatusMessage"));
    const QLabel* time = bar.findChild<QLabel*>(QStringLiteral("StatusTime"));
    QCOMPARE(lamp->parentWidget(), &bar);
    QVERIFY(lamp->isVisible());
    QVERIFY(message->geometry().right() < lamp->geometry().left());
    QVERIFY(lamp->geometry().right() < time->geometry().left());
}

QTEST_MAIN(TestPlatformWidgets)
#include "tst_platformwidgets.moc"
