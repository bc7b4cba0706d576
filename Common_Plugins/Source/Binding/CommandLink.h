#ifndef COMMANDLINK_H
#define COMMANDLINK_H

#include "AttributeLink.h"

/*!
  An engine command behind a button: a setting that a touch sets to true
  (EngineAttribBoolean) or to 1 (EngineAttribLong).
*/
class CommandLink : public AttributeLink
{
public:
    enum Interface
    {
        AttribBoolean = 1,
        AttribLong = 2
    };
    static const LinkFamily family;

    bool isNarrowed() const override;
    void trigger() const;

private:
    CommandLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);
    static AttributeLink* make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);

    Brenmoor::EngineAttribBoolean_var m_boolean;
    Brenmoor::EngineAttribLong_var m_long;
};

#endif // COMMANDLINK_H
