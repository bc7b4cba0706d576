#ifndef TAB_H
#define TAB_H

#include <QPushButton>
#include <QTabWidget>

class ScrollableMenuBarFrame;

/*!
  One tab of a TabBar: a rounded, checkable button on the bar's strip
  that paints its own label, turned to read along a side bar. A tap
  selects the tab; a finger that travels 21 pixels or more drags the
  strip instead and selects nothing.
*/
class Tab : public QPushButton
{
    Q_OBJECT

public:
    Tab(const QString& text, ScrollableMenuBarFrame* bar, int index);

    virtual void setChecked(bool checked);
    virtual void setOrientation(QTabWidget::TabPosition orientation);
    virtual void setLabelText(const QString& text);

    QString labelText() const;
    int index() const;
    //! Brings the tab into the strip's view, sliding the strip.
    void alignTab();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void currentChanged(int index);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool runsAlongSide() const;
    QString shownText() const;

    //! Screen positions: the strip moves under the finger, so the tab's own would lag behind it.
    QPoint m_pressPos;
    QPoint m_grabOffset;
    ScrollableMenuBarFrame* m_bar = nullptr;
    int m_index = 0;
    QTabWidget::TabPosition m_orientation = QTabWidget::North;
    QString m_labelText;
};

#endif // TAB_H
