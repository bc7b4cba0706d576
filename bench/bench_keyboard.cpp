// What typing on the on-screen keyboard costs the operator on the offscreen
// platform: from opening the hidden keyboard until it is painted, and from a
// touch on a letter key until the field it types into has repainted.
// Prints p50 and p99 in microseconds.
#include "BenchInput.h"
#include "BenchReport.h"
#include "KeyboardEntryImpl.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>

namespace {

void touch(QPushButton* key)
{
    const QPoint centre = key->rect().center();
    benchMouse(key, QEvent::MouseButtonPress, centre, Qt::LeftButton);
    benchMouse(key, QEvent::MouseButtonRelease, centre, Qt::NoButton);
}

} // namespace

int main(int argc, char* argv[])
{
    benchDefaultToOffscreen();
    QApplication app(argc, argv);
    QWidget screen;
    screen.resize(800, 480);
    QLineEdit field(QStringLiteral("Trace_07"), &screen);
    field.setGeometry(40, 40, 320, 32);
    KeyboardEntryImpl keyboard(&field, &screen, 680, 325);
    keyboard.move(60, 150);
    keyboard.hide();
    screen.show();
    QApplication::processEvents();

    // As the text field opens it: show, then the field's text in the echo.
    benchReport("keyboard open until painted", 1000, [&] {
        keyboard.show();
        keyboard.setValue(field.text());
        keyboard.repaint();
    }, [&] {
        keyboard.hide();
        QApplication::processEvents();
    });

    keyboard.show();
    const QString letters = QStringLiteral("qwertyuiopasdfghjklzxcvbnm");
    int round = 0;
    benchReport("key press until field repaints", 2000, [&] {
        touch(keyboard.getButton(letters.at(round++ % letters.size())));
        field.repaint();
    }, [&] {
        // A field of a few words, as names of files and traces are.
        if (field.text().size() >= 24)
            field.clear();
        QApplication::processEvents();
    });
    return 0;
}
