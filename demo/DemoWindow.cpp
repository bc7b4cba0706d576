#include "DemoWindow.h"

#include "CSS.h"
#include "GlobalImpl.h"
#include "QRVStatusBar.h"
#include "SystemModule.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

DemoWindow::DemoWindow(QWidget* parent)
    : QWidget(parent)
    , m_screens(new QStackedWidget(this))
    , m_statusBar(new QRVStatusBar(this))
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(QStringLiteral("Ruvell demo instrument"));
    resize(800, 480);
    setStyleSheet(QStringLiteral("QWidget#MainWindow { background-color: %1; }"
                                 "QFrame#TopNavMenu { background-color: %2; border-bottom: 2px solid %3; }"
                                 "QFrame#TopNavMenu QPushButton { color: %4; background: transparent; border: none;"
                                 " font: bold 16px; padding: 6px 14px; }"
                                 "QFrame#TopNavMenu QPushButton:checked { color: %5; border-bottom: 3px solid %5; }"
                                 "QLabel { color: %4; }")
                      .arg(CSS::background(), CSS::panel(), CSS::border(), CSS::text(), CSS::highlight()));

    auto* topNav = new QFrame(this);
    topNav->setObjectName(QStringLiteral("TopNavMenu"));
    m_screenKeys = new QHBoxLayout(topNav);
    m_screenKeys->setContentsMargins(4, 0, 4, 0);
    m_screenKeys->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(topNav);
    layout->addWidget(m_screens, 1);
    layout->addWidget(m_statusBar);

    GlobalImpl* global = GlobalImpl::getInstance();
    global->setStatusBar(m_statusBar);
    global->setDesktop(this);
    global->setTopNavMenu(topNav);
    global->systemModule()->addSystemScreen(QStringLiteral("MainWindow"), this);
}

void DemoWindow::addScreen(const QString& title, QWidget* screen)
{
    const int index = m_screens->addWidget(screen);
    m_titles << title;
    auto* key = new QPushButton(title);
    key->setCheckable(true);
    key->setAutoExclusive(true);
    key->setFocusPolicy(Qt::NoFocus);
    connect(key, &QPushButton::clicked, this, [this, index] { showScreen(index); });
    m_screenKeys->insertWidget(m_screenKeys->count() - 1, key);
    if (index == 0)
        showScreen(0);
}

int DemoWindow::screenCount() const { return m_screens->count(); }

void DemoWindow::showScreen(int index)
{
    m_screens->setCurrentIndex(index);
    if (auto* key = qobject_cast<QPushButton*>(m_screenKeys->itemAt(index)->widget()))
        key->setChecked(true);
}

QString DemoWindow::screenTitle(int index) const { return m_titles.value(index); }
QWidget* DemoWindow::screenWidget(int index) const { return m_screens->widget(index); }

QRVStatusBar* DemoWindow::statusBar() const { return m_statusBar; }
