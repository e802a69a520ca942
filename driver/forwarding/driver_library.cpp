// SPDX-License-Identifier: LicenseRef-Proprietary
// The driver that calls are handed on to, loaded from a file.
#include "driver_library.h"

#include "trace/destination.h"

#include <dlfcn.h>

namespace sorel
{

namespace
{

constexpr const char *driverVariable = "SOREL_TRACE_DRIVER";

bool findFunctions(void *library, const char *path, std::span<Forwarded> functions)
{
    for (Forwarded &function : functions) {
        function.target = dlsym(library, function.name);
        if (!function.target) {
            complain(driverVariable, {"'", path, "' lacks ", function.name, "()"});
            return false;
        }
        if (function.target == function.own) {
            complain(driverVariable, {"'", path, "' is the tracing library itself, not a driver"});
            return false;
        }
    }
    return true;
}

bool findDriver(std::span<Forwarded> functions)
{
    const char *const path = setting(driverVariable);
    if (!path) {
        complain(driverVariable, {"not set; it has to name the driver's file"});
        return false;
    }
    // Its functions have the names of ours. RTLD_LOCAL leaves the callers' calls to us, and
    // RTLD_DEEPBIND lets those among the driver's own functions reach each other directly.
    void *const library = dlopen(path, RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
    if (!library) {
        complain(driverVariable, {"cannot load the driver: ", dlerror()});
        return false;
    }
    return findFunctions(library, path, functions);
}

} // namespace

void loadDriver(std::span<Forwarded> functions)
{
    if (!findDriver(functions))
        for (Forwarded &function : functions)
            function.target = nullptr;
}

} // namespace sorel
