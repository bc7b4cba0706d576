// rv-screen-grab OUT.png: saves the whole primary screen of the display in
// DISPLAY, for pictures of programs that are not ours (Qt Designer).
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include <cstdio>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "xcb");
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: rv-screen-grab OUT.png\n");
        return 2;
    }
    const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
    if (screen.isNull() || !screen.save(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "rv-screen-grab: cannot grab the screen into %s\n", argv[1]);
        return 1;
    }
    return 0;
}
