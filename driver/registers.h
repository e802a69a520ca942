// SPDX-License-Identifier: LicenseRef-Proprietary
// The SPI register file. A register that mirrors state is that state: reading it answers from the
// front end, writing it does what the function for it does. README.md has the map.
#ifndef SOREL_DRIVER_REGISTERS_H
#define SOREL_DRIVER_REGISTERS_H

#include "front_end.h"

namespace sorel
{

// RADIO_EINVAL where the platform has no register. Reading RTWP is a measurement.
Outcome readRegister(FrontEnd &frontEnd, uint32_t address, uint32_t &value);

// RADIO_EINVAL where there is no register, RADIO_ENOTSUP where it is read-only, and otherwise what
// the function for the same state answers.
Outcome writeRegister(FrontEnd &frontEnd, uint32_t address, uint32_t value);

// Why that platform has no register there that can be written; null where it has one.
const char *whyNotWritable(const Platform &platform, uint32_t address);

} // namespace sorel

#endif
