#include "VerticalScrollBarImpl.h"

namespace Kelvane {
namespace gui {

VerticalScrollBarImpl::VerticalScrollBarImpl(QWidget* parent)
    : ScrollBarImpl(Qt::Vertical, parent)
{
}

} // namespace gui
} // namespace Kelvane
