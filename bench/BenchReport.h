#ifndef BENCHREPORT_H
#define BENCHREPORT_H

#include <functional>

/*!
  Times \a step \a rounds times and prints its p50 and p99 in microseconds;
  \a prepare, when given, runs untimed before each step.
*/
void benchReport(const char* what, int rounds, const std::function<void()>& step,
                 const std::function<void()>& prepare = {});

#endif // BENCHREPORT_H
