#ifndef SIMFAILURE_H
#define SIMFAILURE_H

/*!
  What a set() made to fail answers instead of doing its work: one of the
  engine's own exceptions, or a CORBA system exception as a broken engine or
  ORB would raise it.
*/
struct SimFailure
{
    enum class Kind { DataOutOfRange, Locked, Unknown, BadParam, Transient, CommFailure };
    Kind kind = Kind::Unknown;
    //! Carried by DataOutOfRange.
    double actual = 0.0;
    double lower = 0.0;
    double upper = 0.0;
};

#endif // SIMFAILURE_H
