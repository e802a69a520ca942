// SPDX-License-Identifier: LicenseRef-Proprietary
// What surrounds a board and what befalls it: the content of a scenario file. README.md has the
// file's form.
#ifndef SOREL_DRIVER_SCENARIO_H
#define SOREL_DRIVER_SCENARIO_H

#include "platforms.h"

#include <string>
#include <vector>

namespace sorel
{

// Simulated time is counted in nanoseconds from radioOpen().
constexpr int64_t forever = INT64_MAX;

// Likelihoods are counted in 2^-32.
constexpr uint64_t certain = uint64_t{1} << 32;

// How simulated time passes: by a fixed amount for each call, or as real time does.
enum class Clock { Calls, Wall };

// A signal at the antenna connectors, of that power at each of its antennas.
struct Signal {
    uint32_t frequency; // of its centre, in Hz
    uint32_t bandwidth; // in Hz, its power spread evenly over it; 0: a bare carrier
    double power;       // in mW
    int antennas;       // bit n: the receive antenna of value n
    int64_t start;      // the first instant at which it is there
    int64_t end;        // the first at which it no longer is
};

struct RegisterValue {
    uint32_t address;
    uint32_t value;
};

enum class Effect {
    Status,        // the function answers status, and does nothing
    Null,          // the function answers a null pointer, and does nothing
    NotANumber,    // the reading is not a number
    Number,        // the reading is number
    StuckRegister, // the register at address is stuck
    Synthesiser,   // the synthesisers of ends do not lock
    Temperature,   // the temperature is nanodegrees
};

struct Fault {
    std::string function;          // empty: each function with a context
    uint64_t first = 1;            // the call of that function with which it begins, counted from 1
    uint64_t calls = 0;            // of that function for which it lasts; 0: for good
    uint64_t likelihood = certain; // of each of these calls, drawn under the seed

    Effect effect = Effect::Status;
    RadioReturn status = RADIO_EIO;
    int64_t number = 0;
    uint32_t address = 0;
    bool hasValue = false; // otherwise stuck at what it reads when the fault begins
    uint32_t value = 0;
    bool transmit = false; // of the synthesisers
    bool receive = false;
    int64_t nanodegrees = 0;

    unsigned line = 0; // of the file
};

struct Scenario {
    const Platform *platform = nullptr; // of the board that is there; null: of any
    uint32_t serial = 1;
    int64_t ambientNanodegrees = 25'000'000'000; // air around the board, 1e-9 degrees Celsius
    uint64_t seed = 1;                           // of the noise and of the faults
    Clock clock = Clock::Calls;
    int64_t lockTime = 0; // of the synthesisers; 0: the platform's
    std::vector<Signal> signals;
    std::vector<RegisterValue> registers; // set when the board is switched on
    std::vector<Fault> faults;
};

} // namespace sorel

#endif
