#ifndef BENCHSPINE_H
#define BENCHSPINE_H

#include "BenchReport.h"

#include <QCommandLineOption>

#include <string>
#include <vector>

class ProgressBar;
class QProgressBar;
class SimEngine;

/*
  What the spine benchmarks share: ProgressBars bound to EngineReadingLong
  attributes of an in-process engine, seen only through public behaviour
  (bindAttribute, the engine's control calls, the inner QProgressBar).
*/

//! Declares an EngineReadingLong attribute holding \a percent.
void benchAddLongReading(SimEngine& engine, const std::string& name, int percent);
//! The bar inside the widget; it shows a percentage in tenths.
QProgressBar* benchInnerBar(const ProgressBar* widget);
bool benchShows(const ProgressBar* widget, int percent);

//! Runs the interface thread's events for \a ms milliseconds.
void benchRunEvents(int ms);

/*!
  Sets every attribute of \a names to \a percent and runs the interface
  thread's events until the widget at the same index shows it. A reader
  that has not matched yet misses a sample on a volatile topic, so an
  attribute whose widget does not show the value yet is written again every
  \a rewriteMs. Returns how many widgets still do not show it after
  \a timeoutMs; \a rewrites, when given, counts the writes beyond the first.
*/
int benchShowEverywhere(SimEngine& engine, const std::vector<std::string>& names,
                        const std::vector<ProgressBar*>& widgets, int percent, int timeoutMs, int rewriteMs = 10,
                        int* rewrites = nullptr);

//! The "--widgets" option: how many widgets, one attribute each.
QCommandLineOption benchWidgetsOption(int defaultCount);

//! From here the process gets ten seconds to end on its own, then ends with \a code.
void benchBoundShutdown(int code);

#endif // BENCHSPINE_H
