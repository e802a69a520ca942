// SPDX-License-Identifier: LicenseRef-Proprietary
// What the scenario's faults do to the front end at present, beyond answering for a function.
#ifndef SOREL_DRIVER_CONDITIONS_H
#define SOREL_DRIVER_CONDITIONS_H

#include <cstdint>

namespace sorel
{

// Registers that may be stuck at the same time.
constexpr int mostStuckRegisters = 8;

// A register that reads value, and that writing, and what mirrors it, does not change.
struct StuckRegister {
    uint32_t address;
    uint32_t value;

    bool operator==(const StuckRegister &) const = default;
};

struct Conditions {
    bool areAny = false;       // whether any of the following is there
    bool txNeverLocks = false; // the transmit synthesiser
    bool rxNeverLocks = false;
    bool forcesTemperature = false;
    int64_t nanodegrees = 0; // that temperature, in 1e-9 degrees Celsius
    int stuckCount = 0;
    StuckRegister stuck[mostStuckRegisters] = {};

    bool operator==(const Conditions &) const = default;
};

// Null where that register is not stuck.
inline const StuckRegister *stuckAt(const Conditions &conditions, uint32_t address)
{
    for (int i = 0; i < conditions.stuckCount; ++i)
        if (conditions.stuck[i].address == address)
            return &conditions.stuck[i];
    return nullptr;
}

} // namespace sorel

#endif
