// SPDX-License-Identifier: LicenseRef-Proprietary
// What the board says of itself where environment variables ask for it: the trace, and the debug
// log. Both begin at the first call of the process.
#ifndef SOREL_DRIVER_DIAGNOSTICS_H
#define SOREL_DRIVER_DIAGNOSTICS_H

#include "trace/trace.h"

namespace sorel
{

// Whether it is known that there is no trace, as is most often the case.
extern bool hasNoTrace;

// Begins what has not begun yet; see currentTrace().
Trace *startedTrace();

// The trace of this process; null where there is none. Every function of the interface asks for it
// before anything else.
inline Trace *currentTrace()
{
    return hasNoTrace ? nullptr : startedTrace();
}

} // namespace sorel

#endif
