#include "ComboBoxListStruct.h"

ComboBoxListStruct::ComboBoxListStruct(long value, const QString& text, bool enabled)
    : value(value)
    , text(text)
    , enabled(enabled)
{
}
