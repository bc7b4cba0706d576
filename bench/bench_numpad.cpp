// What a numeric entry costs the operator: from a touch on the field until
// the keypad is painted, and from the unit key that ends an entry until the
// engine's set() has the value (in-process engine, real CORBA call from a
// worker). Prints p50 and p99 in microseconds.
#include "BenchInput.h"
#include "BenchReport.h"
#include "GlobalImpl.h"
#include "NumericEntryImpl.h"
#include "NumpadEntryImpl.h"
#include "SimEngine.h"
#include "SystemModule.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>

namespace {

void touch(NumericEntryImpl& field)
{
    benchMouse(&field, QEvent::MouseButtonRelease, field.findChild<QLineEdit*>()->geometry().center(), Qt::NoButton);
}

} // namespace

int main(int argc, char* argv[])
{
    benchDefaultToOffscreen();
    QApplication app(argc, argv);
    QWidget screen;
    screen.resize(800, 480);
    GlobalImpl::getInstance()->systemModule()->addSystemScreen(QStringLiteral("MainWindow"), &screen);
    screen.show();

    SimEngine engine;
    SimAttributeSetup center;
    center.name = "Center";
    center.kind = SimKind::AttribValueDouble;
    center.value = 1e9;
    center.limits = SimLimits{1e3, 6e9, 1};
    center.units = {"0,0,0", "Hz;;;;"};
    engine.addAttribute(center);

    NumericEntryImpl field(&screen, QStringLiteral("Centre frequency"));
    field.setGeometry(40, 40, 220, 60);
    field.setUnitListString(QStringLiteral("0,0,0:Hz;;;;|0,3,0:Hz;;;;|0,6,0:Hz;;;;|0,9,0:Hz;;;;"));
    field.setDefaultUnit(2);
    field.show();
    field.bindAttribute(engine.attribute("Center"));
    QApplication::processEvents();
    NumpadEntryImpl* pad = field.numpadWidget();

    benchReport("keypad open until painted", 1000, [&] {
        touch(field);
        pad->repaint();
    }, [&] {
        QMetaObject::invokeMethod(&field, "closeInput");
        QApplication::processEvents();
    });

    int round = 0;
    unsigned sets = engine.setCount("Center");
    benchReport("Enter until engine set()", 1000, [&] {
        pad->getButton(QStringLiteral("MHz"))->click();
        while (engine.setCount("Center") == sets)
            QApplication::processEvents(QEventLoop::AllEvents, 1);
        sets = engine.setCount("Center");
    }, [&] {
        QApplication::processEvents();
        touch(field);
        pad->getButton(QString::number(1 + round++ % 9))->click();
    });
    return 0;
}
