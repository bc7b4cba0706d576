#ifndef SLIDERIMPL_H
#define SLIDERIMPL_H

#include "ContainerImpl.h"

/*!
  The slider entry mechanisms of a numeric field: pop-ups in which the
  operator flicks a ruler of values under a fixed mark. Each value the ruler
  comes to goes out through valueChanged(), which the field sends at once;
  Enter ends the entry with closeEntry(), Cancel with cancelEntry().
  SingleSliderImpl has one ruler, DoubleSliderImpl a coarse and a fine one.
*/
class SliderImpl : public ContainerImpl
{
    Q_OBJECT

public:
    explicit SliderImpl(QWidget* parent);

    //! Shows \a value in \a unit, as the field has it; sends nothing.
    virtual void setValue(const QString& value, const QString& unit);
    //! Shows and sends \a value, which the slider's own keys produced.
    virtual void updateValue(const QString& value, const QString& unit);
    //! Marks in the read-out the digit that the ruler moves.
    virtual void updateCursorPosition();
    virtual void changePrecision(int precision) = 0;
    //! Limits of the ruler, in the unit shown.
    virtual void updateLimits(double lower, double upper) = 0;
    //! Blanks the read-out.
    virtual void clear();
    //! The size the field places the pop-up by.
    virtual int getWidth() const;
    virtual int getHeight() const;
    //! The power of ten that one tick of the ruler is worth.
    virtual double getPower() const;

public slots:
    //! x10: the ruler moves the next digit to the left.
    virtual void increment();
    //! /10: the ruler moves the next digit to the right.
    virtual void decrement();

signals:
    void closeEntry();
    void cancelEntry();
    //! The field sends \a value to the engine.
    void valueChanged(QString value);
};

#endif // SLIDERIMPL_H
