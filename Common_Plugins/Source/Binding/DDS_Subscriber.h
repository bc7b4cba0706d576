#ifndef DDS_SUBSCRIBER_H
#define DDS_SUBSCRIBER_H

#include "DDS_SubscriberBase.h"

namespace Brenmoor {

//! The subscription of one widget to one topic of payload T.
template<class T>
class DDS_Subscriber : public DDS_SubscriberBase<T, void(const char*, T)>
{
public:
    using DDS_SubscriberBase<T, void(const char*, T)>::DDS_SubscriberBase;
};

} // namespace Brenmoor

#endif // DDS_SUBSCRIBER_H
