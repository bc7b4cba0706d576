#include "UnitDescriptions.h"
#include "UnitError.h"
#include "ValueHelper.h"

#include <Brenmoor.hh>

#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <iterator>
#include <limits>

using namespace Kelvane::Value;
namespace D = Kelvane::Value::UnitDescriptions;

// Units as widgets and meters read, label, send and convert them.
class TestValue : public QObject
{
    Q_OBJECT

private slots:
    void conversionsMatchHandComputedValues_data();
    void conversionsMatchHandComputedValues();
    void otherBaseUnitsKeepTheValue();
    void readyMadeUnitsRoundTripAndLabel_data();
    void readyMadeUnitsRoundTripAndLabel();
    void baseUnitsCompareWithoutScale();
    void bestFitUnit_data();
    void bestFitUnit();
    void malformedDescriptionsAreRefused_data();
    void malformedDescriptionsAreRefused();
    void wireValueIsWrapped();
    void fuzzedDescriptionsNeverCrashAndRoundTrip();
};

namespace {
constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

Units unit(const QString& description)
{
    return ValueHelper::convertToUnits(description);
}

bool near(double actual, double expected)
{
    if (std::isnan(expected) || std::isinf(expected))
        return QString::number(actual) == QString::number(expected);
    return std::abs(actual - expected) <= 1e-12 * std::max(1.0, std::abs(expected));
}

QString wireText(const Brenmoor::VALUE_UNITS::Units& wire)
{
    return QString::fromUtf8(wire.scale.in()) + ':' + QString::fromUtf8(wire.base.in());
}
} // namespace

void TestValue::conversionsMatchHandComputedValues_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<double>("expected");
    QTest::newRow("12 MHz is 12000000 Hz") << 12.0 << D::MHz << D::Hz << 12e6;
    QTest::newRow("1.5 ms is 1500 us") << 1.5 << D::ms << D::us << 1500.0;
    QTest::newRow("0 dBm is 1 mW") << 0.0 << D::dBm << D::mW << 1.0;
    QTest::newRow("0 dBm is 0.001 W") << 0.0 << D::dBm << D::W << 0.001;
    QTest::newRow("30 dBm is 1 W") << 30.0 << D::dBm << D::W << 1.0;
    QTest::newRow("-30 dBm is 1 uW") << -30.0 << D::dBm << D::uW << 1.0;
    QTest::newRow("1 mW is 0 dBm") << 1.0 << D::mW << D::dBm << 0.0;
    QTest::newRow("2 W is 33.01 dBm") << 2.0 << D::W << D::dBm << 10 * std::log10(2000.0);
    QTest::newRow("10 dBW is 10 W") << 10.0 << D::dBW << D::W << 10.0;
    QTest::newRow("10 dBW is 40 dBm") << 10.0 << D::dBW << D::dBm << 40.0;
    QTest::newRow("20 dB is a power ratio of 100") << 20.0 << D::dB << D::Unitless << 100.0;
    QTest::newRow("50 % is 0.5") << 50.0 << D::Percent << D::Unitless << 0.5;
    QTest::newRow("1 V is 120 dBuV") << 1.0 << D::V << D::dBuV << 120.0;
    QTest::newRow("60 dBuV is 1 mV") << 60.0 << D::dBuV << D::mV << 1.0;
    QTest::newRow("0 W is -inf dBm") << 0.0 << D::W << D::dBm << -Inf;
    QTest::newRow("-1 mW has no level") << -1.0 << D::mW << D::dBm << NaN;
    QTest::newRow("-inf dBm is 0 W") << -Inf << D::dBm << D::W << 0.0;
    QTest::newRow("-inf dBm is -inf dBW") << -Inf << D::dBm << D::dBW << -Inf;
    // Far past what a double holds in watts, a level still shifts exactly.
    QTest::newRow("4000 dBm is 3970 dBW") << 4000.0 << D::dBm << D::dBW << 3970.0;
}

void TestValue::conversionsMatchHandComputedValues()
{
    QFETCH(double, value);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(double, expected);
    const double converted = ValueHelper::convertValue(value, unit(from), unit(to));
    QVERIFY2(near(converted, expected), qPrintable(QString::number(converted, 'g', 17)));
    Value_object<double> object(value, unit(from));
    object.Convert_to(unit(to));
    QVERIFY(near(object.Get_value(), expected));
    QVERIFY(object.Get_unit() == unit(to));
}

void TestValue::otherBaseUnitsKeepTheValue()
{
    const QRegularExpression logLine("^UserInterface - .*base units differ");
    QTest::ignoreMessage(QtDebugMsg, logLine);
    QCOMPARE(ValueHelper::convertValue(5.0, unit(D::Hz), unit(D::W)), 5.0);
    Value_object<double> frequency(5.0, unit(D::kHz));
    QTest::ignoreMessage(QtDebugMsg, logLine);
    frequency.Convert_to(unit(D::dBm));
    QCOMPARE(frequency.Get_value(), 5.0);
    QVERIFY(frequency.Get_unit() == unit(D::kHz));
}

void TestValue::readyMadeUnitsRoundTripAndLabel_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("label");
    const char* labels[] = {"", "%", "dB", "Hz", "kHz", "MHz", "GHz", "s", "ms", "µs", "V", "mV", "dBV", "dBµV",
                            "A", "m", "bit/s", "W", "mW", "µW", "dBm", "dBW"};
    static_assert(std::size(labels) == std::size(D::All));
    for (size_t i = 0; i < std::size(labels); ++i)
        QTest::newRow(D::All[i]) << QString(D::All[i]) << QString::fromUtf8(labels[i]);
}

void TestValue::readyMadeUnitsRoundTripAndLabel()
{
    QFETCH(QString, description);
    QFETCH(QString, label);
    Units parsed;
    QString error;
    QVERIFY2(ValueHelper::parseUnits(description, &parsed, &error), qPrintable(error));
    QCOMPARE(ValueHelper::getUnitString(parsed), label);
    QCOMPARE(ValueHelper::toDescription(parsed), description);
    const Brenmoor::VALUE_UNITS::Units wire = ValueHelper::toWireUnits(parsed);
    QCOMPARE(wireText(wire), description);
    QVERIFY(ValueHelper::convertToUnits(wire) == parsed);
    QVERIFY(QVariant::fromValue(parsed).value<Units>() == parsed);
}

void TestValue::baseUnitsCompareWithoutScale()
{
    QVERIFY(unit(D::Hz).base == unit(D::GHz).base);
    QVERIFY(unit(D::dBm).base == unit(D::uW).base);
    QVERIFY(unit(D::dB).base == unit(D::Percent).base);
    QVERIFY(!(unit(D::Hz).base == unit(D::s).base));
    QVERIFY(!(unit(D::dB).base == unit(D::dBm).base));
    QVERIFY(unit(D::dBm).scale.logarithmic && unit(D::dB).scale.logarithmic && !unit(D::mW).scale.logarithmic);
    QVERIFY(C_Empty == Units() && C_Empty == unit(D::Unitless));
    QVERIFY(ValueHelper::getUnitString(C_Empty).isEmpty());
}

void TestValue::bestFitUnit_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<QString>("aUnit");
    QTest::addColumn<double>("b");
    QTest::addColumn<QString>("bUnit");
    QTest::addColumn<QString>("fitted");
    QTest::newRow("the larger decides") << 1500.0 << D::Hz << 3e6 << D::Hz << D::MHz;
    QTest::newRow("inverted limits") << 3.0 << D::MHz << 1500.0 << D::Hz << D::MHz;
    QTest::newRow("equal values") << 5.0 << D::kHz << 5.0 << D::kHz << D::kHz;
    QTest::newRow("negative by magnitude") << -2e-3 << D::s << 1e-4 << D::s << D::ms;
    QTest::newRow("exactly 1000") << 1000.0 << D::Hz << 0.0 << D::Hz << D::kHz;
    QTest::newRow("just below 1") << 0.999 << D::V << 0.0 << D::V << D::mV;
    QTest::newRow("zero and a value") << 0.0 << D::Hz << 1500.0 << D::Hz << D::kHz;
    QTest::newRow("both zero keep a's unit") << 0.0 << D::kHz << 0.0 << D::kHz << D::kHz;
    QTest::newRow("NaN is left out") << NaN << D::Hz << 2e9 << D::Hz << D::GHz;
    QTest::newRow("nothing finite keeps a's unit") << Inf << D::MHz << NaN << D::MHz << D::MHz;
    QTest::newRow("above tera") << 1e30 << D::Hz << 1.0 << D::Hz << "0,12,0:Hz;;;;";
    QTest::newRow("below pico") << 1e-300 << D::s << 0.0 << D::s << "0,-12,0:s;;;;";
    QTest::newRow("levels stay") << -20.0 << D::dBm << 10.0 << D::dBm << D::dBm;
    QTest::newRow("unitless stays") << 5000.0 << D::Percent << 1.0 << D::Percent << D::Percent;
    QTest::newRow("other bases keep a's unit") << 1500.0 << D::Hz << 1.0 << D::W << D::Hz;
}

void TestValue::bestFitUnit()
{
    QFETCH(double, a);
    QFETCH(QString, aUnit);
    QFETCH(double, b);
    QFETCH(QString, bUnit);
    QFETCH(QString, fitted);
    const Units best = ValueHelper::bestFitUnit({a, unit(aUnit)}, {b, unit(bUnit)});
    QCOMPARE(ValueHelper::toDescription(best), fitted);
}

void TestValue::malformedDescriptionsAreRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fault");
    QTest::newRow("empty") << "" << "is empty";
    QTest::newRow("no ':'") << "0,0,0" << "one ':'";
    QTest::newRow("prefix letter and symbol") << "k:Hz" << "3 fields";
    QTest::newRow("two scale fields") << "0,0:Hz;;;;" << "3 fields";
    QTest::newRow("four base fields") << "0,0,0:Hz;;;" << "5 fields";
    QTest::newRow("letter for a number") << "0,k,0:Hz;;;;" << "exponent \"k\" at character 3";
    QTest::newRow("plus sign") << "0,+3,0:Hz;;;;" << "not a plainly written";
    QTest::newRow("minus zero") << "0,0,-0:Hz;;;;" << "reference \"-0\"";
    QTest::newRow("huge exponent") << "0,99999999999,0:Hz;;;;" << "from -999 to 999";
    QTest::newRow("exponent past tera") << "0,15,0:Hz;;;;" << "exponent 15 at character 3: use -12 to 12";
    QTest::newRow("exponent off the steps") << "0,4,0:Hz;;;;" << "steps of 3";
    QTest::newRow("other logarithmic factor") << "7,0,0:W;;;;" << "logarithmic factor 7 at character 1";
    QTest::newRow("prefixed level") << "10,3,0:W;;;;" << "no prefix";
    QTest::newRow("linear unit with reference") << "0,0,-3:W;;;;" << "no reference";
    QTest::newRow("unitless level with reference") << "10,0,-3:1;;;;" << "reference -3 at character 6";
    QTest::newRow("empty symbol") << "0,0,0:;;;;" << "symbol \"\" at character 7";
    QTest::newRow("symbol of 17") << "0,0,0:Abcdefghijklmnopq;;;;" << "at most 16";
    QTest::newRow("level as symbol") << "0,0,0:dBm;;;;" << "logarithmic factor";
    QTest::newRow("reserved field used") << "0,0,0:Hz;x;;;" << "base field 2 at character 10";
    QTest::newRow("a list") << QString(D::Hz) + '|' + D::kHz << "U+007c at character 13";
    QTest::newRow("embedded NUL") << QString::fromLatin1("0,0,0:H\0z;;;;", 13) << "U+0000 at character 8";
    QTest::newRow("space") << " 0,0,0:Hz;;;;" << "U+0020 at character 1";
    QTest::newRow("very long") << "0,0,0:" + QString(100000, 'a') + ";;;;" << "at most 64";
}

void TestValue::malformedDescriptionsAreRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, fault);
    Units kept = unit(D::MHz);
    QString error;
    QVERIFY(!ValueHelper::parseUnits(text, &kept, &error));
    QVERIFY2(error.contains(fault), qPrintable(error));
    QVERIFY(kept == unit(D::MHz));
    try {
        ValueHelper::convertToUnits(text);
        QFAIL("no UnitError");
    } catch (const UnitError& thrown) {
        QCOMPARE(QString::fromUtf8(thrown.what()), error);
    }
    Brenmoor::VALUE_UNITS::Units wire;
    wire.scale = text.section(':', 0, 0).toUtf8().constData();
    wire.base = text.section(':', 1).toUtf8().constData();
    QVERIFY_EXCEPTION_THROWN(ValueHelper::convertToUnits(wire), UnitError);
}

void TestValue::wireValueIsWrapped()
{
    Brenmoor::VALUE_DOUBLE::VALUE wire;
    wire.units = ValueHelper::toWireUnits(unit(D::dBm));
    wire.currentValue = -12.5;
    const Value_object<double> value = ValueHelper::convertValue(wire);
    QCOMPARE(value.Get_value(), -12.5);
    QVERIFY(value.Get_unit() == unit(D::dBm));
}

void TestValue::fuzzedDescriptionsNeverCrashAndRoundTrip()
{
    QRandomGenerator random(20261123);
    const QString alphabet = QStringLiteral("0123456789-+,:;|. 1HzWdBkµ/%") + QChar(0) + QChar(0xd800);
    int accepted = 0;
    for (int round = 0; round < 20000; ++round) {
        const bool fromScratch = random.bounded(4) == 0;
        QString text = fromScratch ? QString() : QString(D::All[random.bounded(int(std::size(D::All)))]);
        for (int edits = random.bounded(1, fromScratch ? 24 : 4); edits > 0; --edits) {
            const int at = random.bounded(text.size() + 1);
            const QChar c = alphabet[random.bounded(alphabet.size())];
            switch (text.isEmpty() ? 0 : random.bounded(3)) {
            case 0: text.insert(at, c); break;
            case 1: text.remove(qMin(at, text.size() - 1), 1); break;
            default: text[qMin(at, text.size() - 1)] = c;
            }
        }
        Units parsed;
        QString error;
        if (!ValueHelper::parseUnits(text, &parsed, &error)) {
            QVERIFY2(!error.isEmpty(), qPrintable(text));
            continue;
        }
        ++accepted;
        QCOMPARE(ValueHelper::toDescription(parsed), text);
        QCOMPARE(wireText(ValueHelper::toWireUnits(parsed)), text);
        QVERIFY(!ValueHelper::getUnitString(parsed).contains(QLatin1String("1e")));
    }
    // Mutants that stay valid must occur, or the round trip above checks nothing.
    QVERIFY2(accepted > 100, qPrintable(QString::number(accepted)));
}

QTEST_GUILESS_MAIN(TestValue)
#include "tst_value.moc"
