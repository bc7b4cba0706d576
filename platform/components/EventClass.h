#ifndef EVENTCLASS_H
#define EVENTCLASS_H

namespace Brenmoor {
namespace Event {

//! Class of a status-bar message; decides its colour.
enum EventClass
{
    Information = 0,
    Warning = 1,
    Error = 2
};

} // namespace Event
} // namespace Brenmoor

#endif // EVENTCLASS_H
