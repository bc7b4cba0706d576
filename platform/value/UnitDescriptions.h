#ifndef UNITDESCRIPTIONS_H
#define UNITDESCRIPTIONS_H

//! Descriptions of the common units (grammar in Units.h), for widgets, screens and tests.
namespace Kelvane::Value::UnitDescriptions {

inline constexpr char Unitless[] = "0,0,0:1;;;;";
inline constexpr char Percent[] = "0,-2,0:1;;;;";
inline constexpr char dB[] = "10,0,0:1;;;;";

inline constexpr char Hz[] = "0,0,0:Hz;;;;";
inline constexpr char kHz[] = "0,3,0:Hz;;;;";
inline constexpr char MHz[] = "0,6,0:Hz;;;;";
inline constexpr char GHz[] = "0,9,0:Hz;;;;";

inline constexpr char s[] = "0,0,0:s;;;;";
inline constexpr char ms[] = "0,-3,0:s;;;;";
inline constexpr char us[] = "0,-6,0:s;;;;";

inline constexpr char V[] = "0,0,0:V;;;;";
inline constexpr char mV[] = "0,-3,0:V;;;;";
inline constexpr char dBV[] = "20,0,0:V;;;;";
inline constexpr char dBuV[] = "20,0,-6:V;;;;";

inline constexpr char A[] = "0,0,0:A;;;;";
inline constexpr char m[] = "0,0,0:m;;;;";
inline constexpr char bitPerSecond[] = "0,0,0:bit/s;;;;";

inline constexpr char W[] = "0,0,0:W;;;;";
inline constexpr char mW[] = "0,-3,0:W;;;;";
inline constexpr char uW[] = "0,-6,0:W;;;;";
inline constexpr char dBm[] = "10,0,-3:W;;;;";
inline constexpr char dBW[] = "10,0,0:W;;;;";

inline constexpr const char* All[] = {Unitless, Percent, dB, Hz, kHz, MHz, GHz, s, ms, us, V, mV, dBV, dBuV,
                                      A, m, bitPerSecond, W, mW, uW, dBm, dBW};

} // namespace Kelvane::Value::UnitDescriptions

#endif // UNITDESCRIPTIONS_H
