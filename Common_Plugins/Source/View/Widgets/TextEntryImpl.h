#ifndef TEXTENTRYIMPL_H
#define TEXTENTRYIMPL_H

#include "WidgetBaseImpl.h"

class BaseEntryImpl;
class QLineEdit;
class StringLink;

/*!
  A field for a text of the instrument: a caption above a line edit. A touch
  opens the on-screen keyboard, or the IP keypad (EntryMode). Binds an
  EngineAttribString, which it sets, or an EngineReadingString, which it
  only shows; the text travels as UTF-8 and comes back unchanged.

  An entered text goes to the engine from a worker while the field keeps
  showing the engine's text, until the engine's sample brings the new one;
  a refused text leaves the engine's in place, with the reason in the
  status bar. A text that cannot travel unchanged (a lone surrogate) or an
  address that is not one is refused before it is sent.
*/
class TextEntryImpl : public WidgetBaseImpl
{
    Q_OBJECT
    Q_PROPERTY(EntryModeEnum EntryMode READ getEntryMode WRITE setEntryMode)
    Q_PROPERTY(bool ForceReadOnly READ getReadOnly WRITE setReadOnly)

public:
    enum EntryModeEnum
    {
        KeyboardEntry = 0,
        IPEntry = 1,
        TimeEntry = 2,
        DateEntry = 3,
        PasswordEntry = 4,
        None = 5
    };
    Q_ENUM(EntryModeEnum)

    explicit TextEntryImpl(QWidget* parent = nullptr, const QString& label = QString(), bool password = false);
    ~TextEntryImpl() override;

    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;

    EntryModeEnum getEntryMode() const;
    void setEntryMode(EntryModeEnum mode);
    bool getReadOnly() const;
    QLineEdit* getLineEdit() const;
    //! The last text known to hold: the engine's, or the last one entered unbound.
    QString getOldText() const;
    void setOldText(const QString& text);
    //! The keyboard or keypad of the field; null before binding, in mode None or read-only.
    BaseEntryImpl* entryMechanism() const;
    /*!
      A host's own pad in place of the mode's, such as a LatLonEntryImpl for
      a position (with mode None, so that binding keeps it): the field takes
      it, and opens, places and closes it as its own. The host connects the
      pad's "done" signal to enterText().
    */
    void setEntryMechanism(BaseEntryImpl* mechanism);

    Q_INVOKABLE void setReadOnly(bool state);
    Q_INVOKABLE virtual void setText(const QString& text);
    Q_INVOKABLE virtual QString text() const;
    //! Makes the mechanism of the present mode, hidden.
    Q_INVOKABLE void addKeyboard();
    Q_INVOKABLE void clear();
    Q_INVOKABLE void setIsPassword(bool on);
    Q_INVOKABLE void submit();

signals:
    void textChanged(QString newText);
    //! The engine's text, from a DDS thread.
    void incomingText(QString t);

public slots:
    void displayEntryMechanism();
    void changeSize(const QString& size) override;
    void raise() override;
    //! Sends the text of the edit, or keeps it when unbound, and closes the mechanism.
    virtual void enterText();

protected slots:
    void closeInput();

private slots:
    void cancelInput();
    void takeEngineText(const QString& text);

protected:
    void setLockImageVisible(const bool& visible) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    //! Why \a text may not go to the engine, or "" when it may.
    QString refusal(const QString& text) const;
    void sendText(const StringLink* link, const QString& text);
    void setReadOnlyStyle();
    void placeMechanism();
    //! Makes \a mechanism, hidden, the field's; cancelling it puts back the engine's text.
    void takeMechanism(BaseEntryImpl* mechanism);

    BaseEntryImpl* m_keyboard = nullptr;
    QLineEdit* m_textEdit;
    QString m_styleMin;
    QString m_styleMax;
    QString m_styleReadOnly;
    QString m_sizeName;
    QString m_oldText;
    bool m_readOnly = false;
    EntryModeEnum m_entryMode = KeyboardEntry;
};

#endif // TEXTENTRYIMPL_H
