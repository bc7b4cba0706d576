#ifndef DDS_UPDATESEPARATION_H
#define DDS_UPDATESEPARATION_H

#include <chrono>

namespace Brenmoor {

/*!
  A widget's UpdateDelay, in milliseconds, as the least time between two
  deliveries of its subscriptions: 1500 is 1 s and 500000000 ns; 0 or less
  is none, and every sample is delivered.
*/
std::chrono::nanoseconds updateSeparation(int delayMs);

} // namespace Brenmoor

#endif // DDS_UPDATESEPARATION_H
