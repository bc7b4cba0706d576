#ifndef SETTABLEREFERENCE_H
#define SETTABLEREFERENCE_H

#include <Brenmoor.hh>

/*!
  An attribute narrowed to its reading interface and, when it is a
  setting, to its settable interface as well: the reading part reads, the
  settable part sets, and a reading asked to set throws
  CORBA::BAD_OPERATION.
*/
template<class Reading, class Setting>
class SettableReference
{
public:
    SettableReference(Brenmoor::EngineReadingBase_ptr attr, bool settable)
        : m_reading(Reading::_narrow(attr))
        , m_setting(settable ? Setting::_narrow(attr) : Setting::_nil())
        , m_settable(settable)
    {
    }

    bool isNarrowed() const { return !CORBA::is_nil(m_reading) && (!m_settable || !CORBA::is_nil(m_setting)); }
    bool isSettable() const { return m_settable; }
    typename Reading::_ptr_type reading() const { return m_reading.in(); }

    typename Setting::_ptr_type setting() const
    {
        if (CORBA::is_nil(m_setting))
            throw CORBA::BAD_OPERATION();
        return m_setting.in();
    }

private:
    typename Reading::_var_type m_reading;
    typename Setting::_var_type m_setting;
    bool m_settable = false;
};

#endif // SETTABLEREFERENCE_H
