#ifndef SLIDER_H
#define SLIDER_H

#include <QSlider>

/*!
  A small QSlider that jumps to where it is touched, instead of paging
  towards the finger: a press or a drag sets the value under the finger at
  once and announces it with newValue(). The handle follows the finger in
  either orientation; the end of the touch is the ordinary
  sliderReleased(). A wheel does not move it: it passes to the parent.
*/
class Slider : public QSlider
{
    Q_OBJECT

public:
    explicit Slider(Qt::Orientation orientation, QWidget* parent = nullptr);

signals:
    //! A touch put the slider at \a value.
    void newValue(int value);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void setValueFromPos(const QPoint& pos);
};

#endif // SLIDER_H
