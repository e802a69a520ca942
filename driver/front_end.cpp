// SPDX-License-Identifier: LicenseRef-Proprietary
// The state of one radio front end, and what sets it up and resets it.
#include "front_end.h"

#include "link.h"
#include "synthesiser.h"

#include <algorithm>

namespace sorel
{

namespace
{

int pathCountOf(RadioConf configuration)
{
    return configuration == RADIO_CONF_MIMO ? 2 : 1;
}

// In the order of the statuses: RADIO_EERROR before RADIO_ENOTSUP.
Outcome checkSetup(const FrontEnd &frontEnd, const Platform &platform, int paths, const Mode &mode,
                   RadioBand band)
{
    // The link belongs to the hardware: another platform starts without one.
    if (&platform == frontEnd.platform && !linkCarries(frontEnd.cpriRate, mode, paths))
        return refused(RADIO_EERROR, "the CPRI line rate is too low for that mode and antennas");
    if (paths > platform.antennas)
        return refused(RADIO_ENOTSUP, "the platform lacks the second antennas");
    if (!hasMode(platform, mode.mode))
        return refused(RADIO_ENOTSUP, "the platform lacks that mode");
    if (!hasBand(platform, band))
        return refused(RADIO_ENOTSUP, "the platform lacks that band");
    if (!isBandOf(mode.airInterface, band))
        return refused(RADIO_ENOTSUP, "the band is not one of that mode's");
    return done();
}

bool isInside(const FrequencyRange &inner, const FrequencyRange &outer)
{
    return inner.low >= outer.low && inner.high <= outer.high;
}

struct BandRanges {
    FrequencyRange tx;
    FrequencyRange rx;
};

BandRanges rangesOf(const Mode &mode, RadioBand band)
{
    const FrequencyRange downlink = bandRange(mode.airInterface, band, Direction::Downlink);
    const FrequencyRange uplink = bandRange(mode.airInterface, band, Direction::Uplink);
    return mode.role == Role::BaseStation ? BandRanges{downlink, uplink}
                                          : BandRanges{uplink, downlink};
}

void startPath(const Platform &platform, Setup &setup, int path)
{
    setup.transmitters[path] = {RADIO_STATE_DISABLE, platform.highestPower, 0, 0};
    setup.receivers[path] = {RADIO_STATE_ENABLE,
                             RADIO_RX_GAIN_MGC,
                             platform.highestGain,
                             platform.highestGain - platform.lowestGain,
                             true,
                             false};
}

void startSetup(FrontEnd &frontEnd, RadioConf configuration, const Mode &mode, RadioBand band,
                const BandRanges &ranges)
{
    Setup &setup = frontEnd.setup;
    setup = {};
    setup.mode = &mode;
    setup.configuration = configuration;
    setup.band = band;
    setup.txRange = ranges.tx;
    setup.rxRange = ranges.rx;
    setup.loopback = RADIO_NO_LOOPBACK;
    for (int path = 0; path < pathCountOf(configuration); ++path)
        startPath(*frontEnd.platform, setup, path);
    program(frontEnd, setup.txSynthesiser, centreOf(ranges.tx));
    program(frontEnd, setup.rxSynthesiser, centreOf(ranges.rx));
    frontEnd.arrivals = {};
}

// Everything starts afresh but for what passes on outside of the hardware: time, temperature and
// chance.
void replaceHardware(FrontEnd &frontEnd, const Platform &platform)
{
    const FrontEnd before = frontEnd;
    frontEnd = switchedOn(platform, *before.scenario);
    frontEnd.conditions = before.conditions;
    frontEnd.now = before.now;
    frontEnd.opened = before.opened;
    frontEnd.random = before.random;
    frontEnd.thermal = before.thermal;
}

} // namespace

FrontEnd switchedOn(const Platform &platform, const Scenario &scenario)
{
    FrontEnd frontEnd = {};
    frontEnd.platform = &platform;
    frontEnd.scenario = &scenario;
    frontEnd.random = {scenario.seed};
    frontEnd.selected = RADIO_SELECT_ALL;
    frontEnd.oscillatorDac = static_cast<uint16_t>(1U << (platform.dacWidth - 1));
    frontEnd.thermal.nanodegrees = settledNanodegrees(frontEnd);
    return frontEnd;
}

int pathCount(const FrontEnd &frontEnd)
{
    return frontEnd.setup.mode ? pathCountOf(frontEnd.setup.configuration) : 0;
}

Paths selectedPaths(const FrontEnd &frontEnd)
{
    const int count = pathCount(frontEnd);
    if (frontEnd.selected == RADIO_SELECT_ALL)
        return {0, count};
    const int path = frontEnd.selected;
    return {path, std::max(path, std::min(path + 1, count))};
}

Outcome requireSetup(const FrontEnd &frontEnd)
{
    return frontEnd.setup.mode ? done() : refused(RADIO_EERROR, "radioInit() has not been called");
}

Outcome requirePath(const FrontEnd &frontEnd, int path)
{
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    return path < pathCount(frontEnd)
               ? done()
               : refused(RADIO_ENOTSUP, "the antenna configuration lacks that antenna");
}

Outcome requireSelected(const FrontEnd &frontEnd)
{
    return requirePath(frontEnd, frontEnd.selected == RADIO_SELECT_1 ? 1 : 0);
}

Outcome setUp(FrontEnd &frontEnd, const Platform &platform, RadioConf configuration, RadioMode mode,
              RadioBand band)
{
    const int paths = pathCountOf(configuration);
    const Outcome outcome = checkSetup(frontEnd, platform, paths, modeOf(mode), band);
    if (isRefused(outcome))
        return outcome;
    const BandRanges ranges = rangesOf(modeOf(mode), band);
    if (!isInside(ranges.tx, platform.tuning) || !isInside(ranges.rx, platform.tuning))
        return refused(RADIO_ENOTSUP, "the band is beyond the platform's tuning range");

    const bool isOther = &platform != frontEnd.platform;
    const bool dropsLink = isOther && frontEnd.cpriRate != 0;
    if (isOther) {
        const RadioSelectIndex selected = frontEnd.selected;
        replaceHardware(frontEnd, platform);
        frontEnd.selected = selected;
    }
    startSetup(frontEnd, configuration, modeOf(mode), band, ranges);
    if (dropsLink)
        return warned("the CPRI link of the former platform is down");
    if (isRefused(requireSelected(frontEnd)))
        return warned("the selected path does not exist in this antenna configuration");
    return done();
}

Outcome reset(FrontEnd &frontEnd)
{
    const auto corrections = frontEnd.corrections;
    replaceHardware(frontEnd, *frontEnd.platform);
    frontEnd.corrections = corrections;
    return done();
}

Outcome selectPaths(FrontEnd &frontEnd, RadioSelectIndex paths)
{
    const int antennas = frontEnd.setup.mode ? pathCount(frontEnd) : frontEnd.platform->antennas;
    if (paths == RADIO_SELECT_1 && antennas < 2)
        return refused(RADIO_ENOTSUP, "there is no second path");
    frontEnd.selected = paths;
    return done();
}

} // namespace sorel
