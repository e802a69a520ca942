// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tests/binding/radio/register_tables/captured_words.h"

std::vector<RegisterCall> registerCalls;
RadioReturn registerStatus = RADIO_ESUCCESS;

// Defined in the executable, these come before those of the driver that it is linked with.
RadioReturn radioSetRxGainRegisters(RadioContext *context, const std::uint32_t *registers,
                                    std::uint32_t count)
{
    registerCalls.push_back({"radioSetRxGainRegisters", context, {registers, registers + count}});
    return registerStatus;
}

RadioReturn radioSetTxPowerRegisters(RadioContext *context, const std::uint32_t *registers,
                                     std::uint32_t count)
{
    registerCalls.push_back({"radioSetTxPowerRegisters", context, {registers, registers + count}});
    return registerStatus;
}
