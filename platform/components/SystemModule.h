#ifndef SYSTEMMODULE_H
#define SYSTEMMODULE_H

#include <QHash>
#include <QObject>
#include <QPointer>

class QWidget;

/*!
  The host's screens and services, by name.

  Pop-ups are parented to the screen "MainWindow"; a host registers its own,
  and until it does the module supplies a plain top-level one so that a
  pop-up always has a parent. The module "ProcessManager" always exists.
*/
class SystemModule : public QObject
{
    Q_OBJECT

public:
    explicit SystemModule(QObject* parent = nullptr);
    ~SystemModule() override;

    //! The screen of that name, or null for an unknown name.
    QWidget* getSystemScreen(const QString& name);
    void addSystemScreen(const QString& name, QWidget* screen);

    //! The service of that name, or null for an unknown name.
    QObject* getModule(const QString& name) const;
    //! Registers a service; the module takes ownership.
    void addModule(const QString& name, QObject* module);

private:
    QHash<QString, QPointer<QWidget>> m_screens;
    QHash<QString, QObject*> m_modules;
    QWidget* m_fallbackMainWindow = nullptr;
};

#endif // SYSTEMMODULE_H
