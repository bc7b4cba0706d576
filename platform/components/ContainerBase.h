#ifndef CONTAINERBASE_H
#define CONTAINERBASE_H

#include <QWidget>

class QFrame;
class QHBoxLayout;
class QLabel;
class QLayout;
class QPushButton;

/*!
  A pop-up panel on a screen of the instrument: a dark rounded panel with a
  title bar (title, close control) over a content frame that holds the
  panel's own widgets.

  The close control, or close(), hides the panel and emits WindowClosed().
  The panel remembers one place on its screen (saveLocation(),
  restoreLocation()) and follows a change of language by itself.
  ContainerImpl adds moving, the three sizes, drawers and the border.
*/
class ContainerBase : public QWidget
{
    Q_OBJECT

public:
    explicit ContainerBase(QWidget* parent = nullptr);

    //! The frame that holds the panel's content ("ContainerFrame").
    virtual QFrame* getContainerFrame();
    //! Puts \a layout into the content frame, replacing an earlier one there.
    virtual void setLayout(QLayout* layout);
    //! The same, and shows the title bar or leaves the panel without one.
    virtual void setLayout(QLayout* layout, bool showTitleBar);
    /*!
      Shows \a title in the title bar; \a alignment is a Qt::Alignment for
      the text there, 0 for the bar's default (left, centred vertically).
      The title is translated in the context "ContainerBase", now and on retranslate().
    */
    virtual void setWindowTitle(const QString& title, int alignment = 0);
    virtual void retranslate();

    //! Remembers the panel's present place on its screen.
    virtual void saveLocation();
    //! Moves back to the remembered place, kept on the screen; nothing if none was saved.
    virtual void restoreLocation();

    //! The panel is up: shown and not closed, even while its screen itself is hidden.
    bool isVisible() const;

    //! Makes \a page the content of a panel built in a form (Designer's page method).
    Q_INVOKABLE void addPage(QWidget* page);

public slots:
    virtual void raise();
    //! Hides the panel and emits WindowClosed().
    virtual void close();
    virtual void setShown(bool shown);

signals:
    void WindowClosed();

protected:
    //! Builds this class's part of the panel; each class's constructor runs its own.
    virtual void init();
    void changeEvent(QEvent* event) override;

    //! The place nearest \a topLeft at which the whole panel lies on its screen.
    QPoint keptOnScreen(const QPoint& topLeft) const;
    //! The area the panel may use: its parent's rectangle, or the screen's for a window.
    QRect screenArea() const;

    QFrame* borderFrame() const;
    QFrame* titleBar() const;
    //! The row of controls at the right of the title bar ("ContainerControl").
    QHBoxLayout* controlRow() const;

private:
    void showTitle();

    QFrame* m_borderFrame = nullptr;
    QFrame* m_titleBar = nullptr;
    QLabel* m_titleLabel = nullptr;
    QHBoxLayout* m_controlRow = nullptr;
    QPushButton* m_closeButton = nullptr;
    QFrame* m_containerFrame = nullptr;
    QString m_titleSource;
    QPoint m_savedLocation;
    bool m_hasSavedLocation = false;
};

#endif // CONTAINERBASE_H
