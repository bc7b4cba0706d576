#ifndef DEMOWINDOW_H
#define DEMOWINDOW_H

#include <QWidget>

class QRVStatusBar;
class TabImpl;

/*!
  The demo instrument's one window, the screen "MainWindow": the screens
  on the library's own tabs, and the status bar. It registers itself, its
  tab bar and its status bar with the platform, as the instrument's UI
  process does.
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
    /*!
      Puts a status lamp for the engine's "Overload" reading and a battery
      for its "Battery" charge into the status bar; the host binds them
      with the screens.
    */
    void addStatusIndicators();

private:
    TabImpl* m_screens = nullptr;
    QRVStatusBar* m_statusBar = nullptr;
};

#endif // DEMOWINDOW_H
