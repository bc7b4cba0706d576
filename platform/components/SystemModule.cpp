#include "SystemModule.h"

#include "ProcessManager.h"

#include <QWidget>

namespace {
const QString mainWindowName = QStringLiteral("MainWindow");
}

SystemModule::SystemModule(QObject* parent)
    : QObject(parent)
{
    addModule(QStringLiteral("ProcessManager"), new ProcessManager);
}

SystemModule::~SystemModule()
{
    delete m_fallbackMainWindow;
}

QWidget* SystemModule::getSystemScreen(const QString& name)
{
    QWidget* screen = m_screens.value(name);
    if (screen || name != mainWindowName)
        return screen;
    if (!m_fallbackMainWindow) {
        m_fallbackMainWindow = new QWidget;
        m_fallbackMainWindow->setObjectName(mainWindowName);
        m_fallbackMainWindow->resize(800, 480);
    }
    return m_fallbackMainWindow;
}

void SystemModule::addSystemScreen(const QString& name, QWidget* screen)
{
    m_screens.insert(name, screen);
}

QObject* SystemModule::getModule(const QString& name) const
{
    return m_modules.value(name);
}

void SystemModule::addModule(const QString& name, QObject* module)
{
    delete m_modules.value(name);
    module->setParent(this);
    m_modules.insert(name, module);
}
