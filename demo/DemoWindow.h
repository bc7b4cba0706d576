#ifndef DEMOWINDOW_H
#define DEMOWINDOW_H

#include <QWidget>

class QRVStatusBar;
class QStackedWidget;
class QHBoxLayout;

/*!
  The demo instrument's one window, the screen "MainWindow": a row of
  screen keys at the top, the current screen, and the status bar. It
  registers itself, its key row and its status bar with the platform, as the
  instrument's UI process does.
*/
class DemoWindow : public QWidget
{
    Q_OBJECT

public:
    explicit DemoWindow(QWidget* parent = nullptr);

    void addScreen(const QString& title, QWidget* screen);
    int screenCount() const;
    void showScreen(int index);
    QString screenTitle(int index) const;
    QWidget* screenWidget(int index) const;
    QRVStatusBar* statusBar() const;

private:
    QHBoxLayout* m_screenKeys = nullptr;
    QStackedWidget* m_screens = nullptr;
    QRVStatusBar* m_statusBar = nullptr;
    QStringList m_titles;
};

#endif // DEMOWINDOW_H
