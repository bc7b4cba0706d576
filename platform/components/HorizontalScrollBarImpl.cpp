#include "HorizontalScrollBarImpl.h"

namespace Kelvane {
namespace gui {

HorizontalScrollBarImpl::HorizontalScrollBarImpl(QWidget* parent)
    : ScrollBarImpl(Qt::Horizontal, parent)
{
}

} // namespace gui
} // namespace Kelvane
