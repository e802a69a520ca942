// SPDX-License-Identifier: LicenseRef-Proprietary
// The driver that calls are handed on to, loaded from a file.
#ifndef SOREL_FORWARDING_DRIVER_LIBRARY_H
#define SOREL_FORWARDING_DRIVER_LIBRARY_H

#include <span>

namespace sorel
{

// A function of the interface, ours and the driver's.
struct Forwarded {
    const char *name;
    void *own;
    void *target; // null while there is no driver
};

// Loads the driver that the environment names, and sets all targets. Where that fails it says why,
// and all targets stay null.
void loadDriver(std::span<Forwarded> functions);

} // namespace sorel

#endif
