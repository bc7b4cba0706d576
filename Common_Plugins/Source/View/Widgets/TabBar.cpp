#include "TabBar.h"

#include "CSS.h"
#include "QRVUtil.h"
#include "ScrollButton.h"
#include "ScrollableMenuBarFrame.h"
#include "Tab.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDebug>
#include <QScrollArea>

namespace {

//! The tabs' gradient from the light stop to the dark one, along (x2, y2).
QString gradient(int x2, int y2, int lightStop, int darkStop)
{
    return QStringLiteral("qlineargradient(x1:0, y1:0, x2:%1, y2:%2,                                     stop:%3   %4,                                     stop:%5   %6)")
        .arg(x2)
        .arg(y2)
        .arg(lightStop)
        .arg(CSS::gradientLight())
        .arg(darkStop)
        .arg(CSS::gradientDark());
}

const QString checkedAndScrollAreaRules =
    QStringLiteral("QPushButton:checked { background-color: #fff; border-color: #fff; color: #000; }"
                   "QScrollArea { border: none; background-color: transparent; }");

QString horizontalSheet()
{
    return QStringLiteral("QFrame#topFrame { background-color: transparent; border: none; min-height: 39px; } "
                          "QFrame#innerBar { background-color: transparent; border: none; } "
                          "QPushButton {    color: white;    background-color: ")
        + gradient(0, 1, 0, 1)
        + QStringLiteral(";    font-size: 18px;    border: 3px solid ") + CSS::border()
        + QStringLiteral(";    border-radius: 16px;    min-height: 28px;    max-height: 28px;    min-width: 100px;"
                         "    padding-top: 5px;}")
        + checkedAndScrollAreaRules;
}

QString verticalSheet()
{
    return QStringLiteral("QFrame#topFrame { background-color: transparent; border: none; min-width: 39px; } "
                          "QFrame#innerBar { background-color: transparent; border: none; min-width: 42px; } "
                          "QPushButton {    color: white;    font-size: 18px;    border: 3px solid ")
        + CSS::border()
        + QStringLiteral(";    border-radius: 16px;    min-width: 32px;    max-width: 32px;    min-height: 100px;}")
        + checkedAndScrollAreaRules;
}

//! The side bars' gradient runs across the tab, mirrored on the right.
QString sideSheet(int lightStop, int darkStop)
{
    return QStringLiteral("QPushButton {    background-color: ") + gradient(1, 0, lightStop, darkStop)
        + QStringLiteral(";}");
}

bool landscape()
{
    return QRVUtil::startupSwitchIs("-size", QStringLiteral("landscape"));
}

bool isSidePosition(QTabWidget::TabPosition position)
{
    return position == QTabWidget::West || position == QTabWidget::East;
}

} // namespace

TabBar::TabBar(QWidget* parent, QTabWidget::TabPosition position)
    : QFrame(parent)
    , m_scrollArea(new QScrollArea(this))
    , m_scrollLeft(new ScrollButton(Qt::LeftArrow, this))
    , m_scrollRight(new ScrollButton(Qt::RightArrow, this))
    , m_tabPosition(position)
    , m_horizontalStyle(horizontalSheet())
    , m_verticalStyle(verticalSheet())
    , m_leftStyle(sideSheet(0, 1))
    , m_rightStyle(sideSheet(1, 0))
{
    m_innerBar = new ScrollableMenuBarFrame(m_scrollArea, isSidePosition(position) ? Qt::AlignLeft : Qt::AlignTop);
    m_innerBar->setPlacedByHolder(true);
    if (landscape())
        applyLandscapeSizes();
    setStyleSheet(m_horizontalStyle);
    setObjectName(QStringLiteral("topFrame"));
    m_innerBar->setObjectName(QStringLiteral("innerBar"));
    m_tabLayout = new QVBoxLayout(m_innerBar);
    m_tabLayout->setSpacing(2);
    m_tabLayout->setContentsMargins(0, 0, 0, 0);

    m_scrollLeft->move(0, m_arrowOffset);
    m_scrollLeft->setEnabled(false);
    m_scrollRight->setEnabled(false);
    connect(m_scrollLeft, &ScrollButton::mouseUp, this, &TabBar::scrollPressed);
    connect(m_scrollRight, &ScrollButton::mouseUp, this, &TabBar::scrollPressed);
    connect(m_innerBar, &ScrollableMenuBarFrame::moving, this, &TabBar::checkNavArrows);
    retranslate();
}

void TabBar::addTab(const QString& text)
{
    auto* tab = new Tab(text, m_innerBar, m_tabs.size());
    connect(tab, &Tab::currentChanged, this, &TabBar::setCurrentIndex);
    m_tabs.append(tab);
    m_tabLayout->addWidget(tab);
    if (m_tabs.size() == 1)
        setCurrentIndex(0);
}

int TabBar::currentIndex() const { return m_currentIdx; }
int TabBar::count() const { return m_tabs.size(); }
Tab* TabBar::tab(int index) const { return m_tabs.value(index); }
ScrollableMenuBarFrame* TabBar::strip() const { return m_innerBar; }

void TabBar::hideTab(int index)
{
    if (Tab* hidden = existingTab(index, "hide"))
        hidden->hide();
    checkNavArrows();
}

void TabBar::showTab(int index)
{
    if (Tab* shown = existingTab(index, "show"))
        shown->show();
    checkNavArrows();
}

bool TabBar::isTabHidden(int index) const
{
    const Tab* asked = tab(index);
    return asked && asked->isHidden();
}

void TabBar::setTabText(int index, const QString& text)
{
    if (Tab* named = existingTab(index, "name")) {
        named->setLabelText(text);
        named->update();
    }
}

void TabBar::setTabPosition(QTabWidget::TabPosition position)
{
    m_tabPosition = position;
    if (isSidePosition(position))
        configureVertical();
    else
        configureHorizontal();
}

void TabBar::moveToVisibleTab()
{
    for (const Tab* candidate : qAsConst(m_tabs))
        if (!candidate->isHidden()) {
            setCurrentIndex(candidate->index());
            return;
        }
}

void TabBar::configureHorizontal()
{
    placeArrows(Qt::LeftArrow, Qt::RightArrow, height() - 5);
    layOutTabs(new QHBoxLayout);
    m_innerBar->setAlignment(Qt::AlignTop);
    m_scrollArea->setGeometry(QRect(QPoint(m_barMargin, 0), QPoint(width() - 1 - m_barMargin, height() - 1)));
    m_innerBar->move(0, 0);
    for (Tab* each : qAsConst(m_tabs))
        each->setOrientation(QTabWidget::North);
}

void TabBar::configureVertical()
{
    placeArrows(Qt::UpArrow, Qt::DownArrow, width() - 6);
    layOutTabs(new QVBoxLayout);
    m_innerBar->setAlignment(Qt::AlignLeft);
    m_scrollArea->setGeometry(QRect(QPoint(0, m_barMargin), QPoint(width() - 1, height() - 1 - m_barMargin)));
    m_innerBar->move(0, 0);
}

void TabBar::configureLeft()
{
    setStyleSheet(m_verticalStyle + m_leftStyle);
    configureVertical();
    for (Tab* each : qAsConst(m_tabs))
        each->setOrientation(QTabWidget::West);
}

void TabBar::configureRight()
{
    setStyleSheet(m_verticalStyle + m_rightStyle);
    configureVertical();
    for (Tab* each : qAsConst(m_tabs))
        each->setOrientation(QTabWidget::East);
}

void TabBar::setCurrentIndex(int index)
{
    if (!existingTab(index, "select"))
        return;
    if (Tab* old = tab(m_currentIdx))
        old->setChecked(false);
    m_currentIdx = index;
    m_tabs[index]->setChecked(true);
    checkNavArrows();
    emit currentSelected(m_currentIdx);
}

void TabBar::retranslate()
{
    const QPoint stripAt = m_innerBar->pos();
    applyLanguageSizes();
    if (landscape())
        applyLandscapeSizes();
    configureForPosition();
    m_innerBar->move(stripAt);
}

void TabBar::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    if (auto* owner = qobject_cast<QTabWidget*>(parentWidget()))
        m_tabPosition = owner->tabPosition();
    configureForPosition();
    if (Tab* current = tab(m_currentIdx))
        current->alignTab();
}

void TabBar::showEvent(QShowEvent* event)
{
    QFrame::showEvent(event);
    checkNavArrows();
}

void TabBar::scrollPressed()
{
    // Past the last visible tab an arrow changes nothing.
    const int next = nextVisibleTab(sender() == m_scrollRight ? 1 : -1);
    if (next >= 0)
        setCurrentIndex(next);
    checkNavArrows();
}

void TabBar::checkNavArrows()
{
    m_scrollLeft->setEnabled(nextVisibleTab(-1) >= 0);
    m_scrollRight->setEnabled(nextVisibleTab(1) >= 0);
}

Tab* TabBar::existingTab(int index, const char* action) const
{
    Tab* found = tab(index);
    if (!found)
        qDebug("UserInterface - TabBar: no tab %d to %s", index, action);
    return found;
}

int TabBar::nextVisibleTab(int step) const
{
    for (int index = m_currentIdx + step; index >= 0 && index < m_tabs.size(); index += step)
        if (!m_tabs[index]->isHidden())
            return index;
    return -1;
}

void TabBar::placeArrows(Qt::ArrowType back, Qt::ArrowType forward, int side)
{
    m_scrollLeft->setDirection(back);
    m_scrollRight->setDirection(forward);
    m_scrollLeft->resize(side, side);
    m_scrollRight->resize(side, side);
    const bool along = back == Qt::LeftArrow;
    m_scrollLeft->move(along ? QPoint(0, m_arrowOffset) : QPoint(m_arrowOffset, 0));
    m_scrollRight->move(along ? QPoint(width() - side, m_arrowOffset) : QPoint(m_arrowOffset, height() - side));
}

void TabBar::layOutTabs(QBoxLayout* layout)
{
    delete m_tabLayout;
    m_tabLayout = layout;
    m_tabLayout->setContentsMargins(0, 0, 0, 0);
    m_tabLayout->setSpacing(2);
    for (Tab* each : qAsConst(m_tabs))
        m_tabLayout->addWidget(each);
    m_innerBar->setLayout(m_tabLayout);
}

void TabBar::applyLanguageSizes()
{
    static const QStringList smallerScripts{QStringLiteral("zh_tw"), QStringLiteral("zh_cn"), QStringLiteral("de-DE")};
    const QString language = qApp->property("currentLanguage").toString();
    const QString rule = smallerScripts.contains(language) ? QStringLiteral("QPushButton { font-size: 14px; }")
                                                           : QStringLiteral("QPushButton { font-size: 18px; }");
    m_horizontalStyle += rule;
    m_verticalStyle += rule;
}

void TabBar::applyLandscapeSizes()
{
    m_horizontalStyle += QStringLiteral("QPushButton { \tfont-size: 12px;    min-width: 70px;}");
    m_verticalStyle += QStringLiteral("QPushButton { \tfont-size: 12px;    min-height: 70px;}");
}

void TabBar::configureForPosition()
{
    if (m_tabPosition == QTabWidget::East)
        configureRight();
    else if (m_tabPosition == QTabWidget::West)
        configureLeft();
    else
        configureHorizontal();
}
