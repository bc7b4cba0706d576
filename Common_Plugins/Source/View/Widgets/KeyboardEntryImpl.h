#ifndef KEYBOARDENTRYIMPL_H
#define KEYBOARDENTRYIMPL_H

#include "BaseEntryImpl.h"

class QGridLayout;
class QHBoxLayout;
class QStackedWidget;

/*!
  The on-screen keyboard that a TextEntryImpl opens: two pages of letters,
  lower case and upper case, with space, backspace, Enter and a few marks,
  and beside them a block of digits with Cancel and Clear. Keys type
  straight into the field. "shift" turns to the upper page, which stays
  until its own Shift key leaves it; that key, checked, is a caps lock.
  At "-res" "480x800" the keyboard is 480 by 280 whatever it was asked.
*/
class KeyboardEntryImpl : public BaseEntryImpl
{
    Q_OBJECT

public:
    KeyboardEntryImpl(QObject* target, QWidget* parent, int width, int height);

    void retranslate() override;

signals:
    //! Enter was pressed: the field takes the text.
    void enterPressed();

public slots:
    //! "Max" gives the large keys and a panel kept off the screen's top and bottom edges; "Min" the normal ones.
    void changeSizeSlot(QString size);

protected slots:
    void submit();
    void buttonPress() override;
    void swapUppercase();
    void swapLowercase();
    //! Shows the page that the caps lock asks for.
    void checkShiftState();

protected:
    void Initialize() override;
    void createButtons();

private:
    QWidget* letterPage(bool upperCase);
    QWidget* digitBlock();
    //! \a button is the key \a name on either page.
    bool isPageKey(const QObject* button, const QString& name) const;
    QString cancelLabel() const;

    QHBoxLayout* m_pageLayout = nullptr;
    QStackedWidget* m_pages = nullptr;
    QString m_styleMax;
};

#endif // KEYBOARDENTRYIMPL_H
