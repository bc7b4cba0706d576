#ifndef SIMVALUE_H
#define SIMVALUE_H

#include <complex>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

/*!
  The value of a simulated attribute, as the engine holds it. Whole-number
  kinds (long, long long, ValueLong, enum) hold std::int64_t; double,
  ValueDouble and meter readings hold double; a basic trace holds its samples
  and a complex trace its points. Units and limits are kept beside the value
  and join it in the records that clients receive.
*/
using SimValue = std::variant<bool, std::int64_t, double, std::string,
                              std::vector<float>, std::vector<std::complex<double>>>;

#endif // SIMVALUE_H
