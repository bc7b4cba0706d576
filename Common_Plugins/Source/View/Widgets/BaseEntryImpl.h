#ifndef BASEENTRYIMPL_H
#define BASEENTRYIMPL_H

#include "ContainerImpl.h"
#include "EntryPanel.h"

#include <QMap>

class QFrame;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRegExpValidator;
class QVBoxLayout;

/*!
  The frame shared by the entry mechanisms, the pop-ups through which an
  operator changes the value of a field: a black translucent panel with a
  read-only echo of the value at the top and, below it, the entry frame that
  holds the pad's buttons. Keys edit the field (the target) and the echo
  together; a derived pad builds its keys with createButton() and keeps them
  by name with addButton(). A pad that refuses a value says why under the
  echo, in the alert colour, until the next key.
*/
class BaseEntryImpl : public ContainerImpl
{
    Q_OBJECT

public:
    //! \a target is the field's QLineEdit, or null for a pad that edits only its echo.
    BaseEntryImpl(QObject* target, QWidget* parent, int width, int height);
    ~BaseEntryImpl() override;

    //! A parentless key that never takes the focus; clicked() goes to \a member, a SLOT() or SIGNAL() of the pad.
    QPushButton* createButton(const QString& text, const char* member, const QString& name);
    void addButton(const QString& key, QPushButton* button);
    //! Null for a key not (or no longer) held.
    QPushButton* getButton(const QString& key) const;
    void removeButton(const QString& key);
    void clearAllButtons();

    //! Shows \a text in the echo only.
    virtual void setValue(const QString& text);
    //! Puts \a text into the field and the echo, unless the validator refuses it.
    void setText(const QString& text);
    void clear();
    void setCursorPosition(int position);
    //! Replaces the field's selection by \a text and leaves the cursor behind it, in both edits.
    void insert(const QString& text);
    //! Both the field and the echo exist.
    bool hasValidEdits() const;

    int getWidth() const;
    void setWidth(int width);
    int getHeight() const;
    void setHeight(int height);

    QLayout* getEntryMechanismLayout();
    virtual QFrame* getEntryFrame();
    virtual QFrame* getMainFrame();

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void cancelEntry();
    void clearEntry();

protected slots:
    //! Inserts the text of the key that was pressed.
    virtual void buttonPress();

protected:
    //! Lays out the frame; a derived pad calls it first from its own.
    virtual void Initialize();

    //! No key press takes the focus from the field being edited: every key hands it on to the field.
    void keepFocusOnTheField();
    //! The keys "0" to "9", typed through buttonPress().
    void addDigitKeys();
    //! Digits 1 to 9 in rows of three, 1 at the top left, above \a bottomLeft, "0" and \a bottomRight.
    QGridLayout* digitGrid(const QString& bottomLeft, const QString& bottomRight);
    //! Lays the row "cancel", "clear", "bksp" above \a lowerRow on the entry frame.
    void stackKeyRows(QLayout* lowerRow);
    //! A column of keys that touch each other.
    static QVBoxLayout* keyColumn();

    /*!
      Puts one key per label of \a labels into \a column in place of the keys
      of \a previous; each is named \a name, the last one \a lastName, and
      its click goes to \a member.
    */
    void fillUnitColumn(QVBoxLayout* column, const QList<QString>& previous, const QList<QString>& labels,
                        const char* member, const QString& name, const QString& lastName);
    //! The "enter" key stands in \a column exactly while \a shown.
    void placeEnterKey(QVBoxLayout* column, bool shown);

    /*!
      Takes the character before the cursor out of both edits, a surrogate
      pair whole; false, and nothing done, at the start.
    */
    bool eraseBeforeCursor();
    /*!
      Backspace in a number: as eraseBeforeCursor() on the field, and a sign
      left alone goes too. Emits clearEntry() when nothing is left.
    */
    bool backspace();
    //! Adds the decimal point where the text can take one; false when nothing changed.
    bool insertPoint();

    //! The text that the keys edit: the field's, or the echo's for a pad without a field.
    QString editedText() const;
    //! Typing keeps to \a pattern: a text that can no longer grow into a match is turned away.
    void setValidatorPattern(const QString& pattern);
    //! Tells the operator under the read-out why the value was not taken; the next key takes it away.
    void showRefusal(const QString& reason);

    QString m_styleText;
    QLineEdit* m_targetEdit = nullptr;
    QLineEdit* m_echoEdit = nullptr;
    QLabel* m_gapLabel = nullptr;

private slots:
    void withdrawRefusal();

private:
    //! The edit whose text and cursor the keys work on: the field, else the echo.
    QLineEdit* editedLine() const;
    //! Lays the echo, the overlays and the entry frame over a main frame of \a size.
    void placePanel(const QSize& size);
    //! Runs \a apply on the field and the echo, each if it exists.
    template<typename Apply>
    void forEachEdit(Apply apply);

    QRegExpValidator* m_validator = nullptr;
    int m_padWidth = 0;
    int m_padHeight = 0;
    QMap<QString, QPushButton*> m_buttons;
    EntryPanel::Parts m_panel;
    QFrame* m_entryFrame = nullptr;
};

#endif // BASEENTRYIMPL_H
