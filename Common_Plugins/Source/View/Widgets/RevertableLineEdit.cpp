#include "RevertableLineEdit.h"

RevertableLineEdit::RevertableLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
}

RevertableLineEdit::RevertableLineEdit(const QString& text, QWidget* parent)
    : QLineEdit(text, parent)
{
}

void RevertableLineEdit::store() { m_storedText = text(); }

void RevertableLineEdit::revert() { setText(m_storedText); }
