#include "DemoWindow.h"

#include "BatteryStatusIndicatorImpl.h"
#include "CSS.h"
#include "FlagStatusImpl.h"
#include "GlobalImpl.h"
#include "QRVStatusBar.h"
#include "SystemModule.h"
#include "TabBar.h"
#include "TabImpl.h"

#include <QVBoxLayout>

DemoWindow::DemoWindow(QWidget* parent)
    : QWidget(parent)
    , m_screens(new TabImpl(this))
    , m_statusBar(new QRVStatusBar(this))
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(QStringLiteral("Ruvell demo instrument"));
    resize(800, 480);
    setStyleSheet(QStringLiteral("QWidget#MainWindow { background-color: %1; }"
                                 "QLabel { color: %2; }")
                      .arg(CSS::background(), CSS::text()));
    m_screens->setObjectName(QStringLiteral("Screens"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->setSpacing(2);
    layout->addWidget(m_screens, 1);
    layout->addWidget(m_statusBar);

    GlobalImpl* global = GlobalImpl::getInstance();
    global->setStatusBar(m_statusBar);
    global->setDesktop(this);
    global->setTopNavMenu(m_screens->bar());
    global->systemModule()->addSystemScreen(QStringLiteral("MainWindow"), this);
}

void DemoWindow::addScreen(const QString& title, QWidget* screen)
{
    m_screens->addTab(screen, title);
}

int DemoWindow::screenCount() const { return m_screens->count(); }

void DemoWindow::showScreen(int index)
{
    m_screens->setCurrentIndex(index);
}

QString DemoWindow::screenTitle(int index) const { return m_screens->tabText(index); }
QWidget* DemoWindow::screenWidget(int index) const { return m_screens->widget(index); }

QRVStatusBar* DemoWindow::statusBar() const { return m_statusBar; }

void DemoWindow::addStatusIndicators()
{
    auto* lamp = new FlagStatusImpl;
    lamp->setObjectName(QStringLiteral("StatusLamp"));
    lamp->setAttributeName(QStringLiteral("Overload"));
    lamp->setLabel(QStringLiteral("Overload"));
    auto* battery = new Kelvane::gui::BatteryStatusIndicatorImpl;
    battery->setObjectName(QStringLiteral("StatusBattery"));
    battery->setAttributeName(QStringLiteral("Battery"));
    battery->setFixedSize(battery->minimumSizeHint().width(), 26);
    m_statusBar->addPermanentWidget(lamp);
    m_statusBar->addPermanentWidget(battery);
}
