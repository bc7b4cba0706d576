#include "DigitStep.h"

#include <QLineEdit>
#include <QString>

#include <algorithm>
#include <cmath>

double DigitStep::exponent() const { return m_exponent; }
void DigitStep::setExponent(double exponent) { m_exponent = exponent; }
double DigitStep::size() const { return std::pow(10.0, m_exponent); }
void DigitStep::reset() { m_exponent = 0.0; }

bool DigitStep::change(double places, double value, double lower, double upper, int precision)
{
    double top = std::log10(std::abs(value)) + 1.0;
    if (value < 0.0)
        top = std::min(top, std::log10(std::abs(lower)));
    else if (value > 0.0)
        top = std::min(top, std::log10(std::abs(upper)));
    const double exponent = m_exponent + places;
    // A NaN bound compares false and so lets nothing through.
    if (!(exponent >= -precision && exponent <= std::max(top, 1.0)))
        return false;
    m_exponent = exponent;
    return true;
}

int DigitStep::cursorPosition(const QString& text) const
{
    const int dot = text.indexOf(QLatin1Char('.'));
    if (m_exponent < 0.0)
        return int(dot - m_exponent + 1.0);
    return int((dot < 0 ? text.size() : dot) - m_exponent);
}

int DigitStep::markedLength() const { return m_exponent < 0.0 && m_exponent > -3.0 ? 4 : 3; }

int DigitStep::markIn(QLineEdit* readOut)
{
    int position = cursorPosition(readOut->text());
    if (position < 0) {
        reset();
        position = 0;
    }
    readOut->setCursorPosition(position);
    readOut->setSelection(position, -markedLength());
    return position;
}
