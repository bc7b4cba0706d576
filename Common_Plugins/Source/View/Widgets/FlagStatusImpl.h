#ifndef FLAGSTATUSIMPL_H
#define FLAGSTATUSIMPL_H

#include "WidgetBaseImpl.h"

#include <QFrame>

class QLabel;
class QTimer;

/*!
  A round 20-pixel lamp with a label that follows one engine reading
  (EngineReadingBoolean). Dark (#222) is "Normal". A true reading lights
  it in TrippedLedColor, "Tripped", a fault; with ConfigureBlinkMode a
  true reading means activity instead, "Running", and the lamp blinks in
  #fc0, one phase a second. Read only: a touch does nothing.
*/
class FlagStatusImpl : public WidgetBaseImpl
{
    Q_OBJECT
    Q_PROPERTY(QString TrippedLedColor READ getTrippedLedColor WRITE setTrippedLedColor)
    Q_PROPERTY(bool ConfigureBlinkMode MEMBER m_blinkMode READ getBlinkMode)

public:
    explicit FlagStatusImpl(QWidget* parent = nullptr);
    ~FlagStatusImpl() override;

    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;

    Q_INVOKABLE virtual QString getState() const;
    Q_INVOKABLE void updateFlagStatusLabel(const QString& label);
    Q_INVOKABLE void setTrippedLedColor(const QString& colorString);
    Q_INVOKABLE QString getTrippedLedColor() const;
    bool getBlinkMode() const;

signals:
    void changeState(QString state);

public slots:
    virtual void setButtonState(const QString& s);
    virtual void setState(const QString& s);
    void changeSize(const QString& size) override;
    void toggleLed();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void dds_callback(const char* topic, bool value);
    //! What a reading means: activity in blink mode, a fault otherwise.
    QString stateOf(bool value) const;
    void setBlinkMode(bool on);
    void setLedOn(bool on);
    static QString ledStyle(const QString& background);

    QFrame m_base;
    QLabel* m_lamp = nullptr;
    QString m_state = QStringLiteral("Normal");
    QString m_trippedColor = QStringLiteral("#fc0");
    QString m_trippedStyle = ledStyle(m_trippedColor);
    const QString m_normalStyle = ledStyle(QStringLiteral("#222"));
    const QString m_runningStyle = ledStyle(QStringLiteral("#fc0"));
    QTimer* m_timer = nullptr;
    bool m_blinkMode = false;
    bool m_blinking = false;
    bool m_ledOn = false;
};

#endif // FLAGSTATUSIMPL_H
