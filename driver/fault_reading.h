// SPDX-License-Identifier: LicenseRef-Proprietary
// Reading a fault of a scenario file. Included in source files only: toml++ is large.
#ifndef SOREL_DRIVER_FAULT_READING_H
#define SOREL_DRIVER_FAULT_READING_H

#include "toml_keys.h"

namespace sorel
{

// One table of [[faults]]. With a mistake noted, the fault is of no use.
Fault readFault(Reading &reading, const toml::table &table);

} // namespace sorel

#endif
