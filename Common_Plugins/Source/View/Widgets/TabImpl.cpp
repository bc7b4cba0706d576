#include "TabImpl.h"

#include "ScrollableMenuBarFrame.h"
#include "TabBar.h"

#include <QEvent>
#include <QLayout>

namespace {

//! Thickness of the bar on every side, and the strip's height across a top or foot bar.
constexpr int barThickness = 35;
constexpr int stripHeight = 42;

} // namespace

TabImpl::TabImpl(QWidget* parent)
    : QTabWidget(parent)
    , m_tabBar(new TabBar(this, QTabWidget::North))
{
    // The base's own bar still makes the pane's room, but cannot be seen.
    setStyleSheet(QStringLiteral("    QTabWidget::pane {        border: 2px solid #fff;        border-radius: 20px;    }    QTabWidget::tab-bar {        background-color: transparent;        border: none;    }    QTabBar {        background-color: transparent;        color: transparent;    }    QTabBar QToolButton {        background-color: transparent;        border: none;        color: transparent;    }    QTabBar::tab {        min-height: 42px;        min-width: 42px;        color: rgba(0,0,0,0);        border: none;    }"));
    connect(m_tabBar, &TabBar::currentSelected, this, &TabImpl::setCurrentIndex);
    connect(this, &QTabWidget::currentChanged, this, &TabImpl::followCurrentPage);
}

TabImpl::~TabImpl() = default;

TabBar* TabImpl::bar() const { return m_tabBar; }

void TabImpl::setTabPosition(QTabWidget::TabPosition position)
{
    QTabWidget::setTabPosition(position);
    m_tabBar->setTabPosition(position);
    positionTabs();
}

QWidget* TabImpl::widget(int index) const { return QTabWidget::widget(index); }

void TabImpl::setCurrentIndex(int index)
{
    QTabWidget::setCurrentIndex(index);
    if (m_tabBar->currentIndex() != index)
        m_tabBar->setCurrentIndex(index);
}

void TabImpl::followCurrentPage(int index)
{
    // The first page is current before its tab exists; adding the tab selects it.
    if (index < m_tabBar->count())
        m_tabBar->setCurrentIndex(index);
}

void TabImpl::hideTab(int index)
{
    if (index == m_tabBar->currentIndex())
        m_tabBar->moveToVisibleTab();
    m_tabBar->hideTab(index);
    positionTabs();
    resizeInnerBar();
}

void TabImpl::showTab(int index)
{
    m_tabBar->showTab(index);
    positionTabs();
    resizeInnerBar();
}

void TabImpl::setTabText(int index, const QString& text)
{
    m_tabBar->setTabText(index, text);
}

void TabImpl::positionTabs()
{
    const int w = width() - 1;
    const int h = height() - 1;
    QRect place;
    switch (tabPosition()) {
    case QTabWidget::South: {
        const int top = height() - m_tabBar->height();
        place = QRect(QPoint(0, top), QPoint(w, top + barThickness));
        break;
    }
    case QTabWidget::East: {
        const int left = width() - m_tabBar->width();
        place = QRect(QPoint(left, 0), QPoint(left + barThickness, h));
        break;
    }
    case QTabWidget::West:
        place = QRect(QPoint(0, 0), QPoint(barThickness, h));
        break;
    default:
        place = QRect(QPoint(0, 0), QPoint(w, barThickness));
        break;
    }
    m_tabBar->setGeometry(place);
}

void TabImpl::resizeInnerBar()
{
    ScrollableMenuBarFrame* strip = m_tabBar->strip();
    const QLayout* tabs = strip->layout();
    if (!tabs)
        return;
    const bool side = tabPosition() == QTabWidget::West || tabPosition() == QTabWidget::East;
    if (side)
        strip->resize(tabs->geometry().width(), tabs->sizeHint().height());
    else
        strip->resize(tabs->sizeHint().width(), stripHeight);
}

QSize TabImpl::sizeHint() const { return QSize(75, 75); }
QSize TabImpl::minimumSizeHint() const { return QSize(75, 75); }

bool TabImpl::event(QEvent* event)
{
    // No tool tips on this widget.
    if (event->type() == QEvent::ToolTip)
        return false;
    return QTabWidget::event(event);
}

void TabImpl::tabInserted(int index)
{
    QTabWidget::tabInserted(index);
    m_tabBar->addTab(tabText(index));
    // A page added to a shown widget gets its tab on the strip at once.
    resizeInnerBar();
}

void TabImpl::resizeEvent(QResizeEvent* event)
{
    m_tabBar->raise();
    positionTabs();
    QTabWidget::resizeEvent(event);
}

void TabImpl::showEvent(QShowEvent* event)
{
    QTabWidget::showEvent(event);
    resizeInnerBar();
}
