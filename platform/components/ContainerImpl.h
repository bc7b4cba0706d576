#ifndef CONTAINERIMPL_H
#define CONTAINERIMPL_H

#include "ContainerBase.h"

class QAbstractTransition;
class QPushButton;
class QState;
class QStateMachine;
class ScrollButton;

/*!
  The platform's movable pop-up panel, drawn in the dark theme with a 2 px
  border in the theme colour (setBorder()).

  The operator drags it by its title bar or any free spot; it never leaves
  the screen it is a child of. It has three sizes: "Min", its own size where
  the operator left it; "Max", the whole screen; "Thumb", the title bar
  alone. changeSize() asks for one and is heard by anyone who wants to
  follow the panel's size; the control beside the close control switches
  between "Min" and "Max". A drawer of extra controls can slide over the
  right edge of the content, opened and shut by a tab at that edge.
*/
class ContainerImpl : public ContainerBase
{
    Q_OBJECT

public:
    explicit ContainerImpl(QWidget* parent = nullptr);

    using ContainerBase::setLayout;
    void setLayout(QLayout* layout) override;

    //! Moves the panel, kept on its screen.
    virtual void move(const QPoint& position);
    virtual void move(int x, int y);

    //! Fits the drawer and its tab to the content's present size.
    virtual void resizeDrawers();
    //! Applies the panel's style sheet, with or without the border.
    virtual void updateStyle();
    virtual void setBorder(bool border);
    bool hasBorder() const;

    //! "Min", "Max" or "Thumb".
    QString currentSize() const;

    //! Adds \a widget to the drawer; the drawer's tab shows from then on.
    void addDrawer(QWidget* widget);
    bool isDrawerOpen() const;

public slots:
    void raise() override;
    //! Slides the drawer out or in; without drawer content nothing opens.
    void setDrawerOpen(bool open);

signals:
    /*!
      Asks for the size of that word ("Max", "Min", "Thumb"); the panel
      takes it at once, and a word it does not know changes nothing. Being a
      signal, it can be called like a slot and also followed by others.
    */
    void changeSize(const QString& size);

protected:
    void init() override;

    //! The size step from \a from to \a to that follows \a sender, or null.
    virtual QAbstractTransition* findTransition(QObject* sender, QState* from, QState* to);
    //! Each sets up one size: its look and the steps that lead to it.
    virtual void initStateMin();
    virtual void initStateMax();
    virtual void initStateThumb();

    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addStepsTo(QState* target, const QString& sizeWord);
    void fitToSize();
    void rememberNormalGeometry();
    void keepThumbPlace();
    void toggleMaximised();
    bool hasDrawerContent() const;

    QStateMachine* m_sizeMachine = nullptr;
    QState* m_stateMin = nullptr;
    QState* m_stateMax = nullptr;
    QState* m_stateThumb = nullptr;
    QPushButton* m_maxRestoreButton = nullptr;
    QFrame* m_drawer = nullptr;
    ScrollButton* m_drawerTab = nullptr;
    QRect m_normalGeometry;
    QPoint m_grabOffset;
    bool m_dragging = false;
    bool m_border = true;
};

#endif // CONTAINERIMPL_H
