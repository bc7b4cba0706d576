#ifndef BOUNDSLIDER_H
#define BOUNDSLIDER_H

#include "WidgetBaseImpl.h"

class NumericLink;
class Slider;
struct NumericSample;

namespace Kelvane {
namespace gui {

/*!
  What the horizontal and the vertical slider of a form share: a label over
  a Slider that follows a whole-number engine setting and writes it only
  when the finger lifts, never while it moves. Samples from the engine move
  the slider, except under the finger; a value the engine refuses puts the
  slider back on the engine's. Unbound, the slider moves freely and sends
  nothing.

  A subclass states its orientation, the numbers of its two looks, and the
  engine interfaces it binds (through bindSlider()).
*/
class BoundSlider : public WidgetBaseImpl
{
    Q_OBJECT

public:
    //! The numbers in which the looks of the size words differ.
    struct Look
    {
        int labelFontPx;
        //! Size and spacing of the label, as style sheet declarations.
        const char* labelBox;
        //! The slider's thickness across its groove.
        int thicknessPx;
        //! The groove's thickness and the handle's extent along it.
        int handlePx;
        int handleRadiusPx;
    };

    ~BoundSlider() override;

signals:
    //! The engine's value; reaches the slider on the interface thread.
    void valueChanged(int value);

public slots:
    void changeSize(const QString& size) override;
    //! Sends \a sliderVal to the bound attribute, on the interface thread.
    virtual void sliderValueChanged(int sliderVal);
    //! Puts the slider at \a val, or at the nearer end of its range.
    void setSliderValue(int val);
    //! Sends the slider's present value.
    void setSliderValue();
    void updateLabel();

protected:
    BoundSlider(Qt::Orientation orientation, const Look& max, const Look& min, QWidget* parent);

    /*!
      The frame's binding, then \a attr as one of the \a accepted NumericLink
      interfaces: the slider shows its value (a value record's limits become
      the range) and follows it. Null, after \a mismatchLine, for another
      interface.
    */
    const NumericLink* bindSlider(Brenmoor::EngineReadingBase_ptr attr, int accepted, const char* mismatchLine);
    Slider* slider() const;

    //! The end of any touch on the widget sends; no entry mechanism, no debug switch.
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void dds_callback(const char* topic, const NumericSample& sample, bool logged);
    void followEngine(int value);
    static QString styleSheetFor(Qt::Orientation orientation, const Look& look);

    Slider* m_slider = nullptr;
    //! The frame's label when the slider was bound.
    QString m_labelText;
    QString m_styleMax;
    QString m_styleMin;
    //! The engine's value as last heard, for a refused send to go back to.
    int m_engineValue = 0;
};

} // namespace gui
} // namespace Kelvane

#endif // BOUNDSLIDER_H
