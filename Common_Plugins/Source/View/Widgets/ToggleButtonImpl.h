#ifndef TOGGLEBUTTONIMPL_H
#define TOGGLEBUTTONIMPL_H

#include "WidgetBaseImpl.h"

class QLabel;
class QPushButton;

/*!
  A button that switches one boolean engine attribute (EngineAttribBoolean,
  followed on its bool topic). A pill in the button shows the state: "On"
  in green, "Off" in the highlight colour, "Loading" while the engine has
  not yet confirmed a touch, and "Locked-..." on grey while the attribute
  is locked against this interface. It never shows what the operator asked
  for, only what the engine says. Unbound it simply toggles.
*/
class ToggleButtonImpl : public WidgetBaseImpl
{
    Q_OBJECT
    Q_PROPERTY(QString LabelText READ getLabel WRITE setLabel)
    Q_PROPERTY(QString OnText READ getOnText WRITE setOnText)
    Q_PROPERTY(QString OffText READ getOffText WRITE setOffText)
    Q_PROPERTY(QString LoadingText READ getLoadingText WRITE setLoadingText)
    Q_PROPERTY(State_t State READ getActiveState WRITE setActiveState)

public:
    enum State_t
    {
        On = 0,
        Off = 1,
        Loading = 2
    };
    Q_ENUM(State_t)

    explicit ToggleButtonImpl(QWidget* parent = nullptr);
    ~ToggleButtonImpl() override;

    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;

    Q_INVOKABLE virtual QString getState() const;
    QString getLabel() const override;
    Q_INVOKABLE void setLabel(const QString& text) override;
    QString getOnText() const;
    QString getOffText() const;
    QString getLoadingText() const;
    Q_INVOKABLE void setOnText(const QString& text);
    Q_INVOKABLE void setOffText(const QString& text);
    Q_INVOKABLE void setLoadingText(const QString& text);
    State_t getActiveState() const;
    Q_INVOKABLE void setActiveState(State_t state);

signals:
    void changeState(QString state);
    void checkedState(bool checked);
    void lockState(bool lock);

public slots:
    virtual void pressedEvent();
    virtual void attemptState(const QString& s);
    virtual void setButtonState(const QString& s);
    virtual void setState(const QString& s);
    void changeSize(const QString& size) override;
    void setLockState(bool isLocked);
    void retranslate() override;

protected:
    void setLockImageVisible(const bool& visible) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void dds_callback(const char* topic, bool value);
    void revertToEngineState();
    //! Shows \a text in the pill under \a objectName, keeping its colours selectable.
    void showPill(const QString& text, const char* objectName);
    static QString styleSheet();

    QString m_state = QStringLiteral("On");
    QPushButton* m_button = nullptr;
    QLabel* m_stateLabel = nullptr;
    QString m_onText = QStringLiteral("On");
    QString m_offText = QStringLiteral("Off");
    QString m_loadingText = QStringLiteral("Loading");
    State_t m_activeState = On;
    const QString m_style = styleSheet();
    bool m_locked = false;
};

#endif // TOGGLEBUTTONIMPL_H
