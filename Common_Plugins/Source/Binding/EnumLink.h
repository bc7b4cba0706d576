#ifndef ENUMLINK_H
#define ENUMLINK_H

#include "AttributeLink.h"

#include <QList>
#include <QString>

/*!
  An enumerated setting (EngineAttribEnum): its enumerators, the value
  chosen, and the two topics that say when either changed.
*/
class EnumLink : public AttributeLink
{
public:
    enum Interface
    {
        AttribEnum = 1
    };
    static const LinkFamily family;

    struct Entry
    {
        long value = 0;
        QString label;
        bool enabled = true;
    };

    bool isNarrowed() const override;
    //! The enumerators in the engine's order.
    QList<Entry> entries() const;
    long value() const;
    void set(long value) const;
    //! The payload-free topic that tells of new enumerators.
    QByteArray paramsTopic() const;
    //! \a onValue gets each new value, \a onList each change of the enumerators; on a DDS thread.
    void follow(boost::function<void(const char*, int)> onValue, boost::function<void(const char*)> onList) const;

private:
    EnumLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr);
    static AttributeLink* make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);

    Brenmoor::EngineAttribEnum_var m_enum;
};

#endif // ENUMLINK_H
