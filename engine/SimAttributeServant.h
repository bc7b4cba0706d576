#ifndef SIMATTRIBUTESERVANT_H
#define SIMATTRIBUTESERVANT_H

#include <omniORB4/CORBA.h>

class SimAttribute;

/*!
  The CORBA servants of the simulated attributes: one generic servant per
  layer of the interfaces (reading, settable attribute, limits, enumerator
  list), each forwarding to the attribute it serves.
*/
namespace SimAttributeServant {

//! A new servant of the interface the attribute's kind names; the caller owns one reference.
PortableServer::ServantBase* create(SimAttribute& attribute);

} // namespace SimAttributeServant

#endif // SIMATTRIBUTESERVANT_H
