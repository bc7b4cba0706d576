#ifndef NUMPADENTRYIMPL_H
#define NUMPADENTRYIMPL_H

#include "BaseEntryImpl.h"
#include "DigitStep.h"

class QGridLayout;
class QVBoxLayout;

/*!
  The numeric keypad that a NumericEntryImpl opens under the operator's
  finger: digits, point, sign, backspace, Clear and Cancel, and a column of
  unit keys (or Enter) that submit the value in that unit. In hex mode the
  keys A to F replace the unit column. In real-time mode a column of arrows
  steps the value within its limits and sends each step at once; x10 and /10
  choose the digit that the arrows change, marked in the echo.
*/
class NumpadEntryImpl : public BaseEntryImpl
{
    Q_OBJECT

public:
    //! \a units may be null; hex mode never runs in real time.
    NumpadEntryImpl(QObject* target, QWidget* parent, const QList<QString>* units, const bool& isHex, int width,
                    int height, bool realTime, double lower, double upper, int precision);
    ~NumpadEntryImpl() override;

    //! The arrows and step keys exist and each arrow press is sent at once.
    bool realtimeUpdate() const;
    //! Limits of the arrows, in the unit shown.
    void updateLimits(double lower, double upper);
    double lowerLimit() const;
    double upperLimit() const;
    //! The arrows step the units digit again.
    void resetStep();
    //! Marks in the echo the digit that the arrows change.
    void updateCursorPosition();
    void changePrecision(int precision);
    //! Replaces the unit keys; without units the Enter key submits.
    void setUnitList(const QList<QString>& labels);

    void setValue(const QString& text) override;
    void retranslate() override;

signals:
    void closeEntry();
    //! A unit key, or Enter with its own label, submitted the value.
    void updateUnit(QString unit);
    //! The text of the field was edited.
    void valueChanged();
    //! An arrow press asks the field to send \a value.
    void valueChanged(QString value);
    //! Asks the field for its next mechanism; \a entry is "NumpadEntry".
    void rotateEntryMechanism(QString entry);

protected slots:
    void buttonPress() override;

protected:
    void Initialize() override;
    //! Whether the text may be submitted; a pad that refuses it tells the operator why.
    virtual bool acceptsEntry();

private slots:
    void submit();
    void rotate();
    void increment();
    void decrement();
    void incrStep();
    void decrStep();

private:
    void createButtons();
    QGridLayout* keypadGrid();
    QGridLayout* hexGrid();
    void updateKeypad();
    void toggleSign();
    void updateValue(double direction);
    void changeStep(double direction);

    int m_precision;
    double m_lower;
    double m_upper;
    double m_currentValue = 0.0;
    DigitStep m_step;
    bool m_realTime;
    bool m_hexMode;
    QPushButton* m_rotateButton = nullptr;
    QVBoxLayout* m_unitLayout = nullptr;
    QList<QString> m_unitList;
};

#endif // NUMPADENTRYIMPL_H
