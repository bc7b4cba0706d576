#ifndef WIDGETBASEIMPL_H
#define WIDGETBASEIMPL_H

#include "FrameLabel.h"

#include <QWidget>

class QLabel;
class QPushButton;

/*!
  The frame of every widget that shows or sets an engine attribute.

  It carries the attribute's name, an optional label, the update delay of
  the live value and a debug switch; a transparent overlay covers the widget
  and swallows touches while the engine holds the attribute locked; and a
  touch asks for the one entry mechanism of the interface (keypad, list,
  spinner), which the widget opens on DisplayEntryMechanism().
*/
class WidgetBaseImpl : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString AttributeName READ getAttributeName WRITE setAttributeName)
    Q_PROPERTY(QString LabelText READ getLabel WRITE setLabel)
    Q_PROPERTY(int UpdateDelay READ getUpdateDelay WRITE setUpdateDelay)
    Q_PROPERTY(bool SuppressReceiveDebug READ getSuppressDebug WRITE setSuppressDebug)

public:
    explicit WidgetBaseImpl(QWidget* parent = nullptr);
    ~WidgetBaseImpl() override;

    QString getAttributeName() const;
    void setAttributeName(const QString& name);
    bool getSuppressDebug() const;
    void setSuppressDebug(bool suppress);
    void setDesktop(QWidget* desktop);
    QLabel* getLabelWidget() const;
    //! Takes ownership of \a label; an earlier, different label is deleted.
    void setLabelWidget(QLabel* label);
    //! True while this widget holds the entry mechanism.
    bool isLocked() const;

    Q_INVOKABLE virtual void setLabel(const QString& label);
    virtual QString getLabel() const;
    virtual void setUpdateDelay(int delay);
    virtual int getUpdateDelay() const;
    //! Shows the frame's texts in the current language.
    virtual void retranslate();

signals:
    void CloseEntryMechanism();
    void DisplayEntryMechanism();
    void SetLocked(bool lock);
    void exceptionMessage(QString message);
    void suppressDebug(bool suppress);

public slots:
    void setWidgetLocked(bool isLocked = true);
    void releaseLock();
    virtual void raise();
    //! Applies the look of a size word ("Max", "Min", "Thumb"); none in the frame.
    virtual void changeSize(const QString& size);

protected:
    void acquireLock();
    virtual void setLockImageVisible(const bool& visible);

    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    QWidget* desktop() const;

    int m_updateDelay = 100;
    bool m_suppressDebug = false;

private:
    QWidget* m_desktop = nullptr;
    QPushButton* m_lockOverlay = nullptr;
    QString m_attributeName = QStringLiteral("AttributeName");
    FrameLabel m_label;
    bool m_locked = false;
};

#endif // WIDGETBASEIMPL_H
