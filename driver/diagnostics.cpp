// SPDX-License-Identifier: LicenseRef-Proprietary
// What the board says of itself where environment variables ask for it.
#include "diagnostics.h"

#include "debug_log.h"
#include "front_end.h"

namespace sorel
{

bool hasNoTrace = false;

namespace
{

constexpr const char *traceVariable = "SOREL_SIM_TRACE";

Trace trace;

// Both files are emptied before either is written to: they may be the same.
void start()
{
    startDebugLog();
    if (const char *const path = setting(traceVariable)) {
        trace.start(traceVariable, path, tableCapacity);
        trace.setTime(0);
    }
}

} // namespace

Trace *startedTrace()
{
    static bool hasStarted = false;
    if (!hasStarted)
        start();
    hasStarted = true;
    hasNoTrace = !trace.isOn();
    return hasNoTrace ? nullptr : &trace;
}

} // namespace sorel
