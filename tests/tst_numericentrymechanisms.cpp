// The entry mechanisms of a bound numeric field: the rotate key's order,
// where a rotated mechanism opens, and the wheel sending each step to the
// simulated engine over CORBA and DDS, refused or cut off.
#include "DoubleSliderImpl.h"
#include "GlobalImpl.h"
#include "NumericEntryImpl.h"
#include "NumpadEntryImpl.h"
#include "SimEngine.h"
#include "SingleSliderImpl.h"
#include "SliderBarImpl.h"
#include "SpinWheelImpl.h"
#include "SystemModule.h"
#include "WheelGestures.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace WheelGestures;

namespace {

const QStringList mechanismNames{QStringLiteral("NumpadEntry"), QStringLiteral("SpinWheel"),
                                 QStringLiteral("SingleSlider")};

SimAttributeSetup countAttribute()
{
    SimAttributeSetup setup;
    setup.name = "Count";
    setup.kind = SimKind::AttribLong;
    setup.value = std::int64_t{10};
    setup.limits = SimLimits{0, 100, 1};
    return setup;
}

QLineEdit* boxOf(NumericEntryImpl& field) { return field.findChild<QLineEdit*>(); }

void touch(NumericEntryImpl& field)
{
    const QPoint centre = boxOf(field)->geometry().center();
    QTest::mousePress(&field, Qt::LeftButton, Qt::NoModifier, centre);
    QTest::mouseRelease(&field, Qt::LeftButton, Qt::NoModifier, centre);
}

void click(QWidget* mechanism, const char* key)
{
    QVERIFY(mechanism);
    auto* button = mechanism->findChild<QPushButton*>(QLatin1String(key));
    QVERIFY2(button, key);
    button->click();
}

//! Fifteen touches of a steady clockwise turn: one step.
const Path oneStep = steady(0.3, 0.1, 10, 15);

} // namespace

class TestNumericEntryMechanisms : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void rotateKeyCycles_data();
    void rotateKeyCycles();
    void rotatedMechanismsLineUpWithTheKeypad_data();
    void rotatedMechanismsLineUpWithTheKeypad();
    void wheelSendsEachStep();
    void sliderSendsWhatTheRulerReaches();
    void doubleSliderOfAHost();
    void newLimitsReachTheWheel();
    void refusedStepShowsTheEngineValue();
    void lostEngineClosesTheWheel();
    void fieldDestroyedWithItsWheelOpen();

private:
    //! A field on the screen at \a at, bound to "Count", its keypad open; null when the value never came.
    std::unique_ptr<NumericEntryImpl> openField(const QPoint& at = QPoint(40, 40), bool wheel = true,
                                                int slider = 1);
    //! The one mechanism on the screen, or "" for none.
    QString openMechanism() const;
    QWidget* mechanism(const QString& name) const;
    SpinWheelImpl* openWheel(NumericEntryImpl& field);
    std::int64_t lastSet() const;

    std::unique_ptr<SimEngine> m_engine;
    QWidget* m_screen = nullptr;
};

void TestNumericEntryMechanisms::initTestCase()
{
    m_screen = new QWidget;
    m_screen->resize(800, 480);
    GlobalImpl::getInstance()->systemModule()->addSystemScreen(QStringLiteral("MainWindow"), m_screen);
    m_screen->show();
    m_engine = std::make_unique<SimEngine>();
    m_engine->addAttribute(countAttribute());
}

void TestNumericEntryMechanisms::cleanup()
{
    m_engine->setLimits("Count", SimLimits{0, 100, 1});
    m_engine->setValue("Count", std::int64_t{10});
    QTRY_VERIFY(!GlobalImpl::getInstance()->entryMechanism());
}

std::unique_ptr<NumericEntryImpl> TestNumericEntryMechanisms::openField(const QPoint& at, bool wheel, int slider)
{
    auto field = std::make_unique<NumericEntryImpl>(m_screen, QStringLiteral("Count"));
    field->setGeometry(QRect(at, QSize(220, 60)));
    field->setSpinWheel(wheel);
    field->setSliderBar(slider);
    field->show();
    field->setAttributeName(QStringLiteral("Count"));
    field->bindAttribute(m_engine->attribute("Count"));
    // The engine's value arrives once the reader matches; an operator's touch comes after it.
    if (!QTest::qWaitFor([&] { return field->getValue() == QLatin1String("10"); }, 5000))
        return nullptr;
    QTest::qWait(300);
    touch(*field);
    return field;
}

QString TestNumericEntryMechanisms::openMechanism() const
{
    QStringList open;
    for (const QString& name : mechanismNames) {
        const QWidget* shown = mechanism(name);
        if (shown && shown->isVisible())
            open << name;
    }
    return open.join(QLatin1Char('+'));
}

QWidget* TestNumericEntryMechanisms::mechanism(const QString& name) const
{
    return m_screen->findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
}

SpinWheelImpl* TestNumericEntryMechanisms::openWheel(NumericEntryImpl& field)
{
    click(field.numpadWidget(), "RotateEntry");
    SpinWheelImpl* wheel = field.spinWheelWidget();
    return wheel && wheel->isVisible() ? wheel : nullptr;
}

std::int64_t TestNumericEntryMechanisms::lastSet() const
{
    const std::optional<SimValue> value = m_engine->lastSetValue("Count");
    return value ? std::get<std::int64_t>(*value) : -1;
}

void TestNumericEntryMechanisms::rotateKeyCycles_data()
{
    QTest::addColumn<bool>("wheel");
    QTest::addColumn<int>("slider");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("keypad, wheel, slider") << true << 1 << QStringList{"SpinWheel", "SingleSlider", "NumpadEntry"};
    QTest::newRow("no slider") << true << 0 << QStringList{"SpinWheel", "NumpadEntry"};
    QTest::newRow("no wheel") << false << 1 << QStringList{"SingleSlider", "NumpadEntry"};
    QTest::newRow("keypad alone stays") << false << 0 << QStringList{"NumpadEntry"};
}

void TestNumericEntryMechanisms::rotateKeyCycles()
{
    QFETCH(bool, wheel);
    QFETCH(int, slider);
    QFETCH(QStringList, order);
    std::unique_ptr<NumericEntryImpl> field = openField(QPoint(40, 40), wheel, slider);
    QVERIFY(field);
    QCOMPARE(openMechanism(), QStringLiteral("NumpadEntry"));

    for (const QString& next : order) {
        click(mechanism(openMechanism()), "RotateEntry");
        QCOMPARE(openMechanism(), next);
    }
    click(field->numpadWidget(), "cancel");
    QCOMPARE(openMechanism(), QString());
}

void TestNumericEntryMechanisms::rotatedMechanismsLineUpWithTheKeypad_data()
{
    QTest::addColumn<QPoint>("fieldAt");
    QTest::addColumn<bool>("above");
    QTest::addColumn<bool>("left");
    QTest::newRow("below and right of the field") << QPoint(40, 20) << false << false;
    QTest::newRow("above and left of the field") << QPoint(500, 400) << true << true;
}

// Above the field the wheel and the slider share the keypad's lower edge,
// below it the upper one; either way they stay on the screen.
void TestNumericEntryMechanisms::rotatedMechanismsLineUpWithTheKeypad()
{
    QFETCH(QPoint, fieldAt);
    QFETCH(bool, above);
    QFETCH(bool, left);
    std::unique_ptr<NumericEntryImpl> field = openField(fieldAt);
    QVERIFY(field);
    const QRect keypad = field->numpadWidget()->geometry();

    SpinWheelImpl* wheel = openWheel(*field);
    QVERIFY(wheel);
    const QRect wheelPlaced = wheel->geometry();
    click(wheel, "RotateEntry");
    QCOMPARE(openMechanism(), QStringLiteral("SingleSlider"));
    const QRect sliderPlaced = field->sliderWidget()->geometry();

    for (const QRect& placed : {wheelPlaced, sliderPlaced}) {
        QVERIFY(m_screen->rect().contains(placed));
        QCOMPARE(above ? placed.bottom() : placed.top(), above ? keypad.bottom() : keypad.top());
    }
    // The wide slider keeps the keypad's edge nearer the field.
    QCOMPARE(left ? sliderPlaced.right() : sliderPlaced.left(), left ? keypad.right() : keypad.left());
    click(field->sliderWidget(), "cancel");
}

void TestNumericEntryMechanisms::wheelSendsEachStep()
{
    std::unique_ptr<NumericEntryImpl> field = openField();
    QVERIFY(field);
    SpinWheelImpl* wheel = openWheel(*field);
    QVERIFY(wheel);

    turn(*wheel, oneStep);
    QTRY_COMPARE(lastSet(), std::int64_t{11});
    turn(*wheel, oneStep);
    QTRY_COMPARE(lastSet(), std::int64_t{12});
    QTRY_COMPARE(field->getValue(), QStringLiteral("12"));

    click(wheel, "Enter");
    QVERIFY(!wheel->isVisible());
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
}

// Two ticks to the left raise the value by two; the ruler sends what it reaches.
void TestNumericEntryMechanisms::sliderSendsWhatTheRulerReaches()
{
    std::unique_ptr<NumericEntryImpl> field = openField(QPoint(40, 40), false, 1);
    QVERIFY(field);
    click(field->numpadWidget(), "RotateEntry");
    auto* slider = qobject_cast<SingleSliderImpl*>(field->sliderWidget());
    QVERIFY(slider && slider->isVisible());
    auto* bar = slider->findChild<SliderBarImpl*>();
    QVERIFY(QTest::qWaitForWindowExposed(slider));
    const QPoint centre = bar->rect().center();
    const QPoint left = centre - QPoint(2 * (bar->width() / 7), 0);
    QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, centre);
    QMouseEvent move(QEvent::MouseMove, left, bar->mapToGlobal(left), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(bar, &move);
    QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, left, 400);

    QTRY_COMPARE(lastSet(), std::int64_t{12});
    QTRY_COMPARE(field->getValue(), QStringLiteral("12"));
    click(slider, "enter");
    QVERIFY(!slider->isVisible());
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
}

// A host may give a bound field the double slider, which the rotation
// reaches last and which closes only by its Enter.
void TestNumericEntryMechanisms::doubleSliderOfAHost()
{
    std::unique_ptr<NumericEntryImpl> field = openField(QPoint(40, 40), false, 0);
    QVERIFY(field);
    field->addSliderControl(false, 0.0, 100.0);
    click(field->numpadWidget(), "RotateEntry");
    QCOMPARE(openMechanism(), QString());
    QVERIFY(field->sliderWidget()->isVisible());
    QVERIFY(qobject_cast<DoubleSliderImpl*>(field->sliderWidget()));

    click(field->sliderWidget(), "enter");

    QVERIFY(!field->sliderWidget()->isVisible());
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
}

void TestNumericEntryMechanisms::newLimitsReachTheWheel()
{
    std::unique_ptr<NumericEntryImpl> field = openField();
    QVERIFY(field);
    QSignalSpy limitsCame(field.get(), &NumericEntryImpl::updateLimits);
    m_engine->setLimits("Count", SimLimits{0, 11, 1});
    QTRY_VERIFY(!limitsCame.isEmpty());
    SpinWheelImpl* wheel = openWheel(*field);
    QVERIFY(wheel);
    QSignalSpy stepped(wheel, &SpinWheelImpl::valueChanged);

    turn(*wheel, steady(0.3, 0.1, 10, 30));

    QCOMPARE(stepped.count(), 1);
    QCOMPARE(stepped.first().at(0).toString(), QStringLiteral("11"));
    click(wheel, "Cancel");
}

// The engine refuses the step: the field and the wheel show its value,
// and the next step starts from it.
void TestNumericEntryMechanisms::refusedStepShowsTheEngineValue()
{
    std::unique_ptr<NumericEntryImpl> field = openField();
    QVERIFY(field);
    SpinWheelImpl* wheel = openWheel(*field);
    QVERIFY(wheel);
    SimFailure failure;
    failure.kind = SimFailure::Kind::DataOutOfRange;
    failure.actual = 11;
    failure.upper = 10;
    m_engine->failNextSet("Count", 1, failure);
    QLineEdit* readOut = wheel->findChild<QLineEdit*>();

    turn(*wheel, oneStep);

    QTRY_COMPARE(readOut->text(), QStringLiteral("10"));
    QCOMPARE(field->getValue(), QStringLiteral("10"));
    QVERIFY(wheel->isVisible());
    turn(*wheel, oneStep);
    QTRY_COMPARE(lastSet(), std::int64_t{11});
    click(wheel, "Enter");
}

void TestNumericEntryMechanisms::lostEngineClosesTheWheel()
{
    std::unique_ptr<NumericEntryImpl> field = openField();
    QVERIFY(field);
    SpinWheelImpl* wheel = openWheel(*field);
    QVERIFY(wheel);
    SimFailure failure;
    failure.kind = SimFailure::Kind::Transient;
    m_engine->failNextSet("Count", 1, failure);

    turn(*wheel, oneStep);

    QTRY_VERIFY(field->isEngineLinkLost());
    QTRY_VERIFY(!wheel->isVisible());
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
}

// Mid-turn, with a send on its way: the wheel goes with the field.
void TestNumericEntryMechanisms::fieldDestroyedWithItsWheelOpen()
{
    std::unique_ptr<NumericEntryImpl> field = openField();
    QVERIFY(field);
    QPointer<SpinWheelImpl> wheel = openWheel(*field);
    QVERIFY(wheel);
    turn(*wheel, oneStep, false);

    field.reset();

    QVERIFY(wheel.isNull());
    QTRY_COMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
    QTRY_COMPARE(lastSet(), std::int64_t{11});
}

QTEST_MAIN(TestNumericEntryMechanisms)
#include "tst_numericentrymechanisms.moc"
