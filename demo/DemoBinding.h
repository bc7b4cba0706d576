#ifndef DEMOBINDING_H
#define DEMOBINDING_H

#include <QStringList>

class QWidget;

namespace Brenmoor {
class _objref_AttributeDirectory;
typedef _objref_AttributeDirectory* AttributeDirectory_ptr;
}

/*!
  Binds every widget of \a screen whose AttributeName names an engine
  attribute, as the instrument's UI process does. Returns how many were
  bound; names the engine does not know are added to \a problems.
*/
int bindScreenToEngine(QWidget* screen, Brenmoor::AttributeDirectory_ptr directory, QStringList& problems);

#endif // DEMOBINDING_H
