#ifndef POPUPDIALOG_H
#define POPUPDIALOG_H

#include <QString>

/*!
  A modal question on the main screen: a message above a row of answer
  buttons, built afresh for each question and gone once it is answered.

  The prompt type picks the answers of displayPrompt(): 0 "Cancel/OK",
  1 "No/Yes" (the default), 2 only "OK" meaning no, 3 only "OK" meaning yes.
  The settings stay between questions, so a caller that changes the type
  for one question asks every later one with it too.
*/
class PopupDialog
{
public:
    PopupDialog() = default;
    virtual ~PopupDialog() = default;

    QString message() const;
    void setMessage(const QString& message);
    int promptType() const;
    void setPromptType(int type);
    //! Kept for callers that set it; the dialog does not read it.
    int promptFlag() const;
    void setPromptFlag(int flag);

    /*!
      Asks \a text under \a title with the answers of \a buttons
      ("label,result|..."), waiting in the dialog's own event loop, and
      returns the result of the button pressed (0 if the dialog was closed).
    */
    int displayDialog(const QString& title, const QString& text, const QString& buttons);
    //! Asks the message with the answers of the prompt type; true if the answer is 1.
    bool displayPrompt();

private:
    QString m_message;
    int m_promptType = 1;
    int m_promptFlag = 1;
};

#endif // POPUPDIALOG_H
