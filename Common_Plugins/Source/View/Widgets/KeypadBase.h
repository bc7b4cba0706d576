#ifndef KEYPADBASE_H
#define KEYPADBASE_H

#include <QWidget>

/*!
  An empty widget kept as the common type of keypads. The pads of this
  library derive from BaseEntryImpl instead.
*/
class KeypadBase : public QWidget
{
    Q_OBJECT

public:
    explicit KeypadBase(QWidget* parent = nullptr);
};

#endif // KEYPADBASE_H
