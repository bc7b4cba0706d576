#ifndef TABIMPL_H
#define TABIMPL_H

#include <QTabWidget>

class TabBar;

/*!
  A tab widget whose tabs are the system's own: a TabBar of rounded
  buttons on a strip the finger drags, with arrows that step to the next
  visible tab. The base class's bar keeps the pane's room but is never
  seen. Tabs can be hidden and shown again without losing their page or
  index; a removed page leaves its tab on the bar. Shows no tool tips.
*/
class TabImpl : public QTabWidget
{
    Q_OBJECT

public:
    explicit TabImpl(QWidget* parent = nullptr);
    ~TabImpl() override;

    virtual void setTabPosition(QTabWidget::TabPosition position);
    virtual QWidget* widget(int index) const;
    void hideTab(int index);
    void showTab(int index);
    void setTabText(int index, const QString& text);
    //! Places the bar along the side the tabs stand on.
    void positionTabs();
    //! Sizes the strip to its tabs.
    void resizeInnerBar();
    TabBar* bar() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    virtual void setCurrentIndex(int index);

protected:
    bool event(QEvent* event) override;
    void tabInserted(int index) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private slots:
    void followCurrentPage(int index);

private:
    TabBar* m_tabBar = nullptr;
};

#endif // TABIMPL_H
