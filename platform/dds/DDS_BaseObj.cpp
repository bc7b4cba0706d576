#include "DDS_BaseObj.h"

#include "DDS_ParticipantHolder.h"

namespace Brenmoor {

DDS_BaseObj::~DDS_BaseObj() = default;

DDS_ParticipantHolder* DDS_BaseObj::DdsBase()
{
    return DDS_ParticipantHolder::instance();
}

} // namespace Brenmoor
