#ifndef BOOLEANLINK_H
#define BOOLEANLINK_H

#include "AttributeLink.h"
#include "SettableReference.h"

/*!
  An on/off value: a setting (EngineAttribBoolean) or a reading
  (EngineReadingBoolean), which has no set().
*/
class BooleanLink : public AttributeLink
{
public:
    enum Interface
    {
        AttribBoolean = 1,
        ReadingBoolean = 2
    };
    static const LinkFamily family;

    bool isNarrowed() const override;
    bool value() const;
    //! Throws CORBA::BAD_OPERATION on a reading.
    void set(bool on) const;
    void follow(boost::function<void(const char*, bool)> onValue) const;

private:
    BooleanLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);
    static AttributeLink* make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);

    SettableReference<Brenmoor::EngineReadingBoolean, Brenmoor::EngineAttribBoolean> m_boolean;
};

#endif // BOOLEANLINK_H
