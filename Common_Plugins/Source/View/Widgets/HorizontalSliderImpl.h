#ifndef HORIZONTALSLIDERIMPL_H
#define HORIZONTALSLIDERIMPL_H

#include "BoundSlider.h"

namespace Kelvane {
namespace gui {

/*!
  A horizontal slider on a form, bound to an EngineAttribLong or to an
  EngineAttribValueDouble, whose limits become its range and whose value
  it shows cut to a whole number. The value goes to the engine when the
  finger lifts.
*/
class HorizontalSliderImpl : public BoundSlider
{
    Q_OBJECT

public:
    explicit HorizontalSliderImpl(QWidget* parent = nullptr);

    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;

    void setSliderMin(int min);
    void setSliderMax(int max);
    int getSliderMin() const;
    int getSliderMax() const;
};

} // namespace gui
} // namespace Kelvane

#endif // HORIZONTALSLIDERIMPL_H
