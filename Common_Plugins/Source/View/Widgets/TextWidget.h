#ifndef TEXTWIDGET_H
#define TEXTWIDGET_H

#include "FrameLabel.h"

#include <QWidget>

class QLineEdit;

/*!
  A small caption above a one-line text, in white on the dark screen: the
  path line of the file browsers ("Look in"). The caption follows the
  language through retranslate(), which the owner calls on a change of
  language; setCSS() adds rules to the widget's own sheet.
*/
class TextWidget : public QWidget
{
    Q_OBJECT

public:
    TextWidget(QWidget* parent, const QString& label);

    void setLabel(const QString& text);
    //! Makes the text read-only; there is no way back.
    void setReadOnly();
    void setText(const QString& text);
    QString getText() const;
    //! The widget's own sheet followed by \a text; a later call replaces the addition.
    void setCSS(const QString& text);
    //! The caption's translation if its source text is shown, else the source text.
    virtual void retranslate();

private:
    FrameLabel m_label;
    QLineEdit* m_lineEdit = nullptr;
    QString m_styleSheetText;
};

#endif // TEXTWIDGET_H
