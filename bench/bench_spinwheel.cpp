// What a turn of the spin wheel costs a frame on the offscreen platform:
// each frame is one finger move (the marker follows; every seventh move
// steps the value, which the read-out shows) and a full repaint of the
// wheel. Prints the frame's p50 and p99 in milliseconds and the frames per
// second reached; a 60 Hz turn needs under 16 ms, the goal is under 4.
// Also what making a wheel costs (microseconds), which each bound field pays.
#include "BenchInput.h"
#include "BenchReport.h"
#include "SpinWheelImpl.h"

#include <QApplication>
#include <QFrame>

#include <cmath>

int main(int argc, char* argv[])
{
    benchDefaultToOffscreen();
    QApplication app(argc, argv);
    QWidget screen;
    screen.resize(800, 480);
    SpinWheelImpl wheel(&screen, -1e9, 1e9, 2, 260, 330);
    wheel.move(40, 40);
    wheel.setValue(QStringLiteral("1234.56"));
    screen.show();
    QApplication::processEvents();

    const QPoint centre = wheel.findChild<QFrame*>(QStringLiteral("SpinFrame"))->mapTo(&wheel, QPoint(110, 110));
    auto onDial = [&](int frame) {
        const double radians = 0.3 + 0.05 * (frame % 100);
        return centre + QPoint(int(std::cos(radians) * 90.0), int(std::sin(radians) * 90.0));
    };
    // Every bound settable field makes its wheel when it binds.
    benchReport("wheel made", 200, [] { SpinWheelImpl made(nullptr, 0.0, 100.0, 2, 260, 330); });

    const int frames = 3000;
    benchFrames("wheel turn, one frame", frames, [&](int frame) {
        // A new gesture every hundred moves keeps the turn clockwise.
        if (frame % 100 == 0)
            benchMouse(&wheel, QEvent::MouseButtonPress, onDial(frame), Qt::LeftButton);
        else
            benchMouse(&wheel, QEvent::MouseMove, onDial(frame), Qt::LeftButton);
        wheel.repaint();
    });
    return 0;
}
