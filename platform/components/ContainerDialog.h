#ifndef CONTAINERDIALOG_H
#define CONTAINERDIALOG_H

#include "ContainerImpl.h"

class QEventLoop;
class QHBoxLayout;
class QLabel;

/*!
  A question or message in a pop-up panel, with a row of answer buttons.

  exec() shows it in the middle of its screen and, while it is up, touches
  and keys meant for anything else on the screen are ignored. It ends with
  the result of the button pressed, or 0 when cancelled or closed; a
  dialog whose screen goes away ends with 0 too.
*/
class ContainerDialog : public ContainerImpl
{
    Q_OBJECT

public:
    explicit ContainerDialog(QWidget* parent);
    ~ContainerDialog() override;

    /*!
      The answer buttons of \a buttons, "label,result|label,result|...",
      made on \a dialog in a row; a press ends \a dialog with that result
      (through its done(int) slot). \a count gets the number of buttons.
      Entries without a comma, a label or a whole-number result are skipped.
    */
    static QHBoxLayout* createButtonLayout(QWidget* dialog, const QString& buttons, long& count);
    //! The same row of answer buttons, made on this dialog.
    QHBoxLayout* createButtonLayout(const QString& buttons, int& count);

    /*!
      Makes the dialog a question: \a text in a wrapped label named
      "dialog_text" above the answer buttons of \a buttons, which stand at
      the right. Returns the label, for a caller that aligns the text.
    */
    QLabel* setQuestion(const QString& text, const QString& buttons);

    /*!
      Shows the dialog, centred on its parent and in front. With \a block it
      returns the answer once given; without, it returns 0 at once and the
      answer comes with finished().
    */
    int exec(bool block = true);
    int result() const;

public slots:
    void done(int result);
    void cancelDialog();

signals:
    void finished(int result);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setOthersBlocked(bool blocked);

    QEventLoop* m_loop = nullptr;
    int m_result = 0;
    bool m_othersBlocked = false;
};

#endif // CONTAINERDIALOG_H
