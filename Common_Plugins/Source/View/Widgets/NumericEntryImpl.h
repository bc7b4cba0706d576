#ifndef NUMERICENTRYIMPL_H
#define NUMERICENTRYIMPL_H

#include "NumericEntryBinding.h"
#include "NumericEntryMechanisms.h"
#include "NumericEntryStyle.h"
#include "NumericUnitSelector.h"
#include "NumericUnits.h"
#include "UnitSelector.h"
#include "WidgetBaseImpl.h"

#include <QStringList>

#include <atomic>

class ComboBoxImpl;
class NumpadEntryImpl;
class SliderImpl;
class SpinWheelImpl;
class QLineEdit;

class NumericLink;
struct NumericSample;

/*!
  The field in which an operator reads and changes one number of the
  instrument: a caption, the value box and, at its right, a unit selector.

  The value is held in the engine's base unit and shown in the display unit
  that the selector or a unit key of the keypad chose. The unit list comes
  from the form's Units property (unit descriptions joined by "|"); with
  FilterByBaseUnit only the units of the attribute's base unit are offered.
  Other widgets may show their figures in the unit chosen here (UnitSelector).

  Bound, it follows one of nine engine interfaces. Samples arrive on a DDS
  thread and reach the box through one blocking queued signal; a typed
  value goes out from a worker, and the box goes on showing the engine's
  value until the engine's sample brings the accepted one. A refused value
  puts back what the box showed before the touch.
*/
class NumericEntryImpl : public WidgetBaseImpl, public UnitSelector
{
    Q_OBJECT
    Q_INTERFACES(UnitSelector)
    Q_PROPERTY(QString Units READ getUnitListString WRITE setUnitListString)
    Q_PROPERTY(int DefaultUnit READ getDefaultUnit WRITE setDefaultUnit)
    Q_PROPERTY(int SliderBar READ getSliderBar WRITE setSliderBar)
    Q_PROPERTY(bool IsHex READ getIsHex WRITE setIsHex)
    Q_PROPERTY(bool FilterByBaseUnit READ getFilterByBaseUnit WRITE setFilterByBaseUnit)
    Q_PROPERTY(bool ForceReadOnly READ getReadOnly WRITE setReadOnly)
    Q_PROPERTY(bool SpinWheel READ getSpinWheel WRITE setSpinWheel)
    Q_PROPERTY(bool RealtimeUpdate READ getRealtimeUpdate WRITE setRealtimeUpdate)
    Q_PROPERTY(int Precision READ precision WRITE setPrecision)

public:
    //! \a units, when given, are the labels of a local unit list, keyed by position.
    explicit NumericEntryImpl(QWidget* parent = nullptr, const QString& label = QString(),
                              const QList<QString>* units = nullptr);
    ~NumericEntryImpl() override;

    QString getUnitListString() const;
    int getDefaultUnit() const;
    void setDefaultUnit(int key);
    int getSliderBar() const;
    void setSliderBar(int sliderBar);
    bool getIsHex() const;
    void setIsHex(bool isHex);
    bool getFilterByBaseUnit() const;
    void setFilterByBaseUnit(bool filter);
    bool getReadOnly() const;
    bool getSpinWheel() const;
    void setSpinWheel(bool useSpinWheel);
    bool getRealtimeUpdate() const;
    void setRealtimeUpdate(bool realtime);
    int precision() const;

    //! The label of the selected unit, or "" without a selector.
    Q_INVOKABLE QString getUnit() const;
    Q_INVOKABLE void setPrecision(int precision);
    Q_INVOKABLE void setValue(double value, const QString& inputUnit);
    Q_INVOKABLE void setValue(double value);
    Q_INVOKABLE void setValue(long value, const QString& inputUnit);
    Q_INVOKABLE void setValue(long value);
    //! 0 disabled; 1 the unit is frozen; 2 the value is frozen; other: all free.
    Q_INVOKABLE void setEnableState(int state);
    Q_INVOKABLE void addNumpad(bool isHex, bool realtimeUpdate = false);
    //! A spin wheel between \a lower and \a upper, in the base unit; reached by the keypad's rotate key.
    virtual void addSpinWheel(double lower, double upper);
    /*!
      A slider between \a lower and \a upper, in the base unit: with
      \a single the one the keypad's rotate key reaches, else the coarse and
      fine double slider, which a host opens itself.
    */
    virtual void addSliderControl(const bool& single, const double& lower, const double& upper);
    Q_INVOKABLE void setReadOnly(bool state);
    //! The text of the value box.
    Q_INVOKABLE QString getValue() const;
    //! valueChanged() speaks in this unit from now on. Call it once.
    Q_INVOKABLE void setBroadcastUnit(const QString& unit);
    Q_INVOKABLE void clearBroadcastUnit();
    Q_INVOKABLE void clear();
    //! Lets \a widget, if it is a ReadingSelector, choose which reading of a meter attribute is shown.
    Q_INVOKABLE void registerReadingSelector(QWidget* widget);

    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;
    void retranslate() override;
    void setNumLocked(bool locked);
    //! The keypad of the field, once bound to a settable attribute.
    NumpadEntryImpl* numpadWidget() const;
    //! The spin wheel of the field, once bound to a settable attribute with SpinWheel set.
    SpinWheelImpl* spinWheelWidget() const;
    //! The slider of the field, once bound to a settable attribute with SliderBar above 0.
    SliderImpl* sliderWidget() const;
    ComboBoxImpl* unitSelectorWidget() const;
    //! The value in the base unit.
    double baseValue() const;
    //! The engine's limits of a settable attribute, in the base unit; 0 before binding.
    double lowerLimit() const;
    double upperLimit() const;
    Kelvane::Value::Units getBaseUnit() const;
    Kelvane::Value::Units getDisplayUnit() const;

    //! The units of the Units property; any unreadable one refuses them all.
    bool selectableUnits(QList<Kelvane::Value::Units>* units, QString* error) const override;
    long selectedUnitKey() const override;
    QMetaObject::Connection followUnitChoice(QObject* receiver, std::function<void(long)> onChoice) override;

    //! The label of a meter reading's type ("RMS", "Peak Positive", ...).
    static QString translateReadingType(long type);

signals:
    void valueChange(QString text);
    void valueChanged(double value);
    void baseUnitChanged(Kelvane::Value::Units unit);
    void unitChanged(QString newUnit);
    void newUnit(long key);
    void updateLimits();
    void revertChangeSignal();

public slots:
    //! The one way a text reaches the box; a sample replaces what is being typed.
    virtual void setValue(const QString& text);
    void setAndEnterValue(const QString& text);
    void displayEntryMechanism();
    void changeSize(const QString& size) override;
    void raise() override;
    void setIndex(const long& key);
    void setIndex(int key);
    void setReadingIndex(long index);
    void setUnitListString(const QString& units);

protected slots:
    void revertChanges();

private slots:
    void closeInput();
    void setUnit(const QString& unit);
    void enterValue();
    void updateUnitListWidget();
    void restoreValue();
    void updateParams();
    void rotateEntryMechanism(const QString& entry);
    //! Enter on a wheel or slider: the value goes out and the mechanism closes.
    void sliderCloseSlot();
    //! The slider came to \a text, which goes out at once.
    void sliderSetSlot(const QString& text);
    void clearSlider();
    //! The engine refused a value.
    void takeRefusal();
    //! The operator entered something (a key, a typed or given text).
    void noteEntry();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void setLockImageVisible(const bool& visible) override;
    virtual bool baseUnitsMatch(const Kelvane::Value::Units& a, const Kelvane::Value::Units& b) const;

private:
    friend class NumericEntryBinding;
    friend class NumericEntryMechanisms;

    double takeGivenValue(double value, const QString& inputUnit);
    void setPrecision(int precision, double value);
    void updateReading(double value);
    void updateReading(long value);
    void setReadOnlyStyle();

    bool isMeter() const;
    void dds_callback(const char* topic, const NumericSample& sample);
    void dds_params_callback(const char* topic);

    QStringList m_readingNames;
    QString m_sizeName;
    bool m_readOnly = false;
    int m_precision = 4;
    int m_sliderBar = 1;
    long m_defaultUnit = 0;
    double m_upperLimit = 0.0;
    double m_lowerLimit = 0.0;
    QLineEdit* m_valueEdit = nullptr;
    bool m_unitSelectOpen = false;
    bool m_valueFrozen = false;
    bool m_unitFrozen = false;
    NumericUnitSelector m_unitSelector{this, [this](long key) { setIndex(key); }};
    bool m_numLocked = false;
    NumericEntryStyle m_style;
    QString m_savedText;
    long m_savedUnit = 0;
    std::atomic<double> m_value{0.0};
    double m_savedValue = 0.0;
    std::atomic<long> m_readingIndex{0};
    bool m_isHex = false;
    bool m_useSpinWheel = true;
    bool m_realtimeUpdate = false;
    NumericUnits m_units{[this](const Kelvane::Value::Units& a, const Kelvane::Value::Units& b) {
        return baseUnitsMatch(a, b);
    }};
    NumericEntryBinding m_binding{this};
    NumericEntryMechanisms m_mechanisms{this};
    //! The state of the last meter reading, for texts made on the interface thread.
    std::atomic<bool> m_readingHasNoValue{false};
    std::atomic<bool> m_readingDoubtful{false};
};

#endif // NUMERICENTRYIMPL_H
