#ifndef ATTRIBUTELINK_H
#define ATTRIBUTELINK_H

#include <Brenmoor.hh>

#include <QByteArray>
#include <QStringList>

#include <boost/function.hpp>

class WidgetBaseImpl;
class AttributeLink;

/*!
  The engine interfaces one kind of link speaks, by their bare type names
  (bit i of an accepted mask is interfaces[i]), and how a link is made for
  the one an attribute has. Narrowing failures of the interfaces in
  quietNarrowing go unlogged.
*/
struct LinkFamily
{
    QStringList interfaces;
    AttributeLink* (*make)(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);
    int quietNarrowing = 0;
};

/*!
  One engine attribute as a widget uses it: the reference, narrowed to its
  interface once at binding, the reads and writes of its family, and the
  topics it follows. A link belongs to the frame, which starts its
  subscriptions, tears them down and drops the link with the binding;
  sends that still use it are waited for first.
*/
class AttributeLink
{
public:
    virtual ~AttributeLink();
    AttributeLink(const AttributeLink&) = delete;
    AttributeLink& operator=(const AttributeLink&) = delete;

    //! False when the attribute would not narrow to the interface its type names.
    virtual bool isNarrowed() const = 0;
    //! The attribute as given at binding; owned by the link.
    Brenmoor::EngineReadingBase_ptr attribute() const;
    //! The topic of the attribute's live value.
    QByteArray topic() const;

protected:
    AttributeLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr);

    //! Follows \a topic through the frame; \a callback runs on a DDS thread.
    template<class T>
    void followTopic(const QByteArray& topic, boost::function<void(const char*, T)> callback) const;
    void followVoidTopic(const QByteArray& topic, boost::function<void(const char*)> callback) const;

private:
    WidgetBaseImpl* m_frame = nullptr;
    Brenmoor::EngineReadingBase_var m_attribute;
};

#endif // ATTRIBUTELINK_H
