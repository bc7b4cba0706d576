#ifndef HORIZONTALSCROLLBARIMPL_H
#define HORIZONTALSCROLLBARIMPL_H

#include "ScrollBarImpl.h"

namespace Kelvane {
namespace gui {

/*!
  The platform's horizontal scroll bar, for lists, tables and text views that
  the operator scrolls with a finger.
*/
class HorizontalScrollBarImpl : public ScrollBarImpl
{
    Q_OBJECT

public:
    explicit HorizontalScrollBarImpl(QWidget* parent = nullptr);
};

} // namespace gui
} // namespace Kelvane

#endif // HORIZONTALSCROLLBARIMPL_H
