#include "ProgressBar.h"
#include "TestSupport.h"

#include <QLabel>
#include <QProgressBar>
#include <QtTest>

class TestProgressBar : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { qApp->setProperty("-systype", QVariant()); }
    void unboundShowsSeventyPercent();
    void percentOnTheTenthsScale_data();
    void percentOnTheTenthsScale();
    void sizeWords();
    void touchDoesNothing();
    void bindingNilOnlyClearsTheFrame();
};

namespace {
QProgressBar* barOf(ProgressBar& widget) { return widget.findChild<QProgressBar*>(); }
}

void TestProgressBar::unboundShowsSeventyPercent()
{
    ProgressBar widget;
    widget.setLabel(QStringLiteral("Sweep"));
    widget.resize(260, 60);
    QCOMPARE(barOf(widget)->value(), 700);
    QCOMPARE(barOf(widget)->text(), QStringLiteral("70%"));
    QCOMPARE(widget.getLabel(), QStringLiteral("Sweep"));
    TestSupport::savePng(&widget, QStringLiteral("progressbar_unbound_min"));
}

void TestProgressBar::percentOnTheTenthsScale_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("barValue");
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("half") << 50 << 500;
    QTest::newRow("full") << 100 << 1000;
    QTest::newRow("above range keeps the last value") << 101 << 700;
    QTest::newRow("below range keeps the last value") << -1 << 700;
}

void TestProgressBar::percentOnTheTenthsScale()
{
    QFETCH(int, percent);
    QFETCH(int, barValue);
    ProgressBar widget;
    widget.updateProgress(percent);
    QCOMPARE(barOf(widget)->value(), barValue);
}

void TestProgressBar::sizeWords()
{
    ProgressBar widget;
    const QString min = widget.styleSheet();
    QVERIFY(min.contains(QStringLiteral("min-height: 26px")));
    widget.changeSize(QStringLiteral("Max"));
    const QString max = widget.styleSheet();
    QVERIFY(max.contains(QStringLiteral("min-height: 32px")));
    widget.changeSize(QStringLiteral("Thumb"));
    QCOMPARE(widget.styleSheet(), max);
    widget.resize(260, 70);
    widget.setLabel(QStringLiteral("Sweep"));
    TestSupport::savePng(&widget, QStringLiteral("progressbar_unbound_max"));

    qApp->setProperty("-systype", QStringLiteral("handheld"));
    ProgressBar handheld;
    QCOMPARE(handheld.styleSheet(), max);
}

void TestProgressBar::touchDoesNothing()
{
    ProgressBar widget;
    widget.resize(200, 50);
    QSignalSpy display(&widget, &WidgetBaseImpl::DisplayEntryMechanism);
    QTest::mouseRelease(&widget, Qt::LeftButton, Qt::ControlModifier, QPoint(10, 10));
    QCOMPARE(display.count(), 0);
    QVERIFY(!widget.isLocked());
    QVERIFY(!widget.getSuppressDebug());
}

void TestProgressBar::bindingNilOnlyClearsTheFrame()
{
    ProgressBar widget;
    widget.bindAttribute(nullptr);
    QCOMPARE(barOf(widget)->value(), 700);
    QVERIFY(!widget.isEngineLinkLost());
}

QTEST_MAIN(TestProgressBar)
#include "tst_progressbar.moc"
