#ifndef METERBAR_BAR_H
#define METERBAR_BAR_H

#include <QColor>
#include <QImage>
#include <QMutex>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QWidget>

class QSvgRenderer;

/*!
  The bar of a meter: a shaded bar whose length shows a reading between a
  lower and an upper limit, green in the normal state, red, blue, yellow or
  grey for the others, with a base line (or a zero line for a range across
  zero) in the same colour. Vertical by default; a horizontal form fills
  from the left.

  Readings may come from any thread, typically the DDS thread: the bar is
  drawn into an off-screen image in the caller's thread, and painting only
  copies that image. The owner connects redraw() to update() with a
  blocking queued connection.
*/
class MeterBar_Bar : public QWidget
{
    Q_OBJECT

public:
    explicit MeterBar_Bar(QWidget* parent = nullptr);

    virtual bool horizontal() const;
    //! In the GUI thread; safe while readings are drawn in another.
    virtual void setHorizontal(bool horizontal);

signals:
    void resized();
    void redraw();

public slots:
    void updateReading(double reading, double lowerLimit, double upperLimit, int state = 0,
                       QString unitLabel = QString());
    void suppressDebug(bool suppress);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QImage drawBar(bool limitsChanged);

    double m_reading = 0;
    double m_lowerLimit = 0;
    double m_upperLimit = 100;
    bool m_isDb = false;
    int m_state = 0;
    QString m_unitLabel;
    //! Size of the bar across, in the logical units of the window.
    float m_barThickness = 10;
    //! The painter window, in the units of the limits.
    QRect m_barRect{0, 100, 10, 100};
    //! The filled part; kept between readings, as the cases set only some fields.
    QRectF m_readingRect{0, 100, 10, 0};
    //! Pen of the base and zero lines.
    QColor m_barColor = Qt::gray;
    QMutex m_imageMutex;
    QImage m_barImage;
    //! The size to draw at: the drawing thread must not ask the widget.
    QSize m_drawSize;

    QSvgRenderer* m_green = nullptr;
    QSvgRenderer* m_greenHorizontal = nullptr;
    QSvgRenderer* m_blue = nullptr;
    QSvgRenderer* m_blueHorizontal = nullptr;
    QSvgRenderer* m_red = nullptr;
    QSvgRenderer* m_redHorizontal = nullptr;
    QSvgRenderer* m_grey = nullptr;
    QSvgRenderer* m_greyHorizontal = nullptr;
    QSvgRenderer* m_yellow = nullptr;
    QSvgRenderer* m_yellowHorizontal = nullptr;

    bool m_debugSuppressed = true;
    bool m_barHorizontal = false;
    int m_maxRescaleSteps = 12;
};

#endif // METERBAR_BAR_H
