#ifndef STRINGLINK_H
#define STRINGLINK_H

#include "AttributeLink.h"
#include "SettableReference.h"

#include <QString>

/*!
  A text: a setting (EngineAttribString) or a reading (EngineReadingString),
  which has no set(). Texts travel as UTF-8, the ORB's native code set here
  and in the engine.
*/
class StringLink : public AttributeLink
{
public:
    enum Interface
    {
        AttribString = 1,
        ReadingString = 2
    };
    static const LinkFamily family;

    bool isNarrowed() const override;
    bool isSettable() const;
    QString value() const;
    //! Throws CORBA::BAD_OPERATION on a reading.
    void set(const QString& text) const;
    void follow(boost::function<void(const char*, const QString&)> onValue) const;

private:
    StringLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);
    static AttributeLink* make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);

    SettableReference<Brenmoor::EngineReadingString, Brenmoor::EngineAttribString> m_text;
};

#endif // STRINGLINK_H
