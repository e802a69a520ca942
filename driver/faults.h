// SPDX-License-Identifier: LicenseRef-Proprietary
// The faults of the process's scenario: counts calls, and says what befalls each of them.
#ifndef SOREL_DRIVER_FAULTS_H
#define SOREL_DRIVER_FAULTS_H

#include "front_end.h"

#include <memory>
#include <tuple>
#include <type_traits>

namespace sorel
{

// Whether this process has ever loaded a scenario with faults: until then there is nothing to
// count.
extern bool anyFaults;

// The faults of that scenario are those of the process from now on, none for null. Counting starts.
void startFaults(std::shared_ptr<const Scenario> next);

// The parts of befall() and endure() for a process with faults.
const Fault *countCall(const char *function, FrontEnd *frontEnd);
void holdStuckRegisters(FrontEnd &frontEnd);

// To be called once for each call of a function, before its body: brings the front end's conditions
// up to date, and returns the fault that answers in place of the body, null where none does. Null
// for a front end: a function without a context.
inline const Fault *befall(const char *function, FrontEnd *frontEnd = nullptr)
{
    return anyFaults ? countCall(function, frontEnd) : nullptr;
}

// To be called after the body: what is stuck has not changed.
inline void endure(FrontEnd &frontEnd)
{
    if (frontEnd.conditions.stuckCount != 0)
        holdStuckRegisters(frontEnd);
}

// The answer of such a fault. A reading's value is the last of the arguments.
template <class... Arguments>
Outcome injected(const Fault &fault, Arguments &...arguments)
{
    if constexpr (sizeof...(arguments) > 0) {
        auto &last = std::get<sizeof...(arguments) - 1>(std::tie(arguments...));
        using Last = std::remove_reference_t<decltype(last)>;
        if constexpr (std::is_integral_v<Last>)
            if (fault.effect == Effect::Number)
                last = static_cast<Last>(fault.number);
    }
    return refused(fault.status, "injected by the scenario", fault.line);
}

} // namespace sorel

#endif
