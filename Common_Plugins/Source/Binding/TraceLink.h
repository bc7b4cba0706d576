#ifndef TRACELINK_H
#define TRACELINK_H

#include "AttributeLink.h"

/*!
  A trace: a basic trace (EngineBasicTrace), whose points and axes can be
  read and arrive whole with each sample, or a complex trace
  (EngineReadingComplexTrace), whose points arrive only by DDS.
*/
class TraceLink : public AttributeLink
{
public:
    enum Interface
    {
        BasicTrace = 1,
        ComplexTrace = 2
    };
    static const LinkFamily family;

    bool isNarrowed() const override;
    bool isComplex() const;
    //! Owned by the caller; throws CORBA::BAD_OPERATION on a complex trace, which cannot be read.
    Brenmoor::BASIC_TRACE::BT_DATA* value() const;
    //! \a onTrace gets each basic trace; a complex trace delivers to \a onComplex instead. On a DDS thread.
    void follow(boost::function<void(const char*, const Brenmoor::BASIC_TRACE::BT_DATA&)> onTrace,
                boost::function<void(const char*, const Brenmoor::ComplexDoubleSeq&)> onComplex) const;

private:
    TraceLink(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);
    static AttributeLink* make(WidgetBaseImpl* frame, Brenmoor::EngineReadingBase_ptr attr, int interface);

    Brenmoor::EngineBasicTrace_var m_basic;
    Brenmoor::EngineReadingComplexTrace_var m_complex;
};

#endif // TRACELINK_H
