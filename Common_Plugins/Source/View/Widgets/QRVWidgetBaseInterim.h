#ifndef QRVWIDGETBASEINTERIM_H
#define QRVWIDGETBASEINTERIM_H

#include <QWidget>

#include <memory>

class QLabel;

/*!
  The widget frame without an engine attribute, for hosts that want the
  frame's label, lock overlay, debug switch and entry-mechanism lock on a
  widget of their own. It behaves as WidgetBaseImpl does, minus binding.
  Hosts derive from it, so its state sits behind one private pointer and
  can grow without changing the class's size.
*/
class QRVWidgetBaseInterim : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString AttributeName READ getAttributeName WRITE setAttributeName)
    Q_PROPERTY(QString LabelText READ getLabel WRITE setLabel)
    Q_PROPERTY(int UpdateDelay READ getUpdateDelay WRITE setUpdateDelay)
    Q_PROPERTY(bool SuppressReceiveDebug READ getSuppressDebug WRITE setSuppressDebug)

public:
    explicit QRVWidgetBaseInterim(QWidget* parent = nullptr);
    ~QRVWidgetBaseInterim() override;

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
    virtual void changeSize(const QString& size);

protected:
    void acquireLock();
    virtual void setLockImageVisible(const bool& visible);

    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class PrivateData;
    const std::unique_ptr<PrivateData> d;
};

#endif // QRVWIDGETBASEINTERIM_H
