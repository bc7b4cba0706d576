#ifndef BATTERYSTATUSINDICATORIMPL_H
#define BATTERYSTATUSINDICATORIMPL_H

#include "WidgetBaseImpl.h"

#include <QColor>

class QPainter;
class QPainterPath;
struct NumericSample;

namespace Kelvane {
namespace gui {

/*!
  A battery outlined in white, filled with its charge (red up to 20
  percent, orange up to 60, green above) and the time left written in it
  as HH:MM. Binds an EngineAttribValueDouble whose value is the minutes
  remaining and whose upper limit the minutes of a full charge; it sends
  nothing. The increment and decrement slots step the charge by one
  percent of the last known full charge.
*/
class BatteryStatusIndicatorImpl : public WidgetBaseImpl
{
    Q_OBJECT

public:
    explicit BatteryStatusIndicatorImpl(QWidget* parent = nullptr);
    ~BatteryStatusIndicatorImpl() override;

    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    //! The charge in percent; not finite after a full charge of 0 or NaN minutes.
    double getPercent() const;
    //! The time left as written in the battery.
    QString getTimeText() const;
    //! The colour of the charge: red, orange or green.
    QColor getFillColor() const;

signals:
    void updateBatteryStatus(double minutesRemaining, double maxMinutes);

public slots:
    void setBatteryStatus(double minutesRemaining, double maxMinutes);
    void decrementBatteryStatus();
    void incrementBatteryStatus();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void dds_callback(const char* topic, const NumericSample& sample);
    //! "HH:MM" of whole minutes; "--:--" for minutes no clock can show.
    static QString convertBatteryLife(const double& minutes);
    //! Outline of body and terminal; sets the body width.
    QPainterPath createBattery();
    QPainterPath fillBatteryIndicator() const;
    void drawScale(QPainter& painter) const;
    void drawTimeText(QPainter& painter) const;
    //! Percent plus \a step, the text from the full charge, then held inside 0 to 100.
    void stepBatteryStatus(double step);

    double m_minutesRemaining = 100.0;
    double m_maxMinutes = 100.0;
    double m_percent = 100.0;
    int m_bodyWidth = 0;
    QString m_timeText = convertBatteryLife(m_minutesRemaining);
};

} // namespace gui
} // namespace Kelvane

#endif // BATTERYSTATUSINDICATORIMPL_H
