// SPDX-License-Identifier: LicenseRef-Proprietary
// The faults of the process's scenario: counts calls, and says what befalls each of them.
#include "faults.h"

#include "random.h"
#include "registers.h"
#include "synthesiser.h"

#include <string_view>
#include <utility>

namespace sorel
{

bool anyFaults = false;

namespace
{

// What has become of one fault.
struct Course {
    uint64_t calls = 0;    // of its function
    bool isActive = false; // since the last of them
    bool isHeld = false;   // whether value is what its register is stuck at
    uint32_t value = 0;
};

std::shared_ptr<const Scenario> scenario;
std::vector<Course> courses; // by the index of the fault
bool isAnyActive = false;    // of the courses
uint64_t faultyNames = 0;    // bits of the names of the functions that have faults

// A bit that tells most names of functions apart: most calls are of one without a fault.
uint64_t bitOf(std::string_view name)
{
    return uint64_t{1} << (name.size() * 7 + static_cast<unsigned char>(name.back())) % 64;
}

// The same for the same seed, whatever else is called and whichever faults there are besides.
bool isDrawn(const Fault &fault, uint64_t index, uint64_t call)
{
    Random faultRandom = {mixed(scenario->seed) + index};
    Random callRandom = {next(faultRandom) + call};
    return next(callRandom) >> 32 < fault.likelihood;
}

bool isActiveAt(const Fault &fault, uint64_t index, uint64_t call)
{
    const bool lasts =
        call >= fault.first && (fault.calls == 0 || call - fault.first < fault.calls);
    return lasts && isDrawn(fault, index, call);
}

bool isAnswer(Effect effect)
{
    return effect == Effect::Status || effect == Effect::Null || effect == Effect::NotANumber ||
           effect == Effect::Number;
}

// What the register is stuck at: where the fault says nothing, what it read when that began.
uint32_t stuckValue(const Fault &fault, Course &course, FrontEnd &frontEnd)
{
    if (fault.hasValue)
        return fault.value;
    if (!course.isHeld)
        readRegister(frontEnd, fault.address, course.value);
    course.isHeld = true;
    return course.value;
}

void addTo(Conditions &conditions, const Fault &fault, Course &course, FrontEnd &frontEnd)
{
    conditions.areAny = true;
    if (fault.effect == Effect::StuckRegister)
        conditions.stuck[conditions.stuckCount++] = {fault.address,
                                                     stuckValue(fault, course, frontEnd)};
    if (fault.effect == Effect::Synthesiser) {
        conditions.txNeverLocks |= fault.transmit;
        conditions.rxNeverLocks |= fault.receive;
    }
    if (fault.effect == Effect::Temperature) {
        conditions.forcesTemperature = true;
        conditions.nanodegrees = fault.nanodegrees;
    }
}

void updateConditions(FrontEnd &frontEnd)
{
    Conditions conditions;
    for (std::size_t i = 0; i < courses.size(); ++i)
        if (courses[i].isActive && !isAnswer(scenario->faults[i].effect))
            addTo(conditions, scenario->faults[i], courses[i], frontEnd);
    impose(frontEnd, conditions);
}

} // namespace

void startFaults(std::shared_ptr<const Scenario> next)
{
    faultyNames = 0;
    isAnyActive = false;
    if (next)
        for (const Fault &fault : next->faults)
            faultyNames |= fault.function.empty() ? ~uint64_t{0} : bitOf(fault.function);
    courses.assign(next ? next->faults.size() : 0, {});
    scenario = std::move(next);
    anyFaults = anyFaults || !courses.empty();
}

const Fault *countCall(const char *function, FrontEnd *frontEnd)
{
    const std::string_view called = function;
    const bool isConcerned = (faultyNames & bitOf(called)) != 0 || isAnyActive;
    if (!isConcerned && !(frontEnd && frontEnd->conditions.areAny))
        return nullptr;
    const Fault *answering = nullptr;
    isAnyActive = false;
    for (std::size_t i = 0; i < courses.size(); ++i) {
        const Fault &fault = scenario->faults[i];
        Course &course = courses[i];
        if (fault.function.empty() ? frontEnd != nullptr : fault.function == called) {
            course.isActive = isActiveAt(fault, i, ++course.calls);
            course.isHeld = course.isHeld && course.isActive;
            if (course.isActive && isAnswer(fault.effect) && !answering)
                answering = &fault;
        }
        isAnyActive |= course.isActive;
    }
    if (frontEnd && (isAnyActive || frontEnd->conditions.areAny))
        updateConditions(*frontEnd);
    return answering;
}

void holdStuckRegisters(FrontEnd &frontEnd)
{
    const Conditions conditions = frontEnd.conditions;
    frontEnd.conditions.stuckCount = 0; // what is put back is the state behind the registers
    for (int i = 0; i < conditions.stuckCount; ++i) {
        const StuckRegister &stuck = conditions.stuck[i];
        if (whyNotWritable(*frontEnd.platform, stuck.address))
            continue; // no state to put back, and reading it can be a measurement
        uint32_t value = stuck.value;
        readRegister(frontEnd, stuck.address, value);
        if (value != stuck.value)
            writeRegister(frontEnd, stuck.address, stuck.value);
    }
    frontEnd.conditions = conditions;
}

} // namespace sorel
