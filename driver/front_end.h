// SPDX-License-Identifier: LicenseRef-Proprietary
// The state of one radio front end, and what sets it up and resets it.
#ifndef SOREL_DRIVER_FRONT_END_H
#define SOREL_DRIVER_FRONT_END_H

#include "conditions.h"
#include "outcome.h"
#include "random.h"
#include "scenario.h"
#include "thermal.h"

#include <array>

namespace sorel
{

constexpr uint32_t tableCapacity = 256; // words of a gain or power table

struct Transmitter {
    RadioState state;
    int16_t maxPower; // in 0.1 dBm
    int16_t inPhaseOffset;
    int16_t quadratureOffset;
};

struct Receiver {
    RadioState state;
    RadioRxGainMode gainMode;
    int16_t manualGain; // in dB, as last set by hand
    int32_t step;       // of the gain table: the present gain
    bool isSettled;     // whether the gain control leaves the gain alone
    bool isOverloaded;  // whether the converter is
};

struct RegisterTable {
    uint32_t words[tableCapacity];
    uint32_t count;
};

// One serves each direction; in time division both have the same frequency.
struct Synthesiser {
    uint32_t frequency;   // in Hz, at the reference's nominal frequency; 0 before radioInit()
    uint32_t integerWord; // as last written or tuned to
    int64_t locksAt;      // simulated time
};

// What radioInit() sets, all of it.
struct Setup {
    const Mode *mode; // null before radioInit()
    RadioConf configuration;
    RadioBand band;
    FrequencyRange txRange; // of the band, in Hz
    FrequencyRange rxRange;
    Synthesiser txSynthesiser;
    Synthesiser rxSynthesiser;
    RadioLoopback loopback;
    Transmitter transmitters[2]; // by path
    Receiver receivers[2];
    RegisterTable gainTable;
    RegisterTable powerTable;
};

// Of one band, by path; in dB.
struct Correction {
    double rxGain[2];  // of the receiver above what its gain step says
    double txPower[2]; // of the transmitter above what it is set to
};

// The scenario's signals as they arrive at present.
struct Arrivals {
    bool isKnown;       // whether the rest is filled in
    uint32_t frequency; // that the receivers are tuned to, in Hz
    int64_t until;      // simulated time to which that holds
    double power[2];    // in the channel, by path, in mW
};

// Powers that follow from the rest of the state, by path, in mW.
struct Levels {
    bool isKnown;       // whether the rest is filled in
    double output[2];   // of the transmitter
    double received[2]; // by the receiver, its own noise included, at its antenna connector
    double gain[2];     // of the receiver, a ratio
};

struct FrontEnd {
    const Platform *platform;
    const Scenario *scenario; // of the board; outlives it
    Conditions conditions;
    int64_t now;    // simulated time since radioOpen(), in nanoseconds
    int64_t opened; // real time at that, where simulated time follows it
    Random random;
    Setup setup;
    RadioSelectIndex selected;
    RadioCpriRate cpriRate; // 0 while the link is down
    uint16_t oscillatorDac;
    uint32_t scratch;
    uint32_t events; // bits of events.h that have not been cleared
    Thermal thermal;
    std::array<Correction, RADIO_BAND_GSM_1900 + 1> corrections; // by the value of the band
    Arrivals arrivals;
    Levels levels;
};

// Paths from first to before end; none where both are equal.
struct Paths {
    int first;
    int end;
};

// A front end of that platform, in that scenario, that has just been switched on.
FrontEnd switchedOn(const Platform &platform, const Scenario &scenario);

// Number of paths in the present configuration; 0 before radioInit().
int pathCount(const FrontEnd &frontEnd);

// Those of the selected paths that the present configuration has.
Paths selectedPaths(const FrontEnd &frontEnd);

// RADIO_EERROR before radioInit().
Outcome requireSetup(const FrontEnd &frontEnd);

// As requireSetup(), and RADIO_ENOTSUP where the configuration has no such path, or none of the
// selected ones.
Outcome requirePath(const FrontEnd &frontEnd, int path);
Outcome requireSelected(const FrontEnd &frontEnd);

// Calls apply with each selected path, or refuses as requireSelected().
template <class Apply>
Outcome forSelectedPaths(const FrontEnd &frontEnd, Apply apply)
{
    if (const Outcome outcome = requireSelected(frontEnd); isRefused(outcome))
        return outcome;
    const Paths paths = selectedPaths(frontEnd);
    for (int path = paths.first; path < paths.end; ++path)
        apply(path);
    return done();
}

// The bodies of the functions of similar names; the arguments are members of their enumerations.
Outcome setUp(FrontEnd &frontEnd, const Platform &platform, RadioConf configuration, RadioMode mode,
              RadioBand band);
Outcome reset(FrontEnd &frontEnd);
Outcome selectPaths(FrontEnd &frontEnd, RadioSelectIndex paths);

} // namespace sorel

#endif
