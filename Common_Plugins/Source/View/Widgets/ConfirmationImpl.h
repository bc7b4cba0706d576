#ifndef CONFIRMATIONIMPL_H
#define CONFIRMATIONIMPL_H

#include <QPointer>
#include <QString>

class QWidget;

/*!
  Asks the operator a question in a modal dialog before a button acts.

  The button style picks the answers: 0 "Cancel/OK", 1 "No/Yes", 2 only
  "OK" meaning no, 3 only "OK" meaning yes. Closing the screen's top
  container (the ancestor named "TopContainerObject") cancels the question.
*/
class ConfirmationImpl
{
public:
    explicit ConfirmationImpl(QWidget* widget);
    virtual ~ConfirmationImpl();

    QString dialogText() const;
    void setDialogText(const QString& text);
    int buttonStyle() const;
    void setButtonStyle(int style);
    int promptStyle() const;
    void setPromptStyle(int style);

    //! The "label,result|..." list of a button style; empty for an unknown one.
    static QString buttonList(int style);

protected:
    //! Asks the dialog text; true if the answer is 1.
    bool displayPrompt();
    //! Shows a modal dialog on "MainWindow" and returns the pressed button's result.
    int displayDialog(const QString& title, const QString& text, const QString& buttons);

private:
    QWidget* topContainer();

    QString m_dialogText;
    int m_buttonStyle = 1;
    int m_promptStyle = 1;
    QPointer<QWidget> m_topContainer;
    QWidget* m_widget = nullptr;
};

#endif // CONFIRMATIONIMPL_H
