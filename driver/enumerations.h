// SPDX-License-Identifier: LicenseRef-Proprietary
// Which values are members of the interface's enumerations. The COUNT, INVALID and NULL members
// mean "none" and are not counted as members here.
#ifndef SOREL_DRIVER_ENUMERATIONS_H
#define SOREL_DRIVER_ENUMERATIONS_H

#include "sorel.h"

namespace sorel
{

constexpr bool isMember(RadioDebug value)
{
    return value >= RADIO_DEBUG_NONE && value <= RADIO_DEBUG_TRACE;
}

constexpr bool isMember(RadioConf value)
{
    return value >= RADIO_CONF_SISO && value < RADIO_CONF_COUNT;
}

constexpr bool isMember(RadioMode value)
{
    return value >= RADIO_MODE_3GNODEB && value < RADIO_MODE_COUNT;
}

constexpr bool isMember(RadioBand value)
{
    return (value >= RADIO_BAND_1 && value <= RADIO_BAND_25) ||
           (value >= RADIO_BAND_33 && value <= RADIO_BAND_GSM_1900) ||
           (value >= RADIO_BAND_252 && value < RADIO_BAND_COUNT);
}

constexpr bool isMember(RadioState value)
{
    return value == RADIO_STATE_DISABLE || value == RADIO_STATE_ENABLE;
}

constexpr bool isMember(RadioRxGainMode value)
{
    return value >= RADIO_RX_GAIN_MGC && value <= RADIO_RX_GAIN_AGC_SLOW_HYBRID;
}

constexpr bool isMember(RadioTxAntenna value)
{
    return value == RADIO_TX_ANTENNA_1 || value == RADIO_TX_ANTENNA_2;
}

constexpr bool isMember(RadioRxAntenna value)
{
    return value == RADIO_RX_ANTENNA_1 || value == RADIO_RX_ANTENNA_2;
}

constexpr bool isMember(RadioSelectIndex value)
{
    return value >= RADIO_SELECT_0 && value <= RADIO_SELECT_ALL;
}

constexpr bool isMember(RadioPlatformSelectIndex value)
{
    return value >= RADIO_PLATFORM_DEFAULT && value < RADIO_PLATFORM_COUNT;
}

constexpr bool isMember(RadioLoopback value)
{
    return value >= RADIO_NO_LOOPBACK && value <= RADIO_RX_TO_TX_LOOPBACK;
}

constexpr bool isMember(RadioCpriRate value)
{
    return value == RADIO_CPRI_RATE_1 || value == RADIO_CPRI_RATE_2 || value == RADIO_CPRI_RATE_4 ||
           value == RADIO_CPRI_RATE_5 || value == RADIO_CPRI_RATE_8 || value == RADIO_CPRI_RATE_10;
}

} // namespace sorel

#endif
