#ifndef BENCHUSAGE_H
#define BENCHUSAGE_H

//! CPU seconds, user and system, the calling thread has used.
double benchThreadCpuSeconds();
//! CPU seconds, user and system, every thread of the process has used.
double benchProcessCpuSeconds();
//! The process's resident memory (VmRSS) in KiB; 0 if it cannot be read.
long benchResidentKiB();

#endif // BENCHUSAGE_H
