#ifndef PUSHBUTTONIMPL_H
#define PUSHBUTTONIMPL_H

#include "WidgetBaseImpl.h"

class QPushButton;

namespace Kelvane {
namespace gui {

/*!
  The platform's command button: a rounded button in the theme's gradient
  with a border, light text, and the border colour while it is held down.

  A press ends in buttonClicked(), which derived buttons replace to ask first
  or to send to their engine attribute; here it only emits clicked(). The
  frame's lock overlay lies over the button while the attribute is locked.
*/
class PushButtonImpl : public WidgetBaseImpl
{
    Q_OBJECT
    Q_PROPERTY(QString ButtonText READ buttonText WRITE setButtonText)

public:
    explicit PushButtonImpl(QWidget* parent = nullptr);

    //! The text as set, before translation; the button shows its translation.
    QString buttonText() const;
    void setButtonText(const QString& text);

    void retranslate() override;

public slots:
    virtual void buttonClicked();

signals:
    void clicked();

protected:
    QPushButton* button() const;

private:
    static QString buttonStyle();

    QPushButton* m_button = nullptr;
    QString m_buttonText;
};

} // namespace gui
} // namespace Kelvane

#endif // PUSHBUTTONIMPL_H
