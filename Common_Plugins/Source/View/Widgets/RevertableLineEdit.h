#ifndef REVERTABLELINEEDIT_H
#define REVERTABLELINEEDIT_H

#include <QLineEdit>

/*!
  A line edit that can go back to a text it was told to keep: store()
  before the operator edits, revert() when the edit is cancelled. Nothing
  is kept until the first store(), so a revert() before it empties the edit.
*/
class RevertableLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit RevertableLineEdit(QWidget* parent);
    RevertableLineEdit(const QString& text, QWidget* parent);

    void store();
    void revert();

private:
    QString m_storedText;
};

#endif // REVERTABLELINEEDIT_H
