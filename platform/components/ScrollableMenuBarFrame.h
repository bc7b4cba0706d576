#ifndef SCROLLABLEMENUBARFRAME_H
#define SCROLLABLEMENUBARFRAME_H

#include <QFrame>
#include <QPointer>

class QBoxLayout;
class ScrollButton;

/*!
  A strip of menu buttons that slides inside the widget that holds it.

  When the strip fits, it sits where its alignment says (left, centre or
  right; top, centre or bottom across). When it is longer than its holder,
  two ScrollButtons appear at the holder's ends and the operator moves the
  strip with them or by dragging it; it never slides further than needed to
  show its first or last item beside the arrows. The strip runs along the
  direction of its layout: a row unless a vertical box layout is set on it.

  A holder that keeps arrows of its own (a tab bar) places the strip
  itself: the strip then shows no buttons, leaves its size to the holder
  and slides between the holder's ends.
*/
class ScrollableMenuBarFrame : public QFrame
{
    Q_OBJECT

public:
    explicit ScrollableMenuBarFrame(QWidget* parent = nullptr, Qt::Alignment alignment = Qt::AlignLeft);
    ~ScrollableMenuBarFrame() override;

    Qt::Alignment alignment() const;
    void setAlignment(Qt::Alignment alignment);

    //! Appends \a widget to the strip, making a row layout if there is none.
    void addWidget(QWidget* widget);

    //! The holder sizes the strip and keeps its own arrows; off by default.
    bool isPlacedByHolder() const;
    void setPlacedByHolder(bool placed);

    //! True while the strip is longer than its holder, so it can slide.
    bool isScrollable() const;

    //! Places the strip in its holder, within the sliding limits.
    virtual void move(int x, int y);
    virtual void move(const QPoint& position);

signals:
    //! The strip moved inside its holder.
    void moving();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    bool runsVertically() const;
    void adoptHolder();
    void refit();
    void scrollBy(int steps);
    void placeScrollButtons();
    int scrollStep() const;
    //! Room kept at each end of the holder for a scroll button.
    int arrowRoom() const;

    Qt::Alignment m_alignment = Qt::AlignLeft;
    QPointer<ScrollButton> m_backButton;
    QPointer<ScrollButton> m_forwardButton;
    QPointer<QWidget> m_holder;
    QPoint m_grabOffset;
    bool m_placedByHolder = false;
};

#endif // SCROLLABLEMENUBARFRAME_H
