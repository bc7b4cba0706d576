#include "HorizontalSliderImpl.h"

#include "NumericLink.h"
#include "Slider.h"

namespace Kelvane {
namespace gui {

namespace {

const BoundSlider::Look maxLook{16, "min-height: 16px; margin-left: 10px", 32, 8, 12};
const BoundSlider::Look minLook{12, "min-height: 12px; margin-left: 10px", 28, 4, 10};

} // namespace

HorizontalSliderImpl::HorizontalSliderImpl(QWidget* parent)
    : BoundSlider(Qt::Horizontal, maxLook, minLook, parent)
{
    setObjectName(QStringLiteral("HorizontalSlider"));
}

void HorizontalSliderImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    bindSlider(attr, NumericLink::AttribLong | NumericLink::AttribValueDouble,
               ">>>>>Expected Long/ValueDouble type but received: %s (%s)");
}

void HorizontalSliderImpl::setSliderMin(int min) { slider()->setMinimum(min); }
void HorizontalSliderImpl::setSliderMax(int max) { slider()->setMaximum(max); }
int HorizontalSliderImpl::getSliderMin() const { return slider()->minimum(); }
int HorizontalSliderImpl::getSliderMax() const { return slider()->maximum(); }

} // namespace gui
} // namespace Kelvane
