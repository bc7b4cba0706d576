#ifndef METERBARIMPL_H
#define METERBARIMPL_H

#include "Units.h"
#include "WidgetBaseImpl.h"

#include <QList>
#include <QMutex>
#include <QSizePolicy>
#include <QStringList>

#include <atomic>

class MeterBar_Bar;
class MeterBar_HorizontalScale;
class MeterBar_Scale;
class MeterBar_ScaleBase;
class QFrame;
class QGridLayout;
class QHBoxLayout;
class QSpacerItem;

namespace Brenmoor {
namespace MeterReading { struct Reading; }
}

/*!
  A meter: a capped, rounded bar that follows one reading of an engine
  meter attribute (EngineReadingMeterReading), with its lower and upper
  limit written beside the ends. Green is a good reading, red over the
  limit, blue at the floor, yellow and grey the engine's other states.

  Upright on the full screens ("Max" 170 wide, "Min" 85), a thin strip
  lying down in the "Thumb" size. The upright labels stay inside the
  widget, their texts elided when it is narrower than its minimum size
  hint. Which reading (peak, live, RMS, ...) and which unit are shown may
  be chosen by a ReadingSelector (a ComboBoxImpl, say) and a UnitSelector
  (a NumericEntryImpl) registered against the meter; it never sends
  anything to the engine. Samples are drawn on the DDS thread, at most
  every 300 ms.
*/
class MeterBarImpl : public WidgetBaseImpl
{
    Q_OBJECT
    Q_PROPERTY(bool Horizontal READ horizontal WRITE setHorizontal)

public:
    explicit MeterBarImpl(QWidget* parent = nullptr);
    ~MeterBarImpl() override;

    //! Offers the readings of the bound attribute in \a widget, if it is a ReadingSelector; call it after binding.
    Q_INVOKABLE void registerReadingSelector(QWidget* widget);
    //! Shows the meter in the unit chosen in \a widget, if it is a UnitSelector.
    Q_INVOKABLE virtual void registerUnitSelector(QWidget* widget);
    virtual bool horizontal() const;
    virtual void setHorizontal(bool horizontal);
    //! On the DDS thread: brings one sample to the bar and the limit labels.
    virtual void dds_callback(const char* topic, const Brenmoor::MeterReading::Reading& reading);

    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;
    MeterBar_Bar* barWidget() const;
    //! Upright, wide enough for the bar and its limit labels' whole texts.
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

public slots:
    void changeSize(const QString& size) override;
    //! Takes effect with the next sample.
    void setReadingIndex(long idx);
    //! Index into the registered unit list, -1 for none; takes effect with the next sample.
    void setCurrentUnit(long idx);

protected slots:
    void updateMarkerPositions();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private slots:
    void relLock();

private:
    //! A reading and both limits, all in one unit once converted.
    struct Figures;

    static QString styleSheetFor(int border, int radius, int capSize, bool horizontal);
    void placeCaps(bool horizontal);
    Figures figuresOf(const Brenmoor::MeterReading::Reading& reading, long index) const;
    Kelvane::Value::Units targetUnit(const Figures& figures) const;
    static void convertFigures(Figures& figures, const Kelvane::Value::Units& target);
    void writeLimits(const QString& upper, const QString& lower, void (MeterBar_ScaleBase::*write)(QString));
    void logMismatch(const char* headline, const Figures& figures) const;

    QString m_verticalStyle;
    QString m_horizontalStyle;
    // Read on the DDS thread while the interface thread may register a selector.
    mutable QMutex m_unitsMutex;
    QList<Kelvane::Value::Units> m_units;
    std::atomic<long> m_currentUnit{-1};
    int m_scaleOverlap = 20;
    QFrame* m_barFrame = nullptr;
    QFrame* m_topCap = nullptr;
    QFrame* m_barMid = nullptr;
    QFrame* m_bottomCap = nullptr;
    QGridLayout* m_barGrid = nullptr;
    MeterBar_Bar* m_bar = nullptr;
    QHBoxLayout* m_outerLayout = nullptr;
    MeterBar_Scale* m_upperScale = nullptr;
    MeterBar_Scale* m_lowerScale = nullptr;
    MeterBar_HorizontalScale* m_upperHScale = nullptr;
    MeterBar_HorizontalScale* m_lowerHScale = nullptr;
    QStringList m_readingNames;
    QString m_sizeName = QStringLiteral("Min");
    QSizePolicy m_midSizePolicy;
    QSpacerItem* m_spacer = nullptr;
    std::atomic<long> m_readingIndex{0};
    double m_initialScaleExponent = 5.0;
    bool m_isHorizontal = false;
};

#endif // METERBARIMPL_H
