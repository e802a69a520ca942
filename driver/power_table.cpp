// SPDX-License-Identifier: LicenseRef-Proprietary
// The output powers of the transmitters: any, or those that radioSetTxPowerRegisters() has loaded.
#include "power_table.h"

#include "register_table.h"

namespace sorel
{

double outputLimit(const FrontEnd &frontEnd, int path)
{
    const Setup &setup = frontEnd.setup;
    const RegisterTable &table = setup.powerTable;
    int32_t power = setup.transmitters[path].maxPower;
    if (table.count != 0)
        power = static_cast<int32_t>(table.words[lastNotAbove(table, power)]);
    return power / 10.0 - frontEnd.corrections[static_cast<std::size_t>(setup.band)].txPower[path];
}

bool allowsPower(const FrontEnd &frontEnd, int16_t power)
{
    const RegisterTable &table = frontEnd.setup.powerTable;
    return table.count == 0 || lastNotAbove(table, power) >= 0;
}

Outcome loadPowerTable(FrontEnd &frontEnd, const uint32_t *words, uint32_t count)
{
    const Platform &platform = *frontEnd.platform;
    if (const Outcome outcome =
            checkTable(words, count, platform.lowestPower, platform.highestPower);
        isRefused(outcome))
        return outcome;
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    for (int path = 0; path < pathCount(frontEnd); ++path)
        if (count != 0 &&
            static_cast<int32_t>(words[0]) > frontEnd.setup.transmitters[path].maxPower)
            return refused(RADIO_EINVAL, "the lowest power is above a transmitter's limit");
    storeTable(frontEnd.setup.powerTable, words, count);
    return done();
}

} // namespace sorel
