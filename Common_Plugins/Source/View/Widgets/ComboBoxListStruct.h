#ifndef COMBOBOXLISTSTRUCT_H
#define COMBOBOXLISTSTRUCT_H

#include <QString>

/*!
  One choice of an enumerated selector: the engine's value, the text the
  operator reads, and whether the choice may be taken now.
*/
struct ComboBoxListStruct
{
    ComboBoxListStruct(long value, const QString& text, bool enabled);

    long value = 0;
    QString text;
    bool enabled = true;
};

#endif // COMBOBOXLISTSTRUCT_H
