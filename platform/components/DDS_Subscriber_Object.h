#ifndef DDS_SUBSCRIBER_OBJECT_H
#define DDS_SUBSCRIBER_OBJECT_H

namespace Brenmoor {
class DDS_BaseObj;
}

/*!
  One subscription in a widget's list: the tag of its payload type (0 double,
  1 int, 2 long long, 3 bool, 4 string, 5 value double, 6 value long,
  7 basic trace, 8 payload-free, 12 meter reading) and the subscription,
  owned by the widget, which deletes it through its base.
*/
struct DDS_Subscriber_Object
{
    int tag = -1;
    Brenmoor::DDS_BaseObj* subscription = nullptr;
};

#endif // DDS_SUBSCRIBER_OBJECT_H
