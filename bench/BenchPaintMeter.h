#ifndef BENCHPAINTMETER_H
#define BENCHPAINTMETER_H

#include <QEvent>
#include <QObject>

#include <vector>

/*!
  Counts and times the paints of the widgets it watches as their event
  filter, on the interface thread: each event of its type is handled inside
  the filter, and its time goes into microseconds. QEvent::Paint times one
  widget's paint; QEvent::UpdateRequest on a window times a whole frame,
  every widget repainted in it and the flush.
*/
class BenchPaintMeter : public QObject
{
public:
    explicit BenchPaintMeter(QEvent::Type type = QEvent::Paint);

    std::vector<double> microseconds;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const QEvent::Type m_type;
    bool m_painting = false;
};

#endif // BENCHPAINTMETER_H
