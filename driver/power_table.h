// SPDX-License-Identifier: LicenseRef-Proprietary
// The output powers of the transmitters: any, or those that radioSetTxPowerRegisters() has loaded.
#ifndef SOREL_DRIVER_POWER_TABLE_H
#define SOREL_DRIVER_POWER_TABLE_H

#include "front_end.h"

namespace sorel
{

// What one transmitter gives when it is on, in dBm: the highest power of the table that its limit
// allows, or the limit itself where no table is loaded; less its calibration's correction.
double outputLimit(const FrontEnd &frontEnd, int path);

// Whether the table has a power that is not above that one, in 0.1 dBm; true without a table.
bool allowsPower(const FrontEnd &frontEnd, int16_t power);

// The body of radioSetTxPowerRegisters(). Powers in 0.1 dBm, as two's complement. A table of which
// a transmitter's limit allows nothing is RADIO_EINVAL: no output ever exceeds its limit.
Outcome loadPowerTable(FrontEnd &frontEnd, const uint32_t *words, uint32_t count);

} // namespace sorel

#endif
