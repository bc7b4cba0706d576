// ComboBoxImpl and its drop-down: the list and value against the simulated
// engine, touches on the strip, the unbound selector's API, and the lines
// it writes to the log.
#define QTEST_QPA_MOUSE_HANDLING // touches travel through the window, as a finger's do

#include "BoundedExit.h"
#include "CollectionEntry.h"
#include "ComboBoxImpl.h"
#include "ComboBoxItemImpl.h"
#include "ComboBoxListImpl.h"
#include "GlobalImpl.h"
#include "SimEngine.h"
#include "SystemModule.h"
#include "TestSupport.h"

#include <Brenmoor.hh>

#include <QLabel>
#include <QMutex>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {

using Rows = QList<ComboBoxListStruct>;

const std::vector<SimEnumEntry> modeEntries{{1, "Low", true}, {2, "Mid", true}, {3, "High", false}, {4, "Auto", true}};

QList<ComboBoxItemImpl*> itemsOf(ComboBoxImpl& combo)
{
    return combo.listWidget()->findChildren<ComboBoxItemImpl*>();
}

ComboBoxItemImpl* itemFor(ComboBoxImpl& combo, long value)
{
    for (ComboBoxItemImpl* item : itemsOf(combo)) {
        if (item->getIndex() == value)
            return item;
    }
    return nullptr;
}

QStringList textsOf(const Rows& rows)
{
    QStringList texts;
    for (const ComboBoxListStruct& row : rows)
        texts << row.text;
    return texts;
}

Rows numberedRows(int count)
{
    Rows rows;
    for (int i = 0; i < count; ++i)
        rows.append(ComboBoxListStruct(i, QStringLiteral("Choice %1").arg(i), true));
    return rows;
}

// The last texts a field showed, oldest first.
QStringList lastOf(const QStringList& shown, int count)
{
    return shown.mid(qMax(0, shown.size() - count));
}

QFrame* stripOf(ComboBoxImpl& combo) { return combo.listWidget()->findChild<QFrame*>(QStringLiteral("dropdown")); }

// Every log line while it lives, from any thread: sends log on a worker.
class LogCapture
{
public:
    LogCapture()
    {
        s_capture = this;
        m_previous = qInstallMessageHandler(collect);
    }
    ~LogCapture()
    {
        qInstallMessageHandler(m_previous);
        s_capture = nullptr;
    }
    QStringList lines() const
    {
        QMutexLocker lock(&m_mutex);
        return m_lines;
    }

private:
    static void collect(QtMsgType type, const QMessageLogContext& context, const QString& message)
    {
        {
            QMutexLocker lock(&s_capture->m_mutex);
            s_capture->m_lines << message;
        }
        s_capture->m_previous(type, context, message);
    }

    static LogCapture* s_capture;
    QtMessageHandler m_previous = nullptr;
    mutable QMutex m_mutex;
    QStringList m_lines;
};

LogCapture* LogCapture::s_capture = nullptr;

} // namespace

class TestComboBox : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void listFetchedOnBindAndAgainOnParamsSample();
    void choiceReachesTheEngineAndComesBack();
    void disabledEntryIsRefused();
    void pressBesideTheStripClosesWithoutChoice();
    void refusedSendFetchesListAndValueAgain();
    void transportFailureReleasesTheMechanism();
    void wrongInterfaceIsLogged();
    void refusedSendIsLogged();
    void dragVersusTap_data();
    void dragVersusTap();
    void openedStripLinesUpWithTheField();
    void readOnlyOpens_data();
    void readOnlyOpens();
    void localSelector();
    void unknownValue_data();
    void unknownValue();
    void designerSample();
    void looks();

private:
    std::unique_ptr<ComboBoxImpl> makeCombo(bool embedded = false)
    {
        auto combo = std::make_unique<ComboBoxImpl>(embedded, &m_mainWindow);
        combo->setGeometry(40, 120, 180, 60);
        combo->show();
        return combo;
    }
    void bind(ComboBoxImpl& combo)
    {
        combo.setAttributeName(QStringLiteral("Mode"));
        combo.bindAttribute(m_engine->attribute("Mode"));
        QTest::qWait(500); // readers match the engine's writers
    }
    QWindow* window() { return m_mainWindow.windowHandle(); }
    QPoint centreOf(QWidget* widget) { return widget->mapTo(&m_mainWindow, widget->rect().center()); }
    void open(ComboBoxImpl& combo) { QTest::mouseClick(window(), Qt::LeftButton, {}, centreOf(&combo)); }
    void tap(QWidget* widget) { QTest::mouseClick(window(), Qt::LeftButton, {}, centreOf(widget)); }

    std::unique_ptr<SimEngine> m_engine;
    QWidget m_mainWindow;
};

void TestComboBox::initTestCase()
{
    m_engine = std::make_unique<SimEngine>();
    SimAttributeSetup setup;
    setup.name = "Mode";
    setup.kind = SimKind::AttribEnum;
    setup.value = std::int64_t{1};
    setup.enumEntries = modeEntries;
    m_engine->addAttribute(setup);
    SimAttributeSetup power;
    power.name = "Power";
    power.kind = SimKind::AttribBoolean;
    power.value = true;
    m_engine->addAttribute(power);

    m_mainWindow.setObjectName(QStringLiteral("MainWindow"));
    m_mainWindow.setStyleSheet(QStringLiteral("QWidget#MainWindow { background-color: #101418; }"));
    m_mainWindow.resize(640, 480);
    GlobalImpl::getInstance()->systemModule()->addSystemScreen(QStringLiteral("MainWindow"), &m_mainWindow);
    m_mainWindow.show();
    QVERIFY(QTest::qWaitForWindowExposed(&m_mainWindow));
}

void TestComboBox::init()
{
    m_engine->setEnumEntries("Mode", modeEntries);
    m_engine->setValue("Mode", std::int64_t{1});
}

void TestComboBox::cleanup()
{
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
}

void TestComboBox::listFetchedOnBindAndAgainOnParamsSample()
{
    auto combo = makeCombo();
    bind(*combo);
    QCOMPARE(textsOf(combo->getList()), (QStringList{"Low", "Mid", "High", "Auto"}));
    QCOMPARE(combo->getList().at(2).enabled, false);
    QCOMPARE(combo->getValueField()->text(), QStringLiteral("Low"));

    m_engine->setEnumEntries("Mode", {{1, "Slow", true}, {5, "Fast", true}});
    QTRY_COMPARE(textsOf(combo->getList()), (QStringList{"Slow", "Fast"}));
    QCOMPARE(combo->getValueField()->text(), QStringLiteral("Slow"));
    QCOMPARE(itemsOf(*combo).size(), 2);
}

void TestComboBox::choiceReachesTheEngineAndComesBack()
{
    auto combo = makeCombo();
    bind(*combo);
    // Recorded on this thread: the engine's sample may be shown, and announced from
    // a Fast DDS thread, before the tap's own event processing has returned.
    QObject receiver;
    QStringList shown;
    connect(combo.get(), &ComboBoxImpl::currentIndexChanged, &receiver,
            [&] { shown << combo->getValueField()->text(); });
    QList<long> announced;
    connect(combo.get(), &ComboBoxImpl::updateEnum, &receiver, [&](long value) { announced << value; });
    open(*combo);
    QVERIFY(combo->listWidget()->isVisible());
    QCOMPARE(combo->listWidget()->parentWidget(), &m_mainWindow);
    QPointer<ComboBoxItemImpl> auto4 = itemFor(*combo, 4);
    QVERIFY(auto4);
    shown.clear();

    tap(auto4);
    QVERIFY(!combo->listWidget()->isVisible());
    // Until the engine confirms, the field shows the engine's value; then the choice.
    QTRY_COMPARE(lastOf(shown, 2), (QStringList{"Low", "Auto"}));
    QCOMPARE(combo->getValueField()->text(), QStringLiteral("Auto"));
    QCOMPARE(std::get<std::int64_t>(*m_engine->lastSetValue("Mode")), std::int64_t{4});
    QCOMPARE(combo->getEnum(), 4L);
    QTRY_COMPARE(announced, (QList<long>{4}));
    // An accepted choice needs no fresh list.
    QVERIFY(auto4);
}

void TestComboBox::disabledEntryIsRefused()
{
    auto combo = makeCombo();
    bind(*combo);
    QSignalSpy submits(combo->listWidget(), &ComboBoxListImpl::submit);
    const unsigned sets = m_engine->setCount("Mode");
    open(*combo);
    tap(itemFor(*combo, 3));
    QTest::qWait(200);
    QCOMPARE(submits.count(), 0);
    QCOMPARE(m_engine->setCount("Mode"), sets);
    QVERIFY(combo->listWidget()->isVisible());
    QCOMPARE(combo->getEnum(), 1L);
    combo->closeInput();
}

void TestComboBox::pressBesideTheStripClosesWithoutChoice()
{
    auto combo = makeCombo();
    bind(*combo);
    QSignalSpy submits(combo->listWidget(), &ComboBoxListImpl::submit);
    const unsigned sets = m_engine->setCount("Mode");
    open(*combo);
    QVERIFY(combo->listWidget()->isVisible());
    QTest::mouseClick(window(), Qt::LeftButton, {}, QPoint(620, 470));
    QVERIFY(!combo->listWidget()->isVisible());
    QTest::qWait(200);
    QCOMPARE(submits.count(), 0);
    QCOMPARE(m_engine->setCount("Mode"), sets);
}

void TestComboBox::refusedSendFetchesListAndValueAgain()
{
    auto combo = makeCombo();
    bind(*combo);
    SimFailure failure;
    failure.kind = SimFailure::Kind::Locked;
    m_engine->failNextSet("Mode", 1, failure);
    open(*combo);
    QPointer<ComboBoxItemImpl> mid = itemFor(*combo, 2);
    tap(mid);
    // A fresh list replaces every row, and the engine's value is shown.
    QTRY_VERIFY(mid.isNull());
    QCOMPARE(itemsOf(*combo).size(), 4);
    QCOMPARE(combo->getEnum(), 1L);
    QCOMPARE(combo->getValueField()->text(), QStringLiteral("Low"));
    QVERIFY(!combo->isEngineLinkLost());
}

void TestComboBox::transportFailureReleasesTheMechanism()
{
    auto combo = makeCombo();
    bind(*combo);
    SimFailure failure;
    failure.kind = SimFailure::Kind::Transient;
    m_engine->failNextSet("Mode", 1, failure);
    open(*combo);
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), combo.get());

    tap(itemFor(*combo, 2));

    QTRY_VERIFY(combo->isEngineLinkLost());
    QTRY_COMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
    QVERIFY(!combo->listWidget()->isVisible());
}

void TestComboBox::wrongInterfaceIsLogged()
{
    const LogCapture log;
    ComboBoxImpl combo(false, &m_mainWindow);
    combo.setAttributeName(QStringLiteral("Power"));
    combo.bindAttribute(m_engine->attribute("Power"));
    const QString line
        = QStringLiteral("UserInterface - >>>>>Expected Enumeration type but received: EngineAttribBoolean (Power)");
    QVERIFY(log.lines().contains(line));
    QCOMPARE(combo.getList().size(), 0);
}

void TestComboBox::refusedSendIsLogged()
{
    const LogCapture log;
    auto combo = makeCombo();
    bind(*combo);
    SimFailure failure;
    failure.kind = SimFailure::Kind::Locked;
    m_engine->failNextSet("Mode", 1, failure);
    open(*combo);
    tap(itemFor(*combo, 2));
    const QString line
        = QStringLiteral("UserInterface - ENUM: \"Mode\" @ \"MainWindow\" threw exception while sending: 2");
    QTRY_VERIFY(log.lines().contains(line));
}

void TestComboBox::dragVersusTap_data()
{
    QTest::addColumn<QList<int>>("travel"); // finger positions after the press, upwards
    QTest::addColumn<bool>("chooses");
    QTest::newRow("still tap") << QList<int>{} << true;
    QTest::newRow("19 px wobble is a tap") << QList<int>{-10, -19} << true;
    QTest::newRow("20 px is a drag") << QList<int>{-20} << false;
    QTest::newRow("long drag") << QList<int>{-40, -120} << false;
    QTest::newRow("drag and back is still a drag") << QList<int>{-60, -5} << false;
}

void TestComboBox::dragVersusTap()
{
    QFETCH(QList<int>, travel);
    QFETCH(bool, chooses);
    auto combo = makeCombo();
    combo->setList(numberedRows(30), 0);
    QSignalSpy updates(combo.get(), &ComboBoxImpl::updateEnum);
    open(*combo);
    QFrame* strip = stripOf(*combo);
    const int stripTop = strip->y();
    const QPoint start = centreOf(itemFor(*combo, 2));

    QTest::mousePress(window(), Qt::LeftButton, {}, start);
    for (int dy : travel) {
        QTest::mouseMove(window(), start + QPoint(0, dy));
        // Below the threshold the strip never moves; beyond it, it follows the finger.
        if (chooses)
            QCOMPARE(strip->y(), stripTop);
        else
            QCOMPARE(strip->y(), stripTop + dy);
    }
    const int end = travel.isEmpty() ? 0 : travel.last();
    QTest::mouseRelease(window(), Qt::LeftButton, {}, start + QPoint(0, end));

    QCOMPARE(updates.count(), chooses ? 1 : 0);
    QCOMPARE(combo->listWidget()->isVisible(), !chooses);
    if (chooses) {
        QCOMPARE(combo->getEnum(), 2L);
        return;
    }
    QCOMPARE(combo->getEnum(), 0L);
    // The strip stays where the finger left it, and the next touch starts there.
    QCOMPARE(strip->y(), stripTop + end);
    tap(itemFor(*combo, 5));
    QCOMPARE(combo->getEnum(), 5L);
}

void TestComboBox::openedStripLinesUpWithTheField()
{
    auto combo = makeCombo();
    combo->setList(numberedRows(6), 3);
    open(*combo);
    ComboBoxListImpl* list = combo->listWidget();
    QCOMPARE(list->geometry(), m_mainWindow.rect());
    QLabel* field = combo->getValueField();
    const QPoint fieldTop = field->mapTo(&m_mainWindow, QPoint(0, 0));
    const QRect selected(itemFor(*combo, 3)->mapTo(&m_mainWindow, QPoint(0, 0)), itemFor(*combo, 3)->size());
    QCOMPARE(selected.top(), fieldTop.y());
    // The strip overlaps the field's right edge.
    QCOMPARE(stripOf(*combo)->x(), list->getGeometry().right() - 3);

    // Dragged down as far as a finger goes, a strip that fits overhangs the screen's top by 2 at most.
    QTest::mousePress(window(), Qt::LeftButton, {}, centreOf(itemFor(*combo, 3)));
    QTest::mouseMove(window(), centreOf(itemFor(*combo, 3)) + QPoint(0, 400));
    QTest::mouseRelease(window(), Qt::LeftButton, {}, centreOf(itemFor(*combo, 3)));
    QVERIFY(stripOf(*combo)->y() >= -2);
    QVERIFY(stripOf(*combo)->geometry().bottom() <= m_mainWindow.height() + 2);
    combo->closeInput();
}

void TestComboBox::readOnlyOpens_data()
{
    QTest::addColumn<bool>("embedded");
    QTest::newRow("stand-alone stays closed") << false;
    QTest::newRow("embedded opens") << true;
}

void TestComboBox::readOnlyOpens()
{
    QFETCH(bool, embedded);
    auto combo = makeCombo(embedded);
    combo->setList(numberedRows(3), 1);
    combo->setReadOnly(true);
    open(*combo);
    QCOMPARE(combo->listWidget()->isVisible(), embedded);
    combo->closeInput();
}

void TestComboBox::localSelector()
{
    ComboBoxImpl units(true, &m_mainWindow);
    QSignalSpy updates(&units, &ComboBoxImpl::updateEnum);
    QSignalSpy indexes(&units, &ComboBoxImpl::currentIndexChanged);
    units.setList({{0, QStringLiteral("Hz"), true}, {3, QStringLiteral("kHz"), true}, {6, QStringLiteral("MHz"), true}},
                  3);
    QCOMPARE(units.getText(), QStringLiteral("kHz"));
    QCOMPARE(units.getValueField()->text(), QStringLiteral("kHz"));
    units.setText(QStringLiteral("MHz"));
    QCOMPARE(units.getEnum(), 6L);
    units.setEnum(0);
    QCOMPARE(units.getText(), QStringLiteral("Hz"));
    QCOMPARE(indexes.last().first().toInt(), 0);
    QCOMPARE(updates.count(), 0); // only a choice is announced

    units.submit(3);
    QCOMPARE(updates.count(), 1);
    QCOMPARE(updates.first().first().toLongLong(), 3LL);

    units.setList({}, 0);
    QCOMPARE(units.getValueField()->text(), QString());
    QCOMPARE(units.getEnum(), -1L);
}

void TestComboBox::unknownValue_data()
{
    QTest::addColumn<bool>("embedded");
    QTest::addColumn<long>("shown");
    QTest::newRow("stand-alone falls back to row 0") << false << 0L;
    QTest::newRow("embedded keeps its row") << true << 2L;
}

void TestComboBox::unknownValue()
{
    QFETCH(bool, embedded);
    QFETCH(long, shown);
    ComboBoxImpl combo(embedded);
    combo.setList(numberedRows(4), 2);
    QSignalSpy requests(combo.listWidget(), &ComboBoxListImpl::requestList);
    combo.setEnum(99);
    // The first miss asks for a fresh list; the row stays until the second.
    QCOMPARE(combo.getEnum(), 2L);
    QCOMPARE(requests.count(), embedded ? 0 : 1);
    combo.setEnum(99);
    QCOMPARE(combo.getEnum(), shown);
}

void TestComboBox::designerSample()
{
    const auto& rows = collectionRows();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [](const CollectionRow& r) { return QLatin1String(r.name) == "ComboBoxImpl"; });
    QVERIFY(row != rows.end());
    QVERIFY(row->isRegistered());
    std::unique_ptr<QWidget> widget(row->createWidget(nullptr));
    auto* combo = qobject_cast<ComboBoxImpl*>(widget.get());
    QVERIFY(combo);
    QCOMPARE(textsOf(combo->getList()), (QStringList{"ENUM 01", "ENUM 02", "ENUM 04"}));
    QCOMPARE(combo->getEnum(), 1L);
    QCOMPARE(combo->getValueField()->text(), QStringLiteral("ENUM 01"));
}

void TestComboBox::looks()
{
    QWidget screen;
    screen.setObjectName(QStringLiteral("screen"));
    screen.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
    screen.resize(900, 110);
    const QStringList sizes{QStringLiteral("Min"), QStringLiteral("Max"), QStringLiteral("Thumb")};
    for (int i = 0; i < 5; ++i) {
        auto* combo = new ComboBoxImpl(i == 3, &screen);
        combo->setLabel(i < 3 ? sizes.at(i) : i == 3 ? QStringLiteral("Embedded") : QStringLiteral("Read-only"));
        combo->setList(numberedRows(3), 1);
        combo->changeSize(sizes.value(i, QStringLiteral("Max")));
        if (i == 4)
            combo->setReadOnly(true);
        combo->setGeometry(8 + i * 178, 10, 170, 90);
    }
    QVERIFY(!TestSupport::savePng(&screen, QStringLiteral("combobox_sizes")).isNull());

    auto combo = makeCombo();
    combo->changeSize(QStringLiteral("Max"));
    combo->setLabel(QStringLiteral("Mode"));
    Rows rows = numberedRows(7);
    rows[4].enabled = false;
    combo->setList(rows, 2);
    open(*combo);
    QVERIFY(!TestSupport::savePng(&m_mainWindow, QStringLiteral("combobox_open")).isNull());
    combo->closeInput();
}

RV_TEST_MAIN_BOUNDED_EXIT(TestComboBox, QApplication)
#include "tst_combobox.moc"
