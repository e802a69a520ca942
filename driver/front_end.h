// SPDX-License-Identifier: LicenseRef-Proprietary
// The state of one radio front end, and what sets it up and resets it.
#ifndef SOREL_DRIVER_FRONT_END_H
#define SOREL_DRIVER_FRONT_END_H

#include "conditions.h"
#include "outcome.h"
#include "scenario.h"
#include "thermal.h"

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
    int16_t manualGain; // in dB, in force in RADIO_RX_GAIN_MGC
    int16_t heldGain;   // in dB, in force in RADIO_RX_GAIN_AGC_SLOW_HYBRID
};

struct RegisterTable {
    uint32_t words[tableCapacity];
    uint32_t count;
};

// What radioInit() sets, all of it.
struct Setup {
    const Mode *mode; // null before radioInit()
    RadioConf configuration;
    RadioBand band;
    FrequencyRange txRange; // of the band, in Hz
    FrequencyRange rxRange;
    uint32_t txFrequency; // in Hz; 0 before radioInit()
    uint32_t rxFrequency;
    RadioLoopback loopback;
    Transmitter transmitters[2]; // by path
    Receiver receivers[2];
    RegisterTable gainTable;
    RegisterTable powerTable;
};

struct FrontEnd {
    const Platform *platform;
    const Scenario *scenario; // of the board; outlives it
    Conditions conditions;
    Setup setup;
    RadioSelectIndex selected;
    RadioCpriRate cpriRate; // 0 while the link is down
    uint16_t oscillatorDac;
    uint32_t scratch;
    Thermal thermal;
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
