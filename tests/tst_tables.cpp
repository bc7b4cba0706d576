// The enumerated tables against the simulated engine (selection from
// samples, touches, the one retry, lists that change), and the two styled
// tables on their own.
#include "BoundedExit.h"
#include "ColumnShares.h"
#include "EngineLink.h"
#include "GlobalImpl.h"
#include "HorizontalScrollBarImpl.h"
#include "QRVStatusBar.h"
#include "SimEngine.h"
#include "TableEnum.h"
#include "TableEnumMulti.h"
#include "TableImpl.h"
#include "TableViewImpl.h"
#include "TestSupport.h"
#include "VerticalScrollBarImpl.h"

#include <Brenmoor.hh>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QSignalSpy>
#include <QPushButton>
#include <QStandardItemModel>
#include <QtTest>

using Kelvane::gui::ColumnShares;
using Kelvane::gui::ScrollBarImpl;
using Kelvane::gui::TableEnum;
using Kelvane::gui::TableEnumMulti;
using Kelvane::gui::TableImpl;
using Kelvane::gui::TableViewImpl;

namespace {

std::vector<SimEnumEntry> entries(const QList<QPair<int, QString>>& list)
{
    std::vector<SimEnumEntry> result;
    for (const auto& entry : list)
        result.push_back({entry.first, entry.second.toStdString(), true});
    return result;
}

const QList<QPair<int, QString>> modes{{10, "Alpha"}, {20, "Beta"}, {30, "Gamma"}};

TableViewImpl* viewOf(QWidget& table) { return table.findChild<TableViewImpl*>(); }

int selectedRow(QWidget& table)
{
    const QModelIndexList rows = viewOf(table)->selectionModel()->selectedRows();
    return rows.size() == 1 ? rows.first().row() : -1;
}

QString cellText(QWidget& table, int row, int column)
{
    return viewOf(table)->model()->index(row, column).data().toString();
}

// How far the columns reach into the viewport, whose width is what the scroll bar leaves.
int columnsRightEdge(const QTableView* view)
{
    const int last = view->model()->columnCount() - 1;
    return view->columnViewportPosition(last) + view->columnWidth(last);
}

// The texts a view cannot show whole: headers narrower than Qt's hint for
// them, cells narrower than the text plus the margins the item delegate keeps.
QStringList cutTexts(const QTableView* view)
{
    QStringList cut;
    const QAbstractItemModel* model = view->model();
    const QFontMetrics metrics(view->font());
    const int margin = view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view) + 1;
    for (int c = 0; c < model->columnCount(); ++c) {
        if (view->horizontalHeader()->sectionSizeHint(c) > view->columnWidth(c))
            cut << model->headerData(c, Qt::Horizontal).toString();
        for (int r = 0; r < model->rowCount(); ++r) {
            const QString text = model->index(r, c).data().toString();
            if (metrics.horizontalAdvance(text) + 2 * margin > view->columnWidth(c))
                cut << text;
        }
    }
    return cut;
}

void touchRow(QWidget& table, int row)
{
    TableViewImpl* view = viewOf(table);
    const QPoint centre = view->visualRect(view->model()->index(row, 0)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
}

} // namespace

class TestTables : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void samplesSelectTheRow_data();
    void samplesSelectTheRow();
    void touchSendsTheRowsValue_data();
    void touchSendsTheRowsValue();
    void refusedSendIsRetriedOnce_data();
    void refusedSendIsRetriedOnce();
    void transportFailureIsNotRetried();
    void enumTableFollowsNoLock();
    void paramsSampleRefetchesTheList();
    void emptyEnumerationGivesAnEmptyTable_data();
    void emptyEnumerationGivesAnEmptyTable();
    void splitLabelsFillColumns();
    void columnWidthsArePercentagesOfTheRoomLeftOfTheScrollBar();
    void sharedWidths_data();
    void sharedWidths();
    void screenRowColumnsEndLeftOfTheScrollBar_data() { screenRow_data(); }
    void screenRowColumnsEndLeftOfTheScrollBar();
    void screenRowShowsEveryTextWhole_data() { screenRow_data(); }
    void screenRowShowsEveryTextWhole();
    void wideTableScrollsSideways();
    void multiColumnsStayRowAligned();
    void multiParamsSampleRefillsItsColumn();
    void multiColumnFailuresStayInTheirColumn_data();
    void multiColumnFailuresStayInTheirColumn();
    void tablesAreSmallAndNamed();
    void sizeWordsChooseTheSheet();
    void scrollBarStyle_data();
    void scrollBarStyle();
    void cellTouchSelectsTheWholeRow();
    void releaseOutsideCellsEmitsNothing();
    void looks();

private:
    struct ScreenRow;
    static void screenRow_data();
    std::unique_ptr<ScreenRow> screenRow(const QString& size);

    template<class Table>
    void bind(Table& table, const char* name)
    {
        table.bindAttribute(m_engine->attribute(name));
    }

    std::unique_ptr<SimEngine> m_engine;
    QRVStatusBar* m_statusBar = nullptr;
};

void TestTables::initTestCase()
{
    m_engine = std::make_unique<SimEngine>();
    for (const char* name : {"Mode", "Band", "Filter", "Detector", "Spare"}) {
        SimAttributeSetup setup;
        setup.name = name;
        setup.kind = SimKind::AttribEnum;
        m_engine->addAttribute(setup);
    }
    m_statusBar = new QRVStatusBar;
    GlobalImpl::getInstance()->setStatusBar(m_statusBar);
}

void TestTables::init()
{
    m_engine->setEnumEntries("Mode", entries(modes));
    m_engine->setValue("Mode", std::int64_t(20));
    m_engine->setEnumEntries("Band", entries({{1, "Low"}, {2, "High"}}));
    m_engine->setValue("Band", std::int64_t(1));
    m_engine->setEnumEntries("Filter", entries({{5, "Narrow"}, {6, "Mid"}, {7, "Wide"}, {8, "Open"}}));
    m_engine->setValue("Filter", std::int64_t(5));
    m_engine->setEnumEntries("Detector", entries({{0, "Peak"}, {1, "RMS"}, {2, "Average"}}));
    m_engine->setValue("Detector", std::int64_t(0));
    m_engine->setEnumEntries("Spare", {});
    m_engine->setValue("Spare", std::int64_t(0));
}

void TestTables::samplesSelectTheRow_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("row");
    QTest::newRow("known value") << 30 << 2;
    QTest::newRow("unknown value falls to the first row") << 99 << 0;
}

void TestTables::samplesSelectTheRow()
{
    QFETCH(int, value);
    QFETCH(int, row);
    TableEnum table;
    bind(table, "Mode");
    QCOMPARE(table.rowCount(), 3);
    QCOMPARE(selectedRow(table), 1);
    m_engine->setValue("Mode", std::int64_t(value));
    QTRY_COMPARE(selectedRow(table), row);
}

void TestTables::touchSendsTheRowsValue_data()
{
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<unsigned>("sends");
    QTest::newRow("writable") << false << 1u;
    QTest::newRow("read-only selects and sends nothing") << true << 0u;
}

void TestTables::touchSendsTheRowsValue()
{
    QFETCH(bool, readOnly);
    QFETCH(unsigned, sends);
    TableEnum table;
    table.resize(300, 200);
    table.setReadOnly(readOnly);
    bind(table, "Mode");
    QSignalSpy changes(&table, &TableEnum::valueChanged);
    const unsigned before = m_engine->setCount("Mode");

    touchRow(table, 2);
    QCOMPARE(m_engine->setCount("Mode"), before + sends);
    QCOMPARE(changes.count(), int(sends));
    if (sends)
        QCOMPARE(std::get<std::int64_t>(*m_engine->lastSetValue("Mode")), std::int64_t(30));
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
}

void TestTables::refusedSendIsRetriedOnce_data()
{
    QTest::addColumn<unsigned>("failures");
    QTest::addColumn<int>("messages");
    QTest::newRow("retry succeeds") << 1u << 0;
    QTest::newRow("retry fails too") << 2u << 1;
    QTest::newRow("third failure never tried") << 3u << 1;
}

void TestTables::refusedSendIsRetriedOnce()
{
    QFETCH(unsigned, failures);
    QFETCH(int, messages);
    TableEnum table;
    table.setAttributeName(QStringLiteral("Mode"));
    table.resize(300, 200);
    bind(table, "Mode");
    SimFailure failure;
    failure.kind = SimFailure::Kind::Locked;
    m_engine->failNextSet("Mode", failures, failure);
    QSignalSpy status(m_statusBar, &QRVStatusBar::messageAdded);
    const unsigned before = m_engine->setCount("Mode");

    touchRow(table, 2);
    QCOMPARE(m_engine->setCount("Mode"), before + 2);
    QCOMPARE(status.count(), messages);
    if (messages)
        QCOMPARE(status.first().first().toString(), QStringLiteral("Mode threw an exception while sending: 30"));
    QVERIFY(!table.isEngineLinkLost());
    m_engine->failNextSet("Mode", 0, failure);
}

void TestTables::transportFailureIsNotRetried()
{
    TableEnum table;
    table.resize(300, 200);
    bind(table, "Mode");
    SimFailure failure;
    failure.kind = SimFailure::Kind::Transient;
    m_engine->failNextSet("Mode", 1, failure);
    const unsigned before = m_engine->setCount("Mode");

    touchRow(table, 0);
    QCOMPARE(m_engine->setCount("Mode"), before + 1);
    QVERIFY(table.isEngineLinkLost());
    touchRow(table, 2);
    QCOMPARE(m_engine->setCount("Mode"), before + 1);
}

void TestTables::multiColumnFailuresStayInTheirColumn_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<unsigned>("filterSets");
    QTest::addColumn<bool>("filterLost");
    // A refusal is retried once on a fresh list; an unreachable attribute is
    // not retried, and its column alone stops.
    QTest::newRow("refused twice") << int(SimFailure::Kind::Locked) << 2u << false;
    QTest::newRow("unreachable") << int(SimFailure::Kind::Transient) << 1u << true;
}

void TestTables::multiColumnFailuresStayInTheirColumn()
{
    QFETCH(int, kind);
    QFETCH(unsigned, filterSets);
    QFETCH(bool, filterLost);
    TableEnumMulti table;
    table.resize(400, 240);
    table.bindAttribute(m_engine->attribute("Band"));
    table.bindAttribute(m_engine->attribute("Filter"));
    SimFailure failure;
    failure.kind = SimFailure::Kind(kind);
    m_engine->failNextSet("Filter", 2, failure);
    const unsigned band = m_engine->setCount("Band");
    const unsigned filter = m_engine->setCount("Filter");

    touchRow(table, 1);
    QCOMPARE(m_engine->setCount("Band"), band + 1);
    QCOMPARE(std::get<std::int64_t>(*m_engine->lastSetValue("Band")), std::int64_t(2));
    QCOMPARE(m_engine->setCount("Filter"), filter + filterSets);
    QCOMPARE(table.isColumnLost(1), filterLost);
    QVERIFY(!table.isColumnLost(0));
    // Neither the table nor the rest of the interface is veiled for one attribute.
    QVERIFY(!table.isEngineLinkLost());
    QVERIFY(!EngineLink::instance()->isLost());
    QStandardItemModel* model = qobject_cast<QStandardItemModel*>(viewOf(table)->model());
    QCOMPARE(model->item(0, 1)->isEnabled(), !filterLost);
    QVERIFY(model->item(0, 0)->isEnabled());
    TestSupport::savePng(&table, filterLost ? QStringLiteral("table_multi_column_lost")
                                            : QStringLiteral("table_multi_column_refused"));

    // The other column goes on; a lost one is asked nothing more.
    m_engine->failNextSet("Filter", 0, failure);
    touchRow(table, 0);
    QCOMPARE(m_engine->setCount("Band"), band + 2);
    QCOMPARE(m_engine->setCount("Filter"), filter + filterSets + (filterLost ? 0 : 1));
}

void TestTables::enumTableFollowsNoLock()
{
    // Its rows are its whole face: a lock by another leaves them to touch.
    m_engine->lock("Mode", Brenmoor::LockerID{1, 2});
    TableEnum table;
    table.resize(300, 200);
    bind(table, "Mode");
    QTest::qWait(100);
    const auto* overlay = table.findChild<QPushButton*>(QStringLiteral("LockOverlay"));
    QVERIFY(overlay->isHidden());
    QVERIFY(table.isBindingAttempted());
    m_engine->unlock("Mode");
}

void TestTables::paramsSampleRefetchesTheList()
{
    TableEnum table;
    bind(table, "Mode");
    m_engine->setEnumEntries("Mode", entries({{20, "Beta"}, {40, "Delta"}, {50, "Epsilon"}, {60, "Zeta"}}));
    QTRY_COMPARE(table.rowCount(), 4);
    QCOMPARE(cellText(table, 1, 0), QStringLiteral("   Delta"));
    QTRY_COMPARE(selectedRow(table), 0);
    QCOMPARE(table.getLiteral(60), QStringLiteral("   Zeta"));
    QVERIFY(table.literalExists(QStringLiteral("   Epsilon")));
    QVERIFY(!table.literalExists(QStringLiteral("   Alpha")));
}

void TestTables::emptyEnumerationGivesAnEmptyTable_data()
{
    QTest::addColumn<bool>("emptiedLater");
    QTest::newRow("empty when bound") << false;
    QTest::newRow("emptied while bound") << true;
}

void TestTables::emptyEnumerationGivesAnEmptyTable()
{
    QFETCH(bool, emptiedLater);
    const char* name = emptiedLater ? "Mode" : "Spare";
    TableEnum table;
    table.resize(300, 200);
    bind(table, name);
    if (emptiedLater) {
        QCOMPARE(table.rowCount(), 3);
        m_engine->setEnumEntries(name, {});
    }
    QTRY_COMPARE(table.rowCount(), 0);
    QCOMPARE(selectedRow(table), -1);

    // A value with no row selects nothing, and the table still follows a new list.
    m_engine->setValue(name, std::int64_t(7));
    QTest::qWait(200);
    QCOMPARE(table.rowCount(), 0);
    QCOMPARE(selectedRow(table), -1);
    m_engine->setEnumEntries(name, entries({{7, "Seven"}}));
    QTRY_COMPARE(table.rowCount(), 1);
    QTRY_COMPARE(selectedRow(table), 0);
    QCOMPARE(cellText(table, 0, 0), QStringLiteral("   Seven"));
}

void TestTables::splitLabelsFillColumns()
{
    m_engine->setEnumEntries("Mode", entries({{10, "Alpha,1 MHz,fast"}, {20, "Beta,2 MHz"}}));
    TableEnum table;
    table.setSplitByCSV(true);
    table.setColumnHeading(QStringLiteral("Name,Span,Speed"));
    bind(table, "Mode");
    QCOMPARE(table.getColumnHeading(), QStringLiteral("Name,Span,Speed"));
    QCOMPARE(cellText(table, 0, 0), QStringLiteral("   Alpha"));
    QCOMPARE(cellText(table, 0, 2), QStringLiteral("   fast"));
    QCOMPARE(cellText(table, 1, 1), QStringLiteral("   2 MHz"));
    QCOMPARE(selectedRow(table), 1);
}

void TestTables::columnWidthsArePercentagesOfTheRoomLeftOfTheScrollBar()
{
    TableEnum table;
    table.setColumnHeading(QStringLiteral("Name,Value"));
    table.resize(300, 200);
    table.show();
    QVERIFY(QTest::qWaitForWindowExposed(&table));
    TableViewImpl* view = viewOf(table);
    table.setColumnWidths(QStringLiteral("30,70"));
    const int room = view->viewport()->width();
    QVERIFY(view->viewport()->geometry().right() < view->verticalScrollBar()->mapTo(view, QPoint()).x());
    QCOMPARE(view->columnWidth(0), int(room * 0.3));
    QCOMPARE(view->columnWidth(1), int(room * 0.7));
    QVERIFY(columnsRightEdge(view) <= room);
    QCOMPARE(table.getColumnWidths(), QStringLiteral("30,70"));

    // The shares follow the table's size.
    table.resize(400, 200);
    QTRY_COMPARE(view->columnWidth(1), int(view->viewport()->width() * 0.7));
}

void TestTables::sharedWidths_data()
{
    QTest::addColumn<int>("room");
    QTest::addColumn<QVector<double>>("shares");
    QTest::addColumn<QVector<int>>("needs");
    QTest::addColumn<QVector<int>>("widths");
    QTest::newRow("texts fit their shares") << 200 << QVector<double>{30, 70} << QVector<int>{20, 20} << QVector<int>{60, 140};
    QTest::newRow("no shares: even") << 200 << QVector<double>{} << QVector<int>{10, 10, 10} << QVector<int>{66, 66, 66};
    QTest::newRow("short column takes from one with room")
        << 200 << QVector<double>{50, 50} << QVector<int>{130, 20} << QVector<int>{130, 70};
    QTest::newRow("room no column was given goes first")
        << 200 << QVector<double>{30, 30} << QVector<int>{100, 20} << QVector<int>{100, 60};
    QTest::newRow("spare room given in proportion")
        << 300 << QVector<double>{} << QVector<int>{200, 10, 40} << QVector<int>{200, 40, 60};
    QTest::newRow("no room: the shares stand")
        << 200 << QVector<double>{50, 50} << QVector<int>{150, 100} << QVector<int>{100, 100};
    QTest::newRow("column past the shares gets its texts' width")
        << 200 << QVector<double>{100} << QVector<int>{50, 40} << QVector<int>{160, 40};
    QTest::newRow("no columns") << 100 << QVector<double>{} << QVector<int>{} << QVector<int>{};
    QTest::newRow("no room at all") << 0 << QVector<double>{} << QVector<int>{10, 10} << QVector<int>{0, 0};
}

void TestTables::sharedWidths()
{
    QFETCH(int, room);
    QFETCH(QVector<double>, shares);
    QFETCH(QVector<int>, needs);
    QFETCH(QVector<int>, widths);
    QCOMPARE(ColumnShares::sharedWidths(room, shares, needs), widths);
}

void TestTables::screenRow_data()
{
    QTest::addColumn<QString>("size");
    QTest::newRow("Max") << QStringLiteral("Max");
    QTest::newRow("Min") << QStringLiteral("Min");
}

// The three tables side by side on an 800-pixel screen, as on the demo's.
struct TestTables::ScreenRow
{
    QWidget screen;
    TableEnum* span = new TableEnum;
    TableEnumMulti* detector = new TableEnumMulti;
    TableImpl* markers = new TableImpl;
    QList<QTableView*> views;

    QString cutAnywhere() const
    {
        QStringList cut;
        for (const QTableView* view : views)
            cut << cutTexts(view);
        return cut.join(QLatin1String(" | "));
    }
};

std::unique_ptr<TestTables::ScreenRow> TestTables::screenRow(const QString& size)
{
    m_engine->setEnumEntries("Mode", entries({{1, "10 kHz,100 Hz"}, {2, "1 MHz,10 kHz"}, {3, "100 MHz,1 MHz"}, {4, "Full,3 MHz"}}));
    m_engine->setValue("Mode", std::int64_t(2));
    m_engine->setEnumEntries("Filter", entries({{0, "Off"}, {1, "4 sweeps"}, {2, "16 sweeps"}, {3, "64 sweeps"}}));
    m_engine->setValue("Filter", std::int64_t(1));

    auto row = std::make_unique<ScreenRow>();
    row->screen.setObjectName(QStringLiteral("screen"));
    row->screen.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
    auto* layout = new QHBoxLayout(&row->screen);
    layout->setSpacing(10);
    row->span->setSplitByCSV(true);
    row->span->setColumnHeading(QStringLiteral("Span,Resolution"));
    row->span->setColumnWidths(QStringLiteral("50,50"));
    row->detector->setColumnHeading(QStringLiteral("Detector"));
    row->markers->setColumnCount(2);
    row->markers->setRowCount(3);
    row->markers->setHorizontalHeaderLabels({QStringLiteral("Marker"), QStringLiteral("Level")});
    for (int r = 0; r < 3; ++r) {
        row->markers->setItem(r, 0, new QTableWidgetItem(QStringLiteral("M%1").arg(r + 1)));
        row->markers->setItem(r, 1, new QTableWidgetItem(QStringLiteral("-%1.4 dBm").arg(21 + 16 * r)));
    }
    layout->addWidget(row->span);
    layout->addWidget(row->detector);
    layout->addWidget(row->markers);
    row->screen.resize(800, 380);
    row->screen.show();
    if (!QTest::qWaitForWindowExposed(&row->screen))
        return nullptr;
    bind(*row->span, "Mode");
    bind(*row->detector, "Detector");
    bind(*row->detector, "Filter");
    row->detector->setColumnHeading(QStringLiteral("Averaging"), 1);
    viewOf(*row->span)->changeSize(size);
    viewOf(*row->detector)->changeSize(size);
    row->markers->changeSize(size);
    row->views = {viewOf(*row->span), viewOf(*row->detector), row->markers};
    // Bound, sized and refitted.
    QTest::qWait(100);
    return row;
}

void TestTables::screenRowColumnsEndLeftOfTheScrollBar()
{
    QFETCH(QString, size);
    const std::unique_ptr<ScreenRow> row = screenRow(size);
    QVERIFY(row);
    for (const QTableView* view : qAsConst(row->views)) {
        // Shared out, the room is filled but for what the rounding leaves.
        QVERIFY(columnsRightEdge(view) >= view->viewport()->width() - view->model()->columnCount());
        QVERIFY2(columnsRightEdge(view) <= view->viewport()->width(),
                 qPrintable(QStringLiteral("%1: columns end at %2, the scroll bar starts at %3")
                                .arg(QLatin1String((qobject_cast<const TableViewImpl*>(view) ? view->parentWidget() : view)->metaObject()->className()))
                                .arg(columnsRightEdge(view))
                                .arg(view->viewport()->width())));
    }
}

void TestTables::screenRowShowsEveryTextWhole()
{
    QFETCH(QString, size);
    const std::unique_ptr<ScreenRow> row = screenRow(size);
    QVERIFY(row);
    QTRY_COMPARE(row->cutAnywhere(), QString());
    TestSupport::savePng(&row->screen, QStringLiteral("tables_row_") + size.toLower());

    // A longer list refits the table that shows it.
    m_engine->setEnumEntries("Filter", entries({{0, "Off"}, {1, "4 sweeps"}, {2, "256 sweeps"}}));
    QTRY_COMPARE(cellText(*row->detector, 2, 1), QStringLiteral("256 sweeps"));
    QTRY_COMPARE(row->cutAnywhere(), QString());
    QVERIFY(columnsRightEdge(viewOf(*row->detector)) <= viewOf(*row->detector)->viewport()->width());
}

void TestTables::wideTableScrollsSideways()
{
    QWidget screen;
    screen.setObjectName(QStringLiteral("screen"));
    screen.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
    screen.resize(320, 220);
    TableImpl& table = *new TableImpl(&screen);
    table.setColumnCount(6);
    table.setRowCount(2);
    for (int c = 0; c < 6; ++c) {
        table.setHorizontalHeaderItem(c, new QTableWidgetItem(QStringLiteral("Trace %1").arg(c + 1)));
        for (int r = 0; r < 2; ++r)
            table.setItem(r, c, new QTableWidgetItem(QStringLiteral("-10%1.5 dBm").arg(c)));
    }
    table.setGeometry(10, 10, 300, 200);
    screen.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen));
    QTRY_COMPARE(cutTexts(&table).join(QLatin1String(" | ")), QString());
    QTRY_VERIFY(table.horizontalScrollBar()->maximum() > 0);
    TestSupport::savePng(&screen, QStringLiteral("tables_wide"));
}

void TestTables::multiColumnsStayRowAligned()
{
    TableEnumMulti table;
    table.resize(400, 240);
    table.bindAttribute(m_engine->attribute("Band"));
    table.bindAttribute(m_engine->attribute("Filter"));
    table.bindAttribute(m_engine->attribute("Detector"));
    QTest::qWait(500);
    QStandardItemModel* model = qobject_cast<QStandardItemModel*>(viewOf(table)->model());
    QCOMPARE(model->columnCount(), 3);
    QCOMPARE(model->rowCount(), 4);
    QCOMPARE(table.getMaxParamLength(), 4);
    QCOMPARE(model->item(1, 0)->text(), QStringLiteral("High"));
    QCOMPARE(model->item(1, 1)->text(), QStringLiteral("Mid"));
    QCOMPARE(model->item(1, 2)->text(), QStringLiteral("RMS"));
    QCOMPARE(model->item(3, 0), nullptr);
    QCOMPARE(model->item(3, 2), nullptr);
    QCOMPARE(table.getLiteral(7, 1), QStringLiteral("Wide"));

    // A sample of one column moves the one selected row.
    m_engine->setValue("Filter", std::int64_t(7));
    QTRY_COMPARE(selectedRow(table), 2);

    // Row 3 exists only in the Filter column: one set, to that column alone.
    QSignalSpy changes(&table, &TableEnumMulti::valueChanged);
    const unsigned band = m_engine->setCount("Band");
    const unsigned filter = m_engine->setCount("Filter");
    const unsigned detector = m_engine->setCount("Detector");
    touchRow(table, 3);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.first().at(0).toLongLong(), 1LL);
    QCOMPARE(m_engine->setCount("Band"), band);
    QCOMPARE(m_engine->setCount("Filter"), filter + 1);
    QCOMPARE(m_engine->setCount("Detector"), detector);
    QCOMPARE(std::get<std::int64_t>(*m_engine->lastSetValue("Filter")), std::int64_t(8));

    touchRow(table, 1);
    QCOMPARE(m_engine->setCount("Band"), band + 1);
    QCOMPARE(m_engine->setCount("Filter"), filter + 2);
    QCOMPARE(m_engine->setCount("Detector"), detector + 1);
}

void TestTables::multiParamsSampleRefillsItsColumn()
{
    TableEnumMulti table;
    table.bindAttribute(m_engine->attribute("Band"));
    table.bindAttribute(m_engine->attribute("Detector"));
    table.setColumnHeading(QStringLiteral("Band"));
    table.setColumnHeading(QStringLiteral("Detector"), 1);
    QTest::qWait(500);
    QStandardItemModel* model = qobject_cast<QStandardItemModel*>(viewOf(table)->model());
    QCOMPARE(model->rowCount(), 3);

    m_engine->setEnumEntries("Band", entries({{1, "Low"}, {2, "High"}, {3, "Ultra"}, {4, "Extreme"}, {5, "Max"}}));
    QTRY_COMPARE(model->rowCount(), 5);
    QCOMPARE(model->item(4, 0)->text(), QStringLiteral("Max"));
    QCOMPARE(model->item(2, 1)->text(), QStringLiteral("Average"));
    QCOMPARE(model->item(3, 1), nullptr);

    m_engine->setEnumEntries("Band", entries({{1, "Low"}}));
    QTRY_COMPARE(model->rowCount(), 3);
    QCOMPARE(model->item(1, 0), nullptr);
    QCOMPARE(table.getColumnHeading(1), QStringLiteral("Detector"));
    QCOMPARE(table.getColumnHeading(), QStringLiteral("Band"));
}

void TestTables::tablesAreSmallAndNamed()
{
    TableImpl table;
    TableViewImpl view;
    QCOMPARE(table.sizeHint(), QSize(75, 75));
    QCOMPARE(table.minimumSizeHint(), QSize(75, 75));
    QCOMPARE(view.sizeHint(), QSize(75, 75));
    QCOMPARE(view.minimumSizeHint(), QSize(75, 75));
    QCOMPARE(table.objectName(), QStringLiteral("RuvellTable"));
    QCOMPARE(view.objectName(), QStringLiteral("RuvellTableView"));
    QVERIFY(qobject_cast<Kelvane::gui::VerticalScrollBarImpl*>(table.verticalScrollBar()));
    QVERIFY(qobject_cast<Kelvane::gui::HorizontalScrollBarImpl*>(view.horizontalScrollBar()));
}

void TestTables::sizeWordsChooseTheSheet()
{
    for (QAbstractItemView* table : std::initializer_list<QAbstractItemView*>{new TableImpl, new TableViewImpl}) {
        QScopedPointer<QAbstractItemView> owner(table);
        const QString max = table->styleSheet();
        QVERIFY(QMetaObject::invokeMethod(table, "changeSize", Q_ARG(QString, QStringLiteral("Min"))));
        const QString min = table->styleSheet();
        QVERIFY(min != max);
        QVERIFY(QMetaObject::invokeMethod(table, "changeSize", Q_ARG(QString, QStringLiteral("Thumb"))));
        QCOMPARE(table->styleSheet(), min);
        QVERIFY(QMetaObject::invokeMethod(table, "changeSize", Q_ARG(QString, QStringLiteral("Max"))));
        QCOMPARE(table->styleSheet(), max);
    }
}

void TestTables::scrollBarStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("barStyle");
    QTest::newRow("default leaves the bars") << int(TableImpl::RV_DEFAULT) << int(ScrollBarImpl::Default);
    QTest::newRow("with scroll arrows") << int(TableImpl::WITH_SCROLL_ARROWS) << int(ScrollBarImpl::Thin);
}

void TestTables::scrollBarStyle()
{
    QFETCH(int, style);
    QFETCH(int, barStyle);
    TableImpl table;
    QVERIFY(table.setProperty("ScrollBarStyle", style));
    QCOMPARE(int(table.getScrollBarStyle()), style);
    for (QScrollBar* bar : {table.verticalScrollBar(), table.horizontalScrollBar()})
        QCOMPARE(int(qobject_cast<ScrollBarImpl*>(bar)->scrollBarStyle()), barStyle);
}

void TestTables::cellTouchSelectsTheWholeRow()
{
    TableImpl table;
    table.setRowCount(3);
    table.setColumnCount(3);
    table.onCellClicked(1, 1);
    QCOMPARE(table.selectionModel()->selectedIndexes().size(), 3);
    for (const QModelIndex& index : table.selectionModel()->selectedIndexes())
        QCOMPARE(index.row(), 1);
    QCOMPARE(table.currentColumn(), 1);
}

void TestTables::releaseOutsideCellsEmitsNothing()
{
    QStandardItemModel model(2, 1);
    TableViewImpl view;
    view.setModel(&model);
    view.resize(200, 200);
    QSignalSpy highlights(&view, &TableViewImpl::highlightChanged);
    QSignalSpy presses(&view, &TableViewImpl::mousePressed);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 150));
    QCOMPARE(highlights.count(), 0);
    QCOMPARE(presses.count(), 0);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, view.visualRect(model.index(1, 0)).center());
    QCOMPARE(highlights.count(), 1);
    QCOMPARE(presses.count(), 1);
}

void TestTables::looks()
{
    for (const QString& size : {QStringLiteral("Max"), QStringLiteral("Min")}) {
        QWidget screen;
        screen.setObjectName(QStringLiteral("screen"));
        screen.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
        screen.resize(960, 260);

        auto* table = new TableImpl(&screen);
        table->setGeometry(10, 10, 300, 240);
        table->setColumnCount(2);
        table->setRowCount(6);
        table->setHorizontalHeaderLabels({QStringLiteral("Marker"), QStringLiteral("Level")});
        for (int r = 0; r < 6; ++r) {
            table->setItem(r, 0, new QTableWidgetItem(QStringLiteral("M%1").arg(r + 1)));
            table->setItem(r, 1, new QTableWidgetItem(QStringLiteral("-%1.5 dBm").arg(20 + r)));
        }
        table->onCellClicked(2, 1);
        table->changeSize(size);

        auto* enumTable = new TableEnum(&screen);
        enumTable->setGeometry(320, 10, 300, 240);
        enumTable->setSplitByCSV(true);
        enumTable->setColumnHeading(QStringLiteral("Mode,Span"));
        enumTable->setColumnWidths(QStringLiteral("50,50"));
        m_engine->setEnumEntries("Mode", entries({{10, "Alpha,1 MHz"}, {20, "Beta,2 MHz"}, {30, "Gamma,5 MHz"}}));
        enumTable->bindAttribute(m_engine->attribute("Mode"));
        viewOf(*enumTable)->changeSize(size);

        auto* multi = new TableEnumMulti(&screen);
        multi->setGeometry(630, 10, 320, 240);
        multi->bindAttribute(m_engine->attribute("Band"));
        multi->bindAttribute(m_engine->attribute("Filter"));
        multi->setColumnHeading(QStringLiteral("Band"));
        multi->setColumnHeading(QStringLiteral("Filter"), 1);
        viewOf(*multi)->changeSize(size);

        screen.show();
        QTest::qWait(50);
        const QImage image = TestSupport::savePng(&screen, QStringLiteral("tables_") + size.toLower());
        QVERIFY(!image.isNull());
    }
}

RV_TEST_MAIN_BOUNDED_EXIT(TestTables, QApplication)
#include "tst_tables.moc"
