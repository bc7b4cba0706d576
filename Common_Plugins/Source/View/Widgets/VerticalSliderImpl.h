#ifndef VERTICALSLIDERIMPL_H
#define VERTICALSLIDERIMPL_H

#include "BoundSlider.h"

namespace Kelvane {
namespace gui {

/*!
  A vertical slider on a form, its minimum at the bottom, bound to an
  EngineAttribLong. The value goes to the engine when the finger lifts.
*/
class VerticalSliderImpl : public BoundSlider
{
    Q_OBJECT

public:
    explicit VerticalSliderImpl(QWidget* parent = nullptr);

    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;
};

} // namespace gui
} // namespace Kelvane

#endif // VERTICALSLIDERIMPL_H
