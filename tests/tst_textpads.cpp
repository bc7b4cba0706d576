// IPEntryImpl and LatLonEntryImpl on a plain QLineEdit: which addresses and
// positions they take, typing on them, Enter refusing a malformed value with
// a reason under the read-out, and pictures of both pads.
#include "IPEntryImpl.h"
#include "LatLonEntryImpl.h"
#include "TestSupport.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {

//! \a kind is "ip", "lat" or "lon".
std::unique_ptr<BaseEntryImpl> makePad(const QString& kind, QLineEdit* field, QWidget* parent = nullptr,
                                       const QList<QString>* units = nullptr)
{
    if (kind == QLatin1String("ip"))
        return std::make_unique<IPEntryImpl>(field, parent, 260, 380);
    const auto mode = kind == QLatin1String("lat") ? LatLonEntryImpl::Latitude : LatLonEntryImpl::Longitude;
    return std::make_unique<LatLonEntryImpl>(field, mode, parent, units, 300, 380);
}

bool isValid(const QString& kind, const QString& text, QString* reason)
{
    if (kind == QLatin1String("ip"))
        return IPEntryImpl::isValidAddress(text, reason);
    const auto mode = kind == QLatin1String("lat") ? LatLonEntryImpl::Latitude : LatLonEntryImpl::Longitude;
    return LatLonEntryImpl::isValidPosition(text, mode, reason);
}

void press(BaseEntryImpl& pad, const QString& key)
{
    QPushButton* button = pad.getButton(key);
    QVERIFY2(button, qPrintable(key));
    button->click();
}

//! Presses one key per character: "." is the point, "-" the sign, "<" backspace, "°" the degree sign.
void type(BaseEntryImpl& pad, const QString& keys)
{
    const QMap<QChar, QString> named = {{QLatin1Char('.'), QStringLiteral("dot")},
                                        {QLatin1Char('-'), QStringLiteral("plmin")},
                                        {QLatin1Char('<'), QStringLiteral("bksp")},
                                        {QChar(0x00b0), QStringLiteral("degree")}};
    for (const QChar c : keys)
        press(pad, named.value(c, c));
}

QString reasonShown(BaseEntryImpl& pad) { return pad.findChild<QLabel*>(QStringLiteral("Gap"))->text(); }

} // namespace

class TestTextPads : public QObject
{
    Q_OBJECT

private slots:
    void enter_data();
    void enter();
    void typing_data();
    void typing();
    void pictures();
};

void TestTextPads::enter_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::newRow("address") << "ip" << "192.168.1.20" << true;
    QTest::newRow("all zero") << "ip" << "0.0.0.0" << true;
    QTest::newRow("all highest") << "ip" << "255.255.255.255" << true;
    QTest::newRow("octet 256") << "ip" << "10.256.0.1" << false;
    QTest::newRow("beyond int") << "ip" << "4294967296.1.1.1" << false;
    QTest::newRow("leading zero") << "ip" << "192.168.01.1" << false;
    QTest::newRow("empty part") << "ip" << "1..2.3" << false;
    QTest::newRow("three parts") << "ip" << "1.2.3" << false;
    QTest::newRow("five parts") << "ip" << "1.2.3.4.5" << false;
    QTest::newRow("letters") << "ip" << "1.2.c.4" << false;
    QTest::newRow("trailing dot") << "ip" << "1.2.3.4." << false;
    QTest::newRow("space") << "ip" << "1.2. 3.4" << false;
    QTest::newRow("digit of another script") << "ip" << "1.2.3.\u0664" << false;
    QTest::newRow("empty address") << "ip" << "" << false;

    QTest::newRow("latitude") << "lat" << "51\u00b030.25N" << true;
    QTest::newRow("longitude") << "lon" << "0\u00b007.5W" << true;
    QTest::newRow("pole") << "lat" << "90\u00b000.0S" << true;
    QTest::newRow("date line") << "lon" << "180\u00b000.0000E" << true;
    QTest::newRow("minutes just below 60") << "lon" << "179\u00b059.9999W" << true;
    QTest::newRow("latitude 91") << "lat" << "91\u00b000.0N" << false;
    QTest::newRow("longitude 181") << "lon" << "181\u00b000.0E" << false;
    QTest::newRow("minutes 60") << "lat" << "45\u00b060.0N" << false;
    QTest::newRow("beyond the pole by a fraction") << "lat" << "90\u00b000.1N" << false;
    QTest::newRow("beyond the date line by a fraction") << "lon" << "180\u00b000.01W" << false;
    QTest::newRow("five decimals") << "lat" << "51\u00b030.12345N" << false;
    QTest::newRow("longitude letter on latitude") << "lat" << "51\u00b030.25E" << false;
    QTest::newRow("latitude letter on longitude") << "lon" << "51\u00b030.25N" << false;
    QTest::newRow("bar of the letter class") << "lat" << "51\u00b030.25|" << false;
    QTest::newRow("letter in front") << "lat" << "N51\u00b030.25" << false;
    QTest::newRow("letter inside") << "lat" << "51\u00b030N.25" << false;
    QTest::newRow("no letter") << "lat" << "51\u00b030.25" << false;
    QTest::newRow("empty position") << "lon" << "" << false;
}

void TestTextPads::enter()
{
    QFETCH(QString, kind);
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QString reason;
    QCOMPARE(isValid(kind, text, &reason), valid);
    QCOMPARE(reason.isEmpty(), valid);

    // Set on the field directly: it may hold what typing on the pad would never let through.
    QLineEdit field;
    auto pad = makePad(kind, &field);
    field.setText(text);
    QSignalSpy submitted(pad.get(), kind == QLatin1String("ip") ? SIGNAL(enterPressed()) : SIGNAL(updateUnit(QString)));
    press(*pad, QStringLiteral("enter"));
    QCOMPARE(submitted.count(), valid ? 1 : 0);
    QCOMPARE(reasonShown(*pad), reason);
    QCOMPARE(field.text(), text); // a refused value stays for correcting
    press(*pad, QStringLiteral("5"));
    QCOMPARE(reasonShown(*pad), QString());
}

void TestTextPads::typing_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("start");
    QTest::addColumn<int>("cursor");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("result");
    QTest::newRow("points as often as pressed") << "ip" << "1" << 1 << ".." << "1..";
    QTest::newRow("no sign to type") << "ip" << "12" << 2 << "-" << "12";
    QTest::newRow("backspace at the start") << "ip" << "1.2" << 0 << "<" << "1.2";
    QTest::newRow("backspace takes a point") << "ip" << "1.2" << 2 << "<" << "12";
    QTest::newRow("whole latitude") << "lat" << "" << 0 << "51\u00b030.25N" << "51\u00b030.25N";
    QTest::newRow("fifth decimal refused") << "lat" << "" << 0 << "1\u00b02.12345" << "1\u00b02.1234";
    QTest::newRow("third degree digit in latitude") << "lat" << "" << 0 << "123" << "12";
    QTest::newRow("third degree digit in longitude") << "lon" << "" << 0 << "123" << "123";
    QTest::newRow("letter before the minutes") << "lon" << "" << 0 << "12E" << "12";
    QTest::newRow("backspace in a position") << "lat" << "" << 0 << "1\u00b03<4" << "1\u00b04";
}

void TestTextPads::typing()
{
    QFETCH(QString, kind);
    QFETCH(QString, start);
    QFETCH(int, cursor);
    QFETCH(QString, keys);
    QFETCH(QString, result);
    QLineEdit field;
    auto pad = makePad(kind, &field);
    pad->setText(start);
    field.setCursorPosition(cursor);
    type(*pad, keys);
    QCOMPARE(field.text(), result);
    QCOMPARE(pad->findChild<QLineEdit*>()->text(), result);
}

void TestTextPads::pictures()
{
    QWidget screen;
    screen.setObjectName(QStringLiteral("screen"));
    screen.setStyleSheet(QStringLiteral("QWidget#screen { background-color: #101418; }"));
    screen.resize(340, 420);
    QLineEdit field(&screen);
    field.hide();

    const QList<QString> datums = {QStringLiteral("WGS 84"), QStringLiteral("ED 50")};
    const auto picture = [&](const QString& kind, const QString& value, const QString& name, bool enter = false) {
        auto pad = makePad(kind, &field, &screen, kind == QLatin1String("lon") ? &datums : nullptr);
        pad->move(20, 20);
        field.setText(value);
        pad->setValue(value);
        if (enter)
            press(*pad, QStringLiteral("enter"));
        screen.show();
        pad->show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        QVERIFY(!TestSupport::savePng(&screen, name).isNull());
    };

    picture(QStringLiteral("ip"), QStringLiteral("255.255.255.255"), QStringLiteral("textpads_ip"));
    picture(QStringLiteral("ip"), QStringLiteral("192.168..20"), QStringLiteral("textpads_ip_refused"), true);
    picture(QStringLiteral("lat"), QStringLiteral("51\u00b030.25N"), QStringLiteral("textpads_latitude"));
    picture(QStringLiteral("lon"), QStringLiteral("179\u00b059.9999W"), QStringLiteral("textpads_longitude_units"));
}

QTEST_MAIN(TestTextPads)
#include "tst_textpads.moc"
