#ifndef VERTICALSCROLLBARIMPL_H
#define VERTICALSCROLLBARIMPL_H

#include "ScrollBarImpl.h"

namespace Kelvane {
namespace gui {

/*!
  The platform's vertical scroll bar, for lists, tables and text views that
  the operator scrolls with a finger.
*/
class VerticalScrollBarImpl : public ScrollBarImpl
{
    Q_OBJECT

public:
    explicit VerticalScrollBarImpl(QWidget* parent = nullptr);
};

} // namespace gui
} // namespace Kelvane

#endif // VERTICALSCROLLBARIMPL_H
