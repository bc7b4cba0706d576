#ifndef TABBAR_H
#define TABBAR_H

#include <QFrame>
#include <QList>
#include <QTabWidget>

class QBoxLayout;
class QScrollArea;
class ScrollButton;
class ScrollableMenuBarFrame;
class Tab;

/*!
  The bar of a TabImpl: its tabs as rounded buttons on a strip that the
  finger drags, between two arrow buttons that select the next or the
  previous visible tab. Along the top or the foot the tabs stand in a row;
  along a side they stand in a column with their labels turned. Hidden
  tabs keep their index, so the bar's indices are always the pages'.
*/
class TabBar : public QFrame
{
    Q_OBJECT

public:
    TabBar(QWidget* parent, QTabWidget::TabPosition position);

    void addTab(const QString& text);
    int currentIndex() const;
    int count() const;
    Tab* tab(int index) const;
    //! The strip the tabs stand on.
    ScrollableMenuBarFrame* strip() const;
    void hideTab(int index);
    void showTab(int index);
    bool isTabHidden(int index) const;
    void setTabText(int index, const QString& text);
    void setTabPosition(QTabWidget::TabPosition position);
    //! Selects the first tab that is not hidden, if any is.
    void moveToVisibleTab();

    void configureHorizontal();
    void configureVertical();
    void configureLeft();
    void configureRight();

signals:
    void currentSelected(int index);

public slots:
    void setCurrentIndex(int index);
    virtual void retranslate();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private slots:
    void scrollPressed();
    void checkNavArrows();

private:
    //! The tab at \a index; null, and a debug line naming \a action, if there is none.
    Tab* existingTab(int index, const char* action) const;
    //! The visible tab next to the current one, \a step 1 onward or -1 back; -1 if there is none.
    int nextVisibleTab(int step) const;
    void placeArrows(Qt::ArrowType back, Qt::ArrowType forward, int side);
    void layOutTabs(QBoxLayout* layout);
    void applyLanguageSizes();
    void applyLandscapeSizes();
    void configureForPosition();

    int m_barHeight = 40;
    int m_arrowOffset = 3;
    int m_barMargin = 34;
    QBoxLayout* m_tabLayout = nullptr;
    QScrollArea* m_scrollArea = nullptr;
    ScrollableMenuBarFrame* m_innerBar = nullptr;
    ScrollButton* m_scrollLeft = nullptr;
    ScrollButton* m_scrollRight = nullptr;
    QList<Tab*> m_tabs;
    int m_currentIdx = -1;
    QTabWidget::TabPosition m_tabPosition = QTabWidget::North;
    QString m_horizontalStyle;
    QString m_verticalStyle;
    QString m_leftStyle;
    QString m_rightStyle;
};

#endif // TABBAR_H
