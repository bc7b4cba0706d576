// NumericEntryImpl: the road of one change from a touch through the keypad
// to the engine and back, in-process and against an engine process; the
// unit list and its filter; the units a field follows and sends in; the
// texts a field shows; where the keypad opens.
#include "BoundedExit.h"
#include "ComboBoxImpl.h"
#include "EntryPlacement.h"
#include "GlobalImpl.h"
#include "NumericEntryImpl.h"
#include "NumericUnits.h"
#include "NumpadEntryImpl.h"
#include "QRVStatusBar.h"
#include "SimEngine.h"
#include "SimEngineProcess.h"
#include "SystemModule.h"
#include "TestSupport.h"
#include "UnitDescriptions.h"
#include "ValueHelper.h"

#include <Brenmoor.hh>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryFile>
#include <QtTest>

#include <algorithm>

using Kelvane::Value::Units;
namespace Described = Kelvane::Value::UnitDescriptions;

namespace {

const QString frequencyUnits = QStringLiteral("0,0,0:Hz;;;;|0,3,0:Hz;;;;|0,6,0:Hz;;;;|0,9,0:Hz;;;;");
const QString powerUnits = QStringLiteral("10,0,-3:W;;;;|0,-3,0:W;;;;|0,0,0:V;;;;");

SimAttributeSetup attribute(const char* name, SimKind kind, SimValue value, std::optional<SimLimits> limits = {},
                            SimUnits units = {})
{
    SimAttributeSetup setup;
    setup.name = name;
    setup.kind = kind;
    setup.value = std::move(value);
    setup.limits = limits;
    setup.units = std::move(units);
    return setup;
}

QLineEdit* boxOf(NumericEntryImpl& field) { return field.findChild<QLineEdit*>(); }

// A touch on the value box, which is disabled and so lets the field take it.
void touch(NumericEntryImpl& field)
{
    const QPoint centre = boxOf(field)->geometry().center();
    QTest::mousePress(&field, Qt::LeftButton, Qt::NoModifier, centre);
    QTest::mouseRelease(&field, Qt::LeftButton, Qt::NoModifier, centre);
}

void press(NumpadEntryImpl* pad, const QString& key)
{
    QPushButton* button = pad->getButton(key);
    QVERIFY2(button, qPrintable(key));
    button->click();
}

// Touch, type, and end with a unit key (or "enter").
void typeIn(NumericEntryImpl& field, const QStringList& keys, const QString& unitKey)
{
    touch(field);
    QVERIFY(field.numpadWidget()->isVisible());
    for (const QString& key : keys)
        press(field.numpadWidget(), key);
    press(field.numpadWidget(), unitKey);
}

// The width a label leaves its text: QLabel sets a text inside a frame off
// by half an "x" of its font unless it is told an indent.
int textRoom(const QLabel* label)
{
    int indent = label->indent();
    if (indent < 0)
        indent = label->frameWidth() > 0 ? label->fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2 - label->margin() : 0;
    return label->contentsRect().width() - 2 * label->margin() - std::max(indent, 0);
}

Units unitOf(const char* description) { return ValueHelper::convertToUnits(QString::fromLatin1(description)); }
QString labelOf(const Units& unit) { return ValueHelper::getUnitString(unit); }

// A field whose own rule lets every unit stand for every other.
class AnyUnitField : public NumericEntryImpl
{
public:
    using NumericEntryImpl::NumericEntryImpl;

protected:
    bool baseUnitsMatch(const Units&, const Units&) const override { return true; }
};

} // namespace

class TestNumericEntry : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void roadOfOneChange();
    void roadOfOneChangeThroughAnEngineProcess();
    void refusedValueRestoresTheText();
    void sampleReplacesTextWhileTheKeypadIsOpen();
    void cancelSendsTheSavedValue();
    void decibelFieldShowsMilliwatt();
    void hexFieldShowsAndSendsHex();
    void meterReadingTexts();
    void everyInterfaceShowsItsValue_data();
    void everyInterfaceShowsItsValue();
    void unknownInterfaceBindsToNothing();
    void unitListAndFilter();
    void unitsFollowTheEngine_data();
    void unitsFollowTheEngine();
    void unitsOfASendAndABroadcast();
    void unitSelectorFitsItsWidestUnit_data();
    void unitSelectorFitsItsWidestUnit();
    void textsAndSignals_data();
    void textsAndSignals();
    void enableStates();
    void secondFieldWaitsForTheFirst();
    void placement_data();
    void placement();
    void keypadOfAFieldOnAnotherWindow_data();
    void keypadOfAFieldOnAnotherWindow();
    void transportFailureReleasesTheMechanism_data();
    void transportFailureReleasesTheMechanism();
    void newLimitsReachTheArrowsInTheShownUnit();
    void secondEnterBeforeTheSample_data();
    void secondEnterBeforeTheSample();
    void looks();

private:
    void bind(NumericEntryImpl& field, const char* name)
    {
        field.setAttributeName(QString::fromLatin1(name));
        field.bindAttribute(m_engine->attribute(name));
        QTest::qWait(500);
    }
    NumericEntryImpl* frequencyField();
    //! The engine's last set value of \a name; none yet gives -1.
    template<class T>
    T lastSet(const char* name) const
    {
        const std::optional<SimValue> value = m_engine->lastSetValue(name);
        return value && std::holds_alternative<T>(*value) ? std::get<T>(*value) : T(-1);
    }

    std::unique_ptr<SimEngine> m_engine;
    QWidget* m_screen = nullptr;
    QRVStatusBar* m_statusBar = nullptr;
};

void TestNumericEntry::initTestCase()
{
    m_screen = new QWidget;
    m_screen->resize(800, 480);
    m_screen->setObjectName(QStringLiteral("screen"));
    m_screen->setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
    GlobalImpl::getInstance()->systemModule()->addSystemScreen(QStringLiteral("MainWindow"), m_screen);
    m_screen->show();
    m_statusBar = new QRVStatusBar;
    GlobalImpl::getInstance()->setStatusBar(m_statusBar);

    m_engine = std::make_unique<SimEngine>();
    m_engine->addAttribute(attribute("Center", SimKind::AttribValueDouble, 1e9, SimLimits{1e3, 6e9, 1},
                                     {"0,0,0", "Hz;;;;"}));
    m_engine->addAttribute(attribute("RefLevel", SimKind::AttribValueDouble, 0.0, SimLimits{-100, 30, 1},
                                     {"10,0,-3", "W;;;;"}));
    m_engine->addAttribute(attribute("Register", SimKind::AttribLong, std::int64_t{255}, SimLimits{0, 65535, 1}));
    m_engine->addAttribute(attribute("Meter", SimKind::ReadingMeterReading, -20.0, SimLimits{-80, 0, 1},
                                     {"10,0,-3", "W;;;;"}));
    m_engine->addAttribute(attribute("Flag", SimKind::AttribBoolean, true));
    m_engine->addAttribute(attribute("Word", SimKind::AttribLong, std::int64_t{255}, SimLimits{0, 65535, 1}));
    m_engine->addAttribute(attribute("Level", SimKind::AttribValueDouble, -20.0, SimLimits{-100, 30, 1},
                                     {"10,0,-3", "W;;;;"}));
    m_engine->addAttribute(attribute("Gain", SimKind::AttribDouble, 2.5, SimLimits{0, 10, 0.5}));
    m_engine->addAttribute(attribute("Steps", SimKind::AttribValueLong, std::int64_t{42}, SimLimits{0, 100, 1},
                                     {"0,0,0", "Hz;;;;"}));
    m_engine->addAttribute(attribute("Count", SimKind::ReadingLong, std::int64_t{7}));
    m_engine->addAttribute(attribute("Temperature", SimKind::ReadingDouble, 21.25));
    m_engine->addAttribute(attribute("Hits", SimKind::ReadingValueLong, std::int64_t{9}, SimLimits{0, 100, 1},
                                     {"0,0,0", "Hz;;;;"}));
    m_engine->addAttribute(attribute("Power", SimKind::ReadingValueDouble, -3.5, SimLimits{-100, 30, 1},
                                     {"10,0,-3", "W;;;;"}));
}

void TestNumericEntry::cleanup()
{
    m_engine->setValue("Center", 1e9);
    QTRY_VERIFY(!GlobalImpl::getInstance()->entryMechanism());
}

NumericEntryImpl* TestNumericEntry::frequencyField()
{
    auto* field = new NumericEntryImpl(m_screen, QStringLiteral("Center"));
    field->setGeometry(40, 40, 220, 60);
    field->setUnitListString(frequencyUnits);
    field->setDefaultUnit(2);
    field->show();
    bind(*field, "Center");
    return field;
}

void TestNumericEntry::roadOfOneChange()
{
    std::unique_ptr<NumericEntryImpl> field(frequencyField());
    QCOMPARE(field->getValue(), QStringLiteral("1000.0000"));
    QCOMPARE(field->getUnit(), QStringLiteral("MHz"));
    QSignalSpy shown(field.get(), qOverload<double>(&NumericEntryImpl::valueChanged));

    typeIn(*field, {"1", "2"}, QStringLiteral("MHz"));

    QVERIFY(!field->numpadWidget()->isVisible());
    QTRY_COMPARE(lastSet<double>("Center"), 12e6);
    QTRY_COMPARE(field->getValue(), QStringLiteral("12.0000"));
    QCOMPARE(field->getUnit(), QStringLiteral("MHz"));
    QCOMPARE(field->baseValue(), 12e6);
    QVERIFY(!shown.isEmpty());
    QCOMPARE(shown.last().at(0).toDouble(), 12.0);
}

void TestNumericEntry::roadOfOneChangeThroughAnEngineProcess()
{
    QTemporaryFile scenario;
    QVERIFY(scenario.open());
    scenario.write(R"({"attributes":[{"name":"Center","kind":"EngineAttribValueDouble","value":1e9,)"
                   R"("limits":{"lower":1e3,"upper":6e9},"units":"0,0,0:Hz;;;;"}]})");
    scenario.close();
    SimEngineProcess engine;
    QVERIFY2(engine.start(scenario.fileName()), qPrintable(engine.errorString()));
    Brenmoor::AttributeDirectory_var directory = engine.directory();
    SimEngineControl::Control_var control = engine.control();
    NumericEntryImpl field(m_screen, QStringLiteral("Center"));
    field.setUnitListString(frequencyUnits);
    field.setDefaultUnit(2);
    field.show();
    field.bindAttribute(directory->find("Center"));
    // The engine's current value arrives when the reader matches: let it
    // come before typing, as an operator's touch would come after it.
    QTRY_COMPARE_WITH_TIMEOUT(field.getValue(), QStringLiteral("1000.0000"), 5000);
    QTest::qWait(500);

    typeIn(field, {"1", "2"}, QStringLiteral("MHz"));

    QTRY_COMPARE_WITH_TIMEOUT(control->setCount("Center"), CORBA::ULong(1), 5000);
    QTRY_COMPARE_WITH_TIMEOUT(field.getValue(), QStringLiteral("12.0000"), 5000);
    QCOMPARE(field.baseValue(), 12e6);
}

void TestNumericEntry::refusedValueRestoresTheText()
{
    std::unique_ptr<NumericEntryImpl> field(frequencyField());
    QSignalSpy told(field.get(), &WidgetBaseImpl::exceptionMessage);

    typeIn(*field, {"9", "9"}, QStringLiteral("GHz"));

    QTRY_COMPARE(told.count(), 1);
    QVERIFY(told.first().at(0).toString().contains(QStringLiteral("Exception info (actual, lower, upper): 9.9e+10 1000 6e+09")));
    QTRY_COMPARE(field->getValue(), QStringLiteral("1000.0000"));
    QCOMPARE(field->getUnit(), QStringLiteral("MHz"));
    QCOMPARE(std::get<double>(m_engine->value("Center")), 1e9);
}

void TestNumericEntry::sampleReplacesTextWhileTheKeypadIsOpen()
{
    std::unique_ptr<NumericEntryImpl> field(frequencyField());
    touch(*field);
    press(field->numpadWidget(), QStringLiteral("7"));
    QCOMPARE(field->getValue(), QStringLiteral("7"));

    m_engine->setValue("Center", 2e9);

    QTRY_COMPARE(field->getValue(), QStringLiteral("2000.0000"));
    QVERIFY(field->numpadWidget()->isVisible());
    press(field->numpadWidget(), QStringLiteral("cancel"));
    QVERIFY(!field->numpadWidget()->isVisible());
}

void TestNumericEntry::cancelSendsTheSavedValue()
{
    std::unique_ptr<NumericEntryImpl> field(frequencyField());
    const unsigned before = m_engine->setCount("Center");
    touch(*field);
    press(field->numpadWidget(), QStringLiteral("cancel"));
    QTRY_COMPARE(m_engine->setCount("Center"), before + 1);
    QCOMPARE(lastSet<double>("Center"), 1e9);
    QCOMPARE(field->getValue(), QStringLiteral("1000.0000"));
}

void TestNumericEntry::decibelFieldShowsMilliwatt()
{
    NumericEntryImpl field(m_screen);
    field.setUnitListString(powerUnits);
    field.setFilterByBaseUnit(true);
    field.setDefaultUnit(7); // not offered: the first unit is taken
    field.show();
    bind(field, "RefLevel");
    QCOMPARE(field.getUnit(), QStringLiteral("dBm"));
    QCOMPARE(field.unitSelectorWidget()->getList().size(), 2); // volts are filtered out

    field.setIndex(1L);
    QCOMPARE(field.getUnit(), QStringLiteral("mW"));
    QCOMPARE(field.getValue(), QStringLiteral("1.0000"));

    typeIn(field, {"1", "0", "0"}, QStringLiteral("mW"));
    QTRY_COMPARE(lastSet<double>("RefLevel"), 20.0);
    QTRY_COMPARE(field.getValue(), QStringLiteral("100.0000"));
}

void TestNumericEntry::hexFieldShowsAndSendsHex()
{
    NumericEntryImpl field(m_screen);
    field.setIsHex(true);
    field.show();
    bind(field, "Register");
    QCOMPARE(field.getValue(), QStringLiteral("FF"));
    QVERIFY(field.numpadWidget()->getButton(QStringLiteral("A"))->parentWidget());

    typeIn(field, {"1", "A"}, QStringLiteral("enter"));

    QTRY_COMPARE(lastSet<std::int64_t>("Register"), std::int64_t{26});
    QTRY_COMPARE(field.getValue(), QStringLiteral("1A"));
}

void TestNumericEntry::meterReadingTexts()
{
    NumericEntryImpl field(m_screen);
    field.setUnitListString(QStringLiteral("10,0,-3:W;;;;"));
    field.show();
    // Checked before the engine's sample, which formats the reading its own way.
    field.setAttributeName(QStringLiteral("Meter"));
    field.bindAttribute(m_engine->attribute("Meter"));
    QCOMPARE(field.getValue(), QStringLiteral("-20"));
    QVERIFY(!field.numpadWidget());

    touch(field); // a reading has no keypad
    QTRY_VERIFY(!GlobalImpl::getInstance()->entryMechanism());

    m_engine->setValue("Meter", 5.0); // above the upper limit
    QTRY_COMPARE(field.getValue(), QStringLiteral("Over Limit"));

    ComboBoxImpl readings(false, m_screen);
    field.registerReadingSelector(&readings);
    QCOMPARE(readings.getText(), QStringLiteral("Peak Positive"));
    emit readings.updateEnum(3); // the engine's list has one reading
    m_engine->setValue("Meter", -30.0);
    QTest::qWait(300);
    QCOMPARE(field.getValue(), QStringLiteral("Over Limit"));
}

void TestNumericEntry::everyInterfaceShowsItsValue_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("settable");
    QTest::newRow("long") << "Word" << "255" << true;
    QTest::newRow("double") << "Gain" << "2.5000" << true;
    QTest::newRow("value long") << "Steps" << "42" << true;
    QTest::newRow("value double") << "Level" << "-20.0000" << true;
    QTest::newRow("reading long") << "Count" << "7" << false;
    QTest::newRow("reading double") << "Temperature" << "21.2500" << false;
    QTest::newRow("reading value long") << "Hits" << "9" << false;
    QTest::newRow("reading value double") << "Power" << "-3.5000" << false;
}

void TestNumericEntry::everyInterfaceShowsItsValue()
{
    QFETCH(QString, attribute);
    QFETCH(QString, text);
    QFETCH(bool, settable);
    NumericEntryImpl field(m_screen);
    field.setUnitListString(QStringLiteral("10,0,-3:W;;;;|0,0,0:Hz;;;;"));
    // The text of the binding read, before the engine's sample can arrive.
    field.setAttributeName(attribute);
    field.bindAttribute(m_engine->attribute(attribute.toLatin1().constData()));
    QCOMPARE(field.getValue(), text);
    QCOMPARE(field.numpadWidget() != nullptr, settable);
}

void TestNumericEntry::unknownInterfaceBindsToNothing()
{
    NumericEntryImpl field(m_screen);
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(">>>>>Expected Numeric type but received: .*EngineAttribBoolean"));
    bind(field, "Flag");
    QCOMPARE(field.getValue(), QStringLiteral("0.00"));
    QVERIFY(!field.numpadWidget());
}

void TestNumericEntry::unitListAndFilter()
{
    // A unit-based attribute without a unit list says so and offers nothing.
    NumericEntryImpl bare(m_screen);
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression("uses unit based values, set Units string in UI file"));
    bind(bare, "Center");
    QVERIFY(!bare.unitSelectorWidget());

    // Nothing fits the base unit: the base unit alone is offered and kept.
    NumericEntryImpl field(m_screen);
    field.setUnitListString(QStringLiteral("0,0,0:V;;;;|0,-3,0:V;;;;"));
    field.setFilterByBaseUnit(true);
    bind(field, "Center");
    QCOMPARE(field.unitSelectorWidget()->getText(), QStringLiteral("Hz"));
    field.setIndex(1L);
    QCOMPARE(field.getUnit(), QStringLiteral("Hz"));
    QCOMPARE(field.getValue(), QStringLiteral("1000000000.0000"));

    // A malformed description costs its own entry only.
    NumericEntryImpl local(m_screen);
    local.setUnitListString(QStringLiteral("0,3,0:Hz;;;;|nonsense|0,6,0:Hz;;;;"));
    QCOMPARE(local.unitSelectorWidget()->getList().size(), 2);

    // A field's own rule decides what the filter keeps.
    AnyUnitField lenient(m_screen);
    lenient.setUnitListString(QStringLiteral("0,0,0:V;;;;|0,-3,0:V;;;;"));
    lenient.setFilterByBaseUnit(true);
    bind(lenient, "Center");
    QCOMPARE(lenient.unitSelectorWidget()->getList().size(), 2);
    QCOMPARE(lenient.getUnit(), QStringLiteral("V"));
}

void TestNumericEntry::unitsFollowTheEngine_data()
{
    QTest::addColumn<bool>("filter");
    QTest::addColumn<bool>("anyUnitMatches");
    QTest::addColumn<bool>("meterReading"); // a meter's sample moves the display unit too
    QTest::addColumn<bool>("followed");
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("display");
    QTest::addColumn<QString>("wire");
    // From Hz shown in MHz, a sample comes in dBm.
    QTest::newRow("without the filter nothing moves") << false << false << true << false << "Hz" << "MHz" << "Hz";
    QTest::newRow("the rule keeps a matching unit") << true << true << true << false << "Hz" << "MHz" << "Hz";
    QTest::newRow("a value keeps its display unit") << true << false << false << true << "dBm" << "MHz" << "dBm";
    QTest::newRow("a meter reading moves it too") << true << false << true << true << "dBm" << "dBm" << "dBm";
}

void TestNumericEntry::unitsFollowTheEngine()
{
    QFETCH(bool, filter);
    QFETCH(bool, anyUnitMatches);
    QFETCH(bool, meterReading);
    NumericUnits units([anyUnitMatches](const Units& a, const Units& b) { return anyUnitMatches || a.base == b.base; });
    units.setFilterByBaseUnit(filter);
    units.setWireUnit(unitOf(Described::Hz));
    units.setDisplayUnit(unitOf(Described::MHz));

    QTEST(units.followBaseUnit(unitOf(Described::dBm), meterReading), "followed");
    QTEST(labelOf(units.baseUnit()), "base");
    QTEST(labelOf(units.displayUnit()), "display");
    QTEST(labelOf(units.forSend().wireUnit), "wire");
    // Another sample in the same unit changes nothing more.
    QVERIFY(!units.followBaseUnit(unitOf(Described::dBm), meterReading));
}

void TestNumericEntry::unitsOfASendAndABroadcast()
{
    NumericUnits units([](const Units& a, const Units& b) { return a.base == b.base; });
    units.setWireUnit(unitOf(Described::Hz));
    units.setDisplayUnit(unitOf(Described::MHz));
    // A value given in kHz: the base unit moves, the engine still takes Hz.
    units.takeBaseUnit(QString::fromLatin1(Described::kHz));
    QCOMPARE(labelOf(units.forSend().wireUnit), QStringLiteral("Hz"));
    QCOMPARE(units.forSend().displayLabel, QStringLiteral("MHz"));
    QCOMPARE(units.inDisplayUnit(2500.0), 2.5);
    QCOMPARE(units.converted(2500.0, unitOf(Described::GHz)), 0.0025);

    QCOMPARE(units.broadcast(12.0), 12.0);
    units.setBroadcastUnit(QString::fromLatin1(Described::kHz));
    QCOMPARE(units.broadcast(12.0), 12000.0);
    units.clearBroadcastUnit();
    QCOMPARE(units.broadcast(12.0), 12.0);

    units.setUnitless();
    QCOMPARE(units.displayUnit(), Units());
    QCOMPARE(units.inDisplayUnit(2500.0), 2500.0);
}

void TestNumericEntry::unitSelectorFitsItsWidestUnit_data()
{
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("units");
    for (const char* size : {"Max", "Min", "Thumb"}) {
        QTest::addRow("frequency %s", size) << QString::fromLatin1(size) << frequencyUnits;
        QTest::addRow("power %s", size) << QString::fromLatin1(size) << powerUnits;
    }
}

void TestNumericEntry::unitSelectorFitsItsWidestUnit()
{
    QFETCH(QString, size);
    QFETCH(QString, units);
    // On a dark panel, as on a screen.
    QWidget panel(m_screen);
    panel.setObjectName(QStringLiteral("panel"));
    panel.setStyleSheet(QStringLiteral("QWidget#panel { background-color: #101418; }"));
    panel.setGeometry(0, 0, 400, 120);
    auto& field = *new NumericEntryImpl(&panel, QStringLiteral("Centre frequency (1 kHz to 6 GHz)"));
    field.setUnitListString(units);
    field.setGeometry(12, 5, 376, 110);
    field.changeSize(size);
    panel.show();
    QTest::qWait(50);
    ComboBoxImpl* selector = field.unitSelectorWidget();
    const QLabel* box = selector->getValueField();
    const QFontMetrics metrics(box->font());
    const QList<ComboBoxListStruct> choices = selector->getList();
    QVERIFY(choices.size() >= 3);
    const ComboBoxListStruct* widest = &choices.first();
    for (const ComboBoxListStruct& choice : choices) {
        if (metrics.horizontalAdvance(choice.text) > metrics.horizontalAdvance(widest->text))
            widest = &choice;
        QVERIFY2(metrics.horizontalAdvance(choice.text) <= textRoom(box),
                 qPrintable(QStringLiteral("%1 needs %2 pixels, the selector leaves %3")
                                .arg(choice.text)
                                .arg(metrics.horizontalAdvance(choice.text))
                                .arg(textRoom(box))));
    }
    QVERIFY(field.rect().contains(selector->geometry()));
    field.setIndex(widest->value);
    TestSupport::savePng(&panel, QStringLiteral("numericentry_units_%1").arg(QString::fromLatin1(QTest::currentDataTag()).replace(QLatin1Char(' '), QLatin1Char('_'))));
}

void TestNumericEntry::textsAndSignals_data()
{
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("signals");
    QTest::addColumn<double>("number");
    QTest::newRow("doubtful") << "Min" << "12.5?" << "12.5?" << 1 << 12.5;
    QTest::newRow("question mark alone") << "Min" << "?" << "?" << 1 << 0.0;
    QTest::newRow("over limit") << "Min" << "Over Limit" << "Over Limit" << 0 << 0.0;
    QTest::newRow("no value") << "Min" << "" << "" << 0 << 0.0;
    QTest::newRow("thumb cuts a short text away") << "Thumb" << "1.5" << "" << 1 << 1.5;
    QTest::newRow("thumb cut") << "Thumb" << "12345" << "2345345455" << 1 << 12345.0;
}

void TestNumericEntry::textsAndSignals()
{
    QFETCH(QString, size);
    QFETCH(QString, text);
    NumericEntryImpl field;
    field.changeSize(size);
    QSignalSpy spy(&field, qOverload<double>(&NumericEntryImpl::valueChanged));
    field.setValue(text);
    QTEST(field.getValue(), "shown");
    QTEST(spy.count(), "signals");
    if (!spy.isEmpty())
        QTEST(spy.first().at(0).toDouble(), "number");
}

void TestNumericEntry::enableStates()
{
    NumericEntryImpl field(m_screen);
    field.setUnitListString(frequencyUnits);
    field.setGeometry(40, 200, 220, 60);
    field.show();
    QWidget* unitBox = field.unitSelectorWidget()->getValueField();
    const QPoint onUnit = unitBox->mapTo(&field, unitBox->rect().center());

    field.setEnableState(1); // the unit is frozen
    QTest::mouseRelease(&field, Qt::LeftButton, Qt::NoModifier, onUnit);
    QVERIFY(!GlobalImpl::getInstance()->entryMechanism());

    field.setEnableState(2); // the value is frozen, the unit is free
    touch(field);
    QVERIFY(!GlobalImpl::getInstance()->entryMechanism());
    QTest::mouseRelease(&field, Qt::LeftButton, Qt::NoModifier, onUnit);
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), field.unitSelectorWidget());
    field.unitSelectorWidget()->submit(3);
    QCOMPARE(field.getUnit(), QStringLiteral("GHz"));
    QVERIFY(!GlobalImpl::getInstance()->entryMechanism());

    field.setEnableState(0);
    QVERIFY(!field.isEnabled());
}

void TestNumericEntry::secondFieldWaitsForTheFirst()
{
    std::unique_ptr<NumericEntryImpl> first(frequencyField());
    NumericEntryImpl second(m_screen);
    second.setGeometry(40, 300, 220, 60);
    second.show();
    bind(second, "Register");
    touch(*first);
    touch(second);
    QVERIFY(first->numpadWidget()->isVisible());
    QVERIFY(!second.numpadWidget()->isVisible());
    press(first->numpadWidget(), QStringLiteral("cancel"));
    touch(second);
    QVERIFY(second.numpadWidget()->isVisible());
    press(second.numpadWidget(), QStringLiteral("cancel"));
}

void TestNumericEntry::placement_data()
{
    QTest::addColumn<QRect>("field");
    QTest::addColumn<int>("selector");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<int>("corner");
    QTest::newRow("room right and below") << QRect(40, 40, 100, 30) << 50 << QPoint(195, 75) << 3;
    QTest::newRow("right edge opens left") << QRect(500, 40, 100, 30) << 50 << QPoint(235, 75) << 4;
    QTest::newRow("low field opens above") << QRect(40, 400, 100, 30) << 0 << QPoint(145, 15) << 1;
    QTest::newRow("near both edges keeps the margin") << QRect(200, 40, 500, 30) << 0 << QPoint(40, 75) << 4;
}

void TestNumericEntry::placement()
{
    QFETCH(QRect, field);
    QFETCH(int, selector);
    const EntryPlacement placement(field, QSize(260, 380), selector, QSize(800, 480));
    QTEST(placement.position(), "position");
    QTEST(int(placement.corner()), "corner");
}

void TestNumericEntry::keypadOfAFieldOnAnotherWindow_data()
{
    QTest::addColumn<QPoint>("windowAt"); // on the main screen
    QTest::addColumn<bool>("right");
    QTest::addColumn<bool>("below");
    QTest::newRow("upper left: pad right and below") << QPoint(60, 10) << true << true;
    QTest::newRow("lower right: pad left and above") << QPoint(480, 330) << false << false;
}

// A pop-up window of its own, not a child of the main screen, with a field
// in it: its keypad still opens on the main screen, beside the field.
void TestNumericEntry::keypadOfAFieldOnAnotherWindow()
{
    QFETCH(QPoint, windowAt);
    QFETCH(bool, right);
    QFETCH(bool, below);
    // Off the desktop's origin, where screen and desktop coordinates differ.
    const QPoint screenAt = m_screen->pos();
    m_screen->move(screenAt + QPoint(30, 20));
    const auto moveBack = qScopeGuard([this, screenAt] { m_screen->move(screenAt); });
    QWidget popup;
    popup.setObjectName(QStringLiteral("popup"));
    popup.setGeometry(QRect(m_screen->mapToGlobal(windowAt), QSize(300, 120)));
    NumericEntryImpl field(&popup, QStringLiteral("Span"));
    field.setGeometry(10, 10, 220, 60);
    field.addNumpad(false);
    popup.show();
    QVERIFY(QTest::qWaitForWindowExposed(&popup));

    touch(field);

    NumpadEntryImpl* pad = field.numpadWidget();
    QVERIFY(pad->isVisible());
    QCOMPARE(pad->parentWidget(), m_screen);
    QVERIFY(m_screen->rect().contains(pad->geometry()));
    const QRect box(boxOf(field)->mapToGlobal(QPoint()), boxOf(field)->size());
    const QRect padOnDesktop(m_screen->mapToGlobal(pad->pos()), pad->size());
    QVERIFY(!padOnDesktop.intersects(box));
    QVERIFY(right ? padOnDesktop.left() > box.right() : padOnDesktop.right() < box.left());
    QVERIFY(below ? padOnDesktop.top() > box.bottom() : padOnDesktop.top() < box.top());
    press(pad, QStringLiteral("cancel"));
}

void TestNumericEntry::transportFailureReleasesTheMechanism_data()
{
    QTest::addColumn<bool>("realTime");
    QTest::newRow("unit key") << false;
    QTest::newRow("arrow in real time") << true;
}

void TestNumericEntry::transportFailureReleasesTheMechanism()
{
    QFETCH(bool, realTime);
    NumericEntryImpl field(m_screen);
    field.setUnitListString(frequencyUnits);
    field.setDefaultUnit(2);
    field.setRealtimeUpdate(realTime);
    field.setGeometry(40, 40, 220, 60);
    field.show();
    bind(field, "Center");
    SimFailure failure;
    failure.kind = SimFailure::Kind::Transient;
    m_engine->failNextSet("Center", 1, failure);

    if (realTime) {
        touch(field);
        press(field.numpadWidget(), QStringLiteral("uparrow"));
    } else {
        typeIn(field, {"1", "2"}, QStringLiteral("MHz"));
    }

    QTRY_VERIFY(field.isEngineLinkLost());
    QTRY_COMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
    QVERIFY(!field.numpadWidget()->isVisible());
}

void TestNumericEntry::newLimitsReachTheArrowsInTheShownUnit()
{
    NumericEntryImpl field(m_screen);
    field.setUnitListString(frequencyUnits);
    field.setDefaultUnit(2);
    field.setRealtimeUpdate(true);
    bind(field, "Center");
    QCOMPARE(field.numpadWidget()->upperLimit(), 6000.0);

    m_engine->setLimits("Center", SimLimits{1e3, 2e9, 1});
    QTRY_COMPARE(field.numpadWidget()->upperLimit(), 2000.0);
    QCOMPARE(field.numpadWidget()->lowerLimit(), 0.001);
    m_engine->setLimits("Center", SimLimits{1e3, 6e9, 1});
    QTRY_COMPARE(field.numpadWidget()->upperLimit(), 6000.0);
}

void TestNumericEntry::secondEnterBeforeTheSample_data()
{
    QTest::addColumn<bool>("touchedAgain");
    QTest::addColumn<QStringList>("keysAgain");
    QTest::addColumn<unsigned>("sends");
    QTest::newRow("Enter twice") << false << QStringList() << 1u;
    QTest::newRow("touched again, then Enter") << true << QStringList() << 1u;
    QTest::newRow("touched again, a new value") << true << QStringList{"5"} << 2u;
}

// The box shows the engine's old value until the engine's sample comes: an
// Enter on that text is no entry, and must not undo the change on its way.
void TestNumericEntry::secondEnterBeforeTheSample()
{
    QFETCH(bool, touchedAgain);
    QFETCH(QStringList, keysAgain);
    QFETCH(unsigned, sends);
    std::unique_ptr<NumericEntryImpl> field(frequencyField());
    const unsigned before = m_engine->setCount("Center");

    // No event is handled in between, so no sample can come between the two.
    typeIn(*field, {"1", "2"}, QStringLiteral("MHz"));
    if (touchedAgain)
        touch(*field);
    for (const QString& key : keysAgain)
        press(field->numpadWidget(), key);
    press(field->numpadWidget(), QStringLiteral("MHz"));

    QTRY_COMPARE(m_engine->setCount("Center"), before + sends);
    QTest::qWait(300);
    QCOMPARE(m_engine->setCount("Center"), before + sends);
    const double engineValue = std::get<double>(m_engine->value("Center"));
    if (keysAgain.isEmpty())
        QCOMPARE(engineValue, 12e6);
    QTRY_COMPARE(field->getValue(), QString::number(engineValue / 1e6, 'f', 4));
}

void TestNumericEntry::looks()
{
    NumericEntryImpl* field = frequencyField();
    auto* plain = new NumericEntryImpl(m_screen, QStringLiteral("Register (hex)"));
    plain->setIsHex(true);
    plain->setGeometry(40, 130, 220, 60);
    plain->show();
    plain->bindAttribute(m_engine->attribute("Register"));
    auto* thumb = new NumericEntryImpl(m_screen, QStringLiteral("Reference level"));
    thumb->setUnitListString(powerUnits);
    thumb->setGeometry(40, 220, 220, 80);
    thumb->show();
    thumb->bindAttribute(m_engine->attribute("RefLevel"));
    thumb->changeSize(QStringLiteral("Max"));
    touch(*field);
    press(field->numpadWidget(), QStringLiteral("4"));
    QTest::qWait(100);
    const QImage image = TestSupport::savePng(m_screen, QStringLiteral("numericentry_keypad_open"));
    QVERIFY(!image.isNull());
    press(field->numpadWidget(), QStringLiteral("cancel"));
    delete thumb;
    delete plain;
    delete field;
}

RV_TEST_MAIN_BOUNDED_EXIT(TestNumericEntry, QApplication)
#include "tst_numericentry.moc"
