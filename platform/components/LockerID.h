#ifndef LOCKERID_H
#define LOCKERID_H

#include <cstdint>

/*!
  Identity of this user-interface process towards the engine's attribute
  locks: a plain value, copied freely, passed by reference to every write
  and lock query.
*/
struct LockerID
{
    std::uint32_t processId = 0;   //!< the UI process
    std::uint32_t startStamp = 0;  //!< low bits of its start time, so a reused pid is another locker
};

#endif // LOCKERID_H
