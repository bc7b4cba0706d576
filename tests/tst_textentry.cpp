// TextEntryImpl bound to text attributes of the simulated engine, in the
// process and as a process of its own over IIOP: texts of every script and
// length travel whole, what cannot travel whole is refused before it goes,
// the engine's refusal and a send in flight at teardown, and its looks.
#include "GlobalImpl.h"
#include "KeyboardEntryImpl.h"
#include "SimEngine.h"
#include "SimEngineProcess.h"
#include "SystemModule.h"
#include "TestSupport.h"
#include "TextEntryImpl.h"

#include <Brenmoor.hh>

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryFile>
#include <QtTest>

#include <memory>

namespace {

SimAttributeSetup textAttribute(const char* name, SimKind kind = SimKind::AttribString)
{
    SimAttributeSetup setup;
    setup.name = name;
    setup.kind = kind;
    setup.value = std::string("engine text");
    setup.refusedTexts = {"forbidden"};
    return setup;
}

void touch(TextEntryImpl& field)
{
    const QPoint centre = field.getLineEdit()->geometry().center();
    QTest::mousePress(&field, Qt::LeftButton, Qt::NoModifier, centre);
    QTest::mouseRelease(&field, Qt::LeftButton, Qt::NoModifier, centre);
}

const QString manyScripts = QStringLiteral("Grüße, \u00e9t\u00e9 \u6f22\u5b57\u304b\u306a \u0645\u0631\u062d\u0628\u0627 "
                                           "\U0001F600");

} // namespace

class TestTextEntry : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void textsTravelWhole_data();
    void textsTravelWhole();
    void roundTripThroughAnEngineProcess();
    void textsThatCannotTravelAreRefused_data();
    void textsThatCannotTravelAreRefused();
    void engineRefusalKeepsTheEngineText();
    void cancelKeepsTheEngineTextAndSendsNothing();
    void openingFollowsModeAndAccess_data();
    void openingFollowsModeAndAccess();
    void keyboardOpensAwayFromTheField_data();
    void keyboardOpensAwayFromTheField();
    void destroyedWhileASendIsInFlight();
    void looks();

private:
    //! A field on the screen at \a y, bound to \a name, its engine text shown.
    std::unique_ptr<TextEntryImpl> boundField(const char* name, int y = 40,
                                              TextEntryImpl::EntryModeEnum mode = TextEntryImpl::KeyboardEntry);
    void enter(TextEntryImpl& field, const QString& text);
    std::string engineText(const char* name) const { return std::get<std::string>(m_engine->value(name)); }

    std::unique_ptr<SimEngine> m_engine;
    QWidget* m_screen = nullptr;
};

void TestTextEntry::initTestCase()
{
    m_screen = new QWidget;
    m_screen->resize(800, 480);
    m_screen->setObjectName(QStringLiteral("screen"));
    m_screen->setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
    GlobalImpl::getInstance()->systemModule()->addSystemScreen(QStringLiteral("MainWindow"), m_screen);
    m_screen->show();
    m_engine = std::make_unique<SimEngine>();
    m_engine->addAttribute(textAttribute("Label"));
    m_engine->addAttribute(textAttribute("Address"));
    m_engine->addAttribute(textAttribute("Banner", SimKind::ReadingString));
}

void TestTextEntry::cleanup()
{
    m_engine->setValue("Label", std::string("engine text"));
    m_engine->setValue("Address", std::string("engine text"));
    QTRY_VERIFY(!GlobalImpl::getInstance()->entryMechanism());
}

std::unique_ptr<TextEntryImpl> TestTextEntry::boundField(const char* name, int y, TextEntryImpl::EntryModeEnum mode)
{
    auto field = std::make_unique<TextEntryImpl>(m_screen, QStringLiteral("Label"));
    field->setGeometry(40, y, 300, 60);
    field->setEntryMode(mode);
    field->show();
    field->setAttributeName(QString::fromLatin1(name));
    field->bindAttribute(m_engine->attribute(name));
    // The engine's text arrives once the reader matches; a touch comes after it.
    if (!QTest::qWaitFor([&] { return field->text() == QLatin1String("engine text"); }, 5000))
        return nullptr;
    QTest::qWait(300);
    return field;
}

void TestTextEntry::enter(TextEntryImpl& field, const QString& text)
{
    touch(field);
    field.getLineEdit()->setText(text);
    field.submit();
}

void TestTextEntry::textsTravelWhole_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("accents, CJK, Arabic and an emoji") << manyScripts;
    QTest::newRow("right to left") << QStringLiteral("\u05e9\u05dc\u05d5\u05dd \u05e2\u05d5\u05dc\u05dd 123");
    QTest::newRow("newlines and control characters") << QStringLiteral("one\ntwo\tthree\rfour\u0001\u001f\u007f");
    QTest::newRow("64 KiB") << QString(64 * 1024, QLatin1Char('x'));
}

// What is entered is what the engine holds and what comes back.
void TestTextEntry::textsTravelWhole()
{
    QFETCH(QString, text);
    std::unique_ptr<TextEntryImpl> field = boundField("Label");
    QVERIFY(field);
    QSignalSpy changed(field.get(), &TextEntryImpl::textChanged);

    enter(*field, text);

    QTRY_COMPARE(QString::fromStdString(engineText("Label")), text);
    QTRY_COMPARE(field->text(), text);
    QCOMPARE(changed.last().at(0).toString(), text);
    QCOMPARE(field->getOldText(), text);
}

void TestTextEntry::roundTripThroughAnEngineProcess()
{
    QTemporaryFile scenario;
    QVERIFY(scenario.open());
    scenario.write(R"({"attributes":[{"name":"Motto","kind":"EngineAttribString","value":"engine text"}]})");
    scenario.close();
    SimEngineProcess engine;
    QVERIFY2(engine.start(scenario.fileName()), qPrintable(engine.errorString()));
    Brenmoor::AttributeDirectory_var directory = engine.directory();
    TextEntryImpl field(m_screen, QStringLiteral("Motto"));
    field.setGeometry(40, 40, 300, 60);
    field.show();
    field.setAttributeName(QStringLiteral("Motto"));
    field.bindAttribute(directory->find("Motto"));
    QTRY_COMPARE_WITH_TIMEOUT(field.text(), QStringLiteral("engine text"), 5000);
    QTest::qWait(300);

    enter(field, manyScripts);

    QTRY_COMPARE_WITH_TIMEOUT(field.text(), manyScripts, 5000);
    auto motto = Brenmoor::EngineAttribString::_narrow(CORBA::Object_var(directory->find("Motto")));
    QCOMPARE(QString::fromUtf8(CORBA::String_var(motto->value()).in()), manyScripts);
}

void TestTextEntry::textsThatCannotTravelAreRefused_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("text");
    QTest::newRow("a lone high surrogate") << int(TextEntryImpl::KeyboardEntry)
                                           << QStringLiteral("ab") + QChar(0xd83d) + QStringLiteral("c");
    QTest::newRow("a lone low surrogate") << int(TextEntryImpl::KeyboardEntry) << QString(QChar(0xde00));
    QTest::newRow("octet above 255") << int(TextEntryImpl::IPEntry) << QStringLiteral("10.0.0.256");
    QTest::newRow("five parts") << int(TextEntryImpl::IPEntry) << QStringLiteral("10.0.0.1.2");
    QTest::newRow("an empty part") << int(TextEntryImpl::IPEntry) << QStringLiteral("10..0.1");
}

// Refused before sending, with a word for the operator; the engine's text stays.
void TestTextEntry::textsThatCannotTravelAreRefused()
{
    QFETCH(int, mode);
    QFETCH(QString, text);
    std::unique_ptr<TextEntryImpl> field = boundField("Address", 40, TextEntryImpl::EntryModeEnum(mode));
    QVERIFY(field);
    const unsigned sets = m_engine->setCount("Address");
    QSignalSpy told(field.get(), &WidgetBaseImpl::exceptionMessage);

    field->setText(text);
    field->submit();

    QCOMPARE(told.count(), 1);
    QCOMPARE(field->text(), QStringLiteral("engine text"));
    QTest::qWait(200);
    QCOMPARE(m_engine->setCount("Address"), sets);
    if (mode == TextEntryImpl::IPEntry) {
        enter(*field, QStringLiteral("192.168.0.1"));
        QTRY_COMPARE(field->text(), QStringLiteral("192.168.0.1"));
    }
}

void TestTextEntry::engineRefusalKeepsTheEngineText()
{
    std::unique_ptr<TextEntryImpl> field = boundField("Label");
    QVERIFY(field);
    QSignalSpy told(field.get(), &WidgetBaseImpl::exceptionMessage);

    enter(*field, QStringLiteral("forbidden"));

    QTRY_COMPARE(told.count(), 1);
    QVERIFY(told.first().at(0).toString().contains(QStringLiteral("forbidden")));
    QCOMPARE(field->text(), QStringLiteral("engine text"));
    QCOMPARE(engineText("Label"), std::string("engine text"));
    QVERIFY(!field->isEngineLinkLost());
}

void TestTextEntry::cancelKeepsTheEngineTextAndSendsNothing()
{
    std::unique_ptr<TextEntryImpl> field = boundField("Label");
    QVERIFY(field);
    const unsigned sets = m_engine->setCount("Label");
    touch(*field);
    QVERIFY(field->entryMechanism()->isVisible());
    field->getLineEdit()->setText(QStringLiteral("typed"));

    field->entryMechanism()->findChild<QPushButton*>(QStringLiteral("cancelBottomLeft"))->click();

    QVERIFY(!field->entryMechanism()->isVisible());
    QCOMPARE(field->text(), QStringLiteral("engine text"));
    QTest::qWait(200);
    QCOMPARE(m_engine->setCount("Label"), sets);
}

void TestTextEntry::openingFollowsModeAndAccess_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("mechanism"); // the class that opens; "" for none
    QTest::newRow("keyboard") << QByteArray("Label") << int(TextEntryImpl::KeyboardEntry) << "KeyboardEntryImpl";
    QTest::newRow("IP keypad") << QByteArray("Address") << int(TextEntryImpl::IPEntry) << "IPEntryImpl";
    QTest::newRow("password keyboard") << QByteArray("Label") << int(TextEntryImpl::PasswordEntry)
                                       << "KeyboardEntryImpl";
    QTest::newRow("mode None") << QByteArray("Label") << int(TextEntryImpl::None) << "";
    QTest::newRow("a reading") << QByteArray("Banner") << int(TextEntryImpl::KeyboardEntry) << "";
}

void TestTextEntry::openingFollowsModeAndAccess()
{
    QFETCH(QByteArray, name);
    QFETCH(int, mode);
    QFETCH(QString, mechanism);
    std::unique_ptr<TextEntryImpl> field = boundField(name.constData(), 40, TextEntryImpl::EntryModeEnum(mode));
    QVERIFY(field);

    touch(*field);

    BaseEntryImpl* pad = field->entryMechanism();
    QCOMPARE(pad ? QString::fromLatin1(pad->metaObject()->className()) : QString(), mechanism);
    if (!pad) {
        QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
        QVERIFY(!field->getLineEdit()->isEnabled());
        return;
    }
    QVERIFY(pad->isVisible());
    // A password shows as bullets in the pad's read-out too.
    const bool password = mode == TextEntryImpl::PasswordEntry;
    QCOMPARE(pad->findChild<QLineEdit*>()->echoMode() == QLineEdit::Password, password);
    QCOMPARE(field->getLineEdit()->echoMode() == QLineEdit::Password, password);
    emit field->CloseEntryMechanism();
    QVERIFY(!pad->isVisible());
}

void TestTextEntry::keyboardOpensAwayFromTheField_data()
{
    QTest::addColumn<int>("fieldY");
    QTest::addColumn<bool>("atTheBottom");
    QTest::newRow("field in the upper half") << 40 << true;
    QTest::newRow("field in the lower half") << 380 << false;
}

void TestTextEntry::keyboardOpensAwayFromTheField()
{
    QFETCH(int, fieldY);
    QFETCH(bool, atTheBottom);
    std::unique_ptr<TextEntryImpl> field = boundField("Label", fieldY);
    QVERIFY(field);

    touch(*field);

    const QRect placed = field->entryMechanism()->geometry();
    QCOMPARE(placed.center().x(), m_screen->width() / 2 - (placed.width() % 2 ? 0 : 1));
    QCOMPARE(placed.top(), atTheBottom ? m_screen->height() - placed.height() - 5 : 5);
    emit field->CloseEntryMechanism();
}

// The send waits on a hung engine; the field goes meanwhile and takes nothing down.
void TestTextEntry::destroyedWhileASendIsInFlight()
{
    std::unique_ptr<TextEntryImpl> field = boundField("Label");
    QVERIFY(field);
    m_engine->hangNextSet("Label", 1, std::chrono::milliseconds(500));
    const unsigned sets = m_engine->setCount("Label");

    enter(*field, QStringLiteral("late"));
    QTRY_COMPARE(m_engine->setCount("Label"), sets + 1);
    field.reset();

    QTRY_COMPARE(engineText("Label"), std::string("late"));
}

void TestTextEntry::looks()
{
    std::unique_ptr<TextEntryImpl> field = boundField("Label", 40);
    QVERIFY(field);
    TextEntryImpl reading(m_screen, QStringLiteral("Banner (read only)"));
    reading.setGeometry(40, 110, 300, 60);
    reading.show();
    reading.setAttributeName(QStringLiteral("Banner"));
    reading.bindAttribute(m_engine->attribute("Banner"));
    QTRY_COMPARE(reading.text(), QStringLiteral("engine text"));
    field->setText(manyScripts);
    touch(*field);

    const QImage picture = TestSupport::savePng(m_screen, QStringLiteral("textentry"));
    QCOMPARE(picture.size(), m_screen->size());
    emit field->CloseEntryMechanism();
}

QTEST_MAIN(TestTextEntry)
#include "tst_textentry.moc"
