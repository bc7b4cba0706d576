#ifndef SIMDIRECTORYSERVANT_H
#define SIMDIRECTORYSERVANT_H

#include <Brenmoor.hh>

class SimEngine;

//! The engine's front door: looks attributes up by name for a host.
class SimDirectoryServant : public POA_Brenmoor::AttributeDirectory
{
public:
    explicit SimDirectoryServant(const SimEngine& engine);

    Brenmoor::EngineReadingBase_ptr find(const char* name) override;
    Brenmoor::NameSeq* names() override;

private:
    const SimEngine& m_engine;
};

#endif // SIMDIRECTORYSERVANT_H
