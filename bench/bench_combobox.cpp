// What a long selector costs the interface thread: a touch that opens a
// list of 500 choices until the strip is painted, and one step of a finger
// dragging it. Prints p50 and p99 in microseconds.
#include "BenchInput.h"
#include "BenchReport.h"
#include "ComboBoxImpl.h"
#include "ComboBoxItemImpl.h"
#include "ComboBoxListImpl.h"
#include "GlobalImpl.h"
#include "SystemModule.h"

#include <QApplication>
#include <QMouseEvent>

int main(int argc, char* argv[])
{
    benchDefaultToOffscreen();
    QApplication app(argc, argv);
    QWidget screen;
    screen.resize(800, 480);
    GlobalImpl::getInstance()->systemModule()->addSystemScreen(QStringLiteral("MainWindow"), &screen);
    screen.show();

    ComboBoxImpl combo(false, &screen);
    combo.setGeometry(40, 200, 200, 60);
    combo.show();
    QList<ComboBoxListStruct> rows;
    for (int i = 0; i < 500; ++i)
        rows.append(ComboBoxListStruct(i, QStringLiteral("Enumerator %1").arg(i), i % 7 != 3));
    combo.setList(rows, 250);
    QApplication::processEvents();

    benchReport("open 500 until painted", 200, [&] {
        benchMouse(&combo, QEvent::MouseButtonRelease, QPoint(20, 50), Qt::NoButton);
        QApplication::processEvents();
        combo.closeInput();
    });

    benchMouse(&combo, QEvent::MouseButtonRelease, QPoint(20, 50), Qt::NoButton);
    QApplication::processEvents();
    QWidget* item = combo.listWidget()->findChildren<ComboBoxItemImpl*>().at(250);
    const QPoint start = item->rect().center();
    // The finger's place on the glass; the item moves under it.
    const QPoint globalStart = item->mapToGlobal(start);
    benchMouse(item, QEvent::MouseButtonPress, start, Qt::LeftButton);
    int step = 0;
    // Up and down over most of the strip, one finger position per step.
    benchReport("drag step, painted", 2000, [&] {
        const int dy = 20 + (step++ % 400) * 25;
        QMouseEvent move(QEvent::MouseMove, start, globalStart - QPoint(0, dy), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(item, &move);
        QApplication::processEvents();
    });
    combo.closeInput();
    return 0;
}
