#ifndef BENCHREPORT_H
#define BENCHREPORT_H

#include <functional>
#include <vector>

/*!
  Times \a step \a rounds times and prints its p50 and p99 in microseconds;
  \a prepare, when given, runs untimed before each step.
*/
void benchReport(const char* what, int rounds, const std::function<void()>& step,
                 const std::function<void()>& prepare = {});

/*!
  Runs \a frame \a frames times back to back, as an animation would, and
  prints the cost of one frame (p50 and p99 in milliseconds) and the frames
  per second that this pace reaches.
*/
void benchFrames(const char* what, int frames, const std::function<void(int)>& frame);

//! Runs on the offscreen platform unless QT_QPA_PLATFORM names another; before QApplication.
void benchDefaultToOffscreen();

//! The \a fraction percentile of \a samples (0.5 is p50); 0 for none.
double benchPercentile(std::vector<double> samples, double fraction);

#endif // BENCHREPORT_H
