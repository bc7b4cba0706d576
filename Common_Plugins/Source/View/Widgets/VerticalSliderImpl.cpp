#include "VerticalSliderImpl.h"

#include "NumericLink.h"

#include <QDebug>

namespace Kelvane {
namespace gui {

namespace {

const BoundSlider::Look maxLook{16, "min-height: 16px; margin-left: 10px", 32, 8, 12};
const BoundSlider::Look minLook{12, "min-width: 2px; margin-bottom: 10px", 28, 4, 10};

} // namespace

VerticalSliderImpl::VerticalSliderImpl(QWidget* parent)
    : BoundSlider(Qt::Vertical, maxLook, minLook, parent)
{
    setObjectName(QStringLiteral("VerticalSlider"));
}

void VerticalSliderImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    if (bindSlider(attr, NumericLink::AttribLong, ">>>>>Expected Long type but received: %s (%s)"))
        qDebug().noquote() << "Subscriber:: EngineAttributeLong - " + getAttributeName();
}

} // namespace gui
} // namespace Kelvane
