#ifndef GLOBALIMPL_H
#define GLOBALIMPL_H

#include <QObject>
#include <QPointer>

namespace Brenmoor {
struct LockerID;
}
class QRVStatusBar;
class SystemModule;
class QWidget;

/*!
  The user interface's one global object.

  It knows the host's status bar, desktop and top navigation menu, owns the
  system module, and keeps the one entry mechanism of the whole interface:
  only one widget at a time may have its keypad, list or spinner open.
  The host registers its widgets with the setters; the platform never owns
  them, and forgets each one when it is destroyed.
*/
class GlobalImpl : public QObject
{
    Q_OBJECT

public:
    //! Never null; made on first use and deleted with the application.
    static GlobalImpl* getInstance();

    QRVStatusBar* statusBar() const;
    void setStatusBar(QRVStatusBar* bar);

    QWidget* desktop() const;
    void setDesktop(QWidget* desktop);

    QWidget* topNavMenu() const;
    void setTopNavMenu(QWidget* menu);

    SystemModule* systemModule() const;

    //! The widget that holds the entry mechanism, or null.
    QWidget* entryMechanism() const;
    //! Asks to hold it; refused while another widget does. Read entryMechanism() to learn the answer.
    void setEntryMechanism(QWidget* widget);
    //! Gives it up; does nothing when \a widget is not the holder.
    void releaseEntryMechanism(QWidget* widget);

    //! This process as a locker of engine attributes. Safe from any thread.
    static const Brenmoor::LockerID& getLockerID();
    //! Name of the top-level screen that holds \a widget, for log lines.
    static QString getParentWindowName(QWidget* widget);

signals:
    void entryMechanismChanged(QWidget* holder);

private:
    GlobalImpl();
    ~GlobalImpl() override;
    static void destroyInstance();

    QPointer<QRVStatusBar> m_statusBar;
    QPointer<QWidget> m_desktop;
    QPointer<QWidget> m_topNavMenu;
    QPointer<QWidget> m_entryMechanism;
    SystemModule* m_systemModule = nullptr;
};

#endif // GLOBALIMPL_H
