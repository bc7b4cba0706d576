#ifndef DDS_BASEOBJ_H
#define DDS_BASEOBJ_H

namespace Brenmoor {

class DDS_ParticipantHolder;

/*!
  Base of every DDS entity owner of the interface: it reaches the process's
  participant, and lets the frame delete a subscription of any payload.
*/
class DDS_BaseObj
{
public:
    DDS_BaseObj() = default;
    virtual ~DDS_BaseObj();
    DDS_BaseObj(const DDS_BaseObj&) = delete;
    DDS_BaseObj& operator=(const DDS_BaseObj&) = delete;

    //! The holder of the process's participant; its participant may be null.
    static DDS_ParticipantHolder* DdsBase();
};

} // namespace Brenmoor

#endif // DDS_BASEOBJ_H
