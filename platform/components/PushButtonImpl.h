#ifndef PUSHBUTTONIMPL_H
#define PUSHBUTTONIMPL_H

#include "WidgetBaseImpl.h"

class CommandLink;
class QPushButton;

namespace Kelvane {
namespace gui {

/*!
  The platform's command button: a rounded button in the theme's gradient
  with a border, light text, and the border colour while it is held down.

  A press ends in buttonClicked(), which derived buttons replace to ask
  first; it emits clicked() and, when the button is bound to an
  EngineAttribBoolean or EngineAttribLong, commands the engine by sending
  true or 1 from a worker. A refused command is told in the status bar.
  The frame's lock overlay lies over the button while the attribute is locked.
*/
class PushButtonImpl : public WidgetBaseImpl
{
    Q_OBJECT
    Q_PROPERTY(QString ButtonText READ buttonText WRITE setButtonText)

public:
    explicit PushButtonImpl(QWidget* parent = nullptr);
    ~PushButtonImpl() override;

    //! The text as set, before translation; the button shows its translation.
    QString buttonText() const;
    void setButtonText(const QString& text);

    void retranslate() override;
    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;

public slots:
    virtual void buttonClicked();

signals:
    void clicked();

protected:
    QPushButton* button() const;

private:
    static QString faceStyleSheet();
    void sendCommand(const CommandLink* command);

    QPushButton* m_button = nullptr;
    QString m_buttonText;
    //! The interface commanded on a press; empty while unbound.
};

} // namespace gui
} // namespace Kelvane

#endif // PUSHBUTTONIMPL_H
