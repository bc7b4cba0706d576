#ifndef SCROLLBARIMPL_H
#define SCROLLBARIMPL_H

#include <QScrollBar>

namespace Kelvane {
namespace gui {

/*!
  The platform's scroll bar: a wide groove with a large rounded handle in the
  theme's gradient, made for a finger rather than a mouse, and without the
  small arrow buttons of a desktop bar.

  The style chooses the thickness: Default (40 px) or Thin (20 px) for places
  where room is short.
*/
class ScrollBarImpl : public QScrollBar
{
    Q_OBJECT

public:
    enum Style
    {
        Default = 0,
        Thin = 1
    };
    Q_ENUM(Style)

    explicit ScrollBarImpl(Qt::Orientation orientation, QWidget* parent = nullptr);

    Style scrollBarStyle() const;
    void setStyle(Style style);
    using QScrollBar::setStyle;

    //! The bar's width across its direction of travel, in pixels.
    static int thickness(Style style);

private:
    void applyStyle();

    Style m_style = Default;
};

} // namespace gui
} // namespace Kelvane

#endif // SCROLLBARIMPL_H
