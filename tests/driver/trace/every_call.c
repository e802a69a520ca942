/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* Calls each function of the interface, some in ways that scripts cannot. Its trace is looked at.
 */
#include "sorel.h"

#include <stdlib.h>

/* Contexts that the simulated board can have open. */
enum { OPEN_LIMIT = 16 };

static uint32_t words[300] = {4294967251u};

static void callEach(RadioContext *c, const char *calibration, const char *script)
{
    int32_t integer = 0;
    const char *text = NULL;
    radioSelect(c, RADIO_SELECT_ALL);
    radioCpriInit(c, RADIO_CPRI_RATE_5);
    radioInit(c, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7);
    radioInitByScript(c, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, script);
    radioLoadCalibrationFile(c, calibration);
    radioGetIntegerFromCalibration(c, "serial", &integer);
    radioGetIntegerFromCalibration(c, "none", &integer);
    radioGetIntegerFromCalibration(c, NULL, NULL);
    radioGetStringFromCalibration(c, "site", &text);
    radioGetPlatformChipCount(c);
    radioGetPlatformName(c);
    radioVersion(c);
    radioGetDriverNames(c);
    radioSetTxFrequency(c, 2655000000u);
    radioSetTxChannel(c, 3100);
    radioSetTxState(c, RADIO_STATE_ENABLE);
    radioSetTxStateOfAntenna(c, RADIO_TX_ANTENNA_2, RADIO_STATE_DISABLE);
    radioSetTxMaxPower(c, -45);
    radioSetTxMaxPowerOfAntenna(c, RADIO_TX_ANTENNA_2, 10);
    radioSetTxDcOffset(c, RADIO_TX_ANTENNA_1, -3, 4);
    radioSetTxPowerRegisters(c, words, 3);
    radioSetRxFrequency(c, 2535000000u);
    radioSetRxChannel(c, 21100);
    radioSetRxState(c, RADIO_STATE_ENABLE);
    radioSetRxStateOfAntenna(c, RADIO_RX_ANTENNA_2, RADIO_STATE_DISABLE);
    radioSetRxGain(c, 30);
    radioSetRxGainMode(c, RADIO_RX_GAIN_AGC_SLOW_HYBRID);
    radioSetRxGainRegisters(c, NULL, 0);
    radioSetRxGainRegisters(c, words, 300);
    radioSetLoopback(c, RADIO_NO_LOOPBACK);
    radioGetTemperature(c);
    radioGetRxRtwp(c);
    radioGetRxRtwpIndBm(c);
    radioGetRxRtwpOfAntenna(c, RADIO_RX_ANTENNA_1);
    radioGetRxRtwpOfAntennaIndBm(c, RADIO_RX_ANTENNA_2);
    radioGetRxGainIndB(c);
    radioGetRxGainOfAntennaIndB(c, RADIO_RX_ANTENNA_1);
    radioSpiWrite(c, 0x10, -1);
    radioSpiRead(c, 0x10);
    radioSetOscillatorDacValue(c, 512);
    radioGetOscillatorDacValue(c);
    radioGetOscillatorDacWidth(c);
    radioGetDebugLevel(c);
    radioSetDebugLevel(c, RADIO_DEBUG_NONE);
    radioSetDebugFile(c, stderr);
    radioReset(c);
}

static void callWithOtherContexts(RadioContext *first, RadioContext *second)
{
    char noContext = 0;
    radioReset(second);
    radioReset(first);
    radioReset(NULL);
    radioReset((RadioContext *)(void *)&noContext);
    radioSetRxState(NULL, (RadioState)7);
    radioGetPlatformName(NULL);
    radioVersion(NULL);
    radioGetDriverNames(NULL);
    radioVersion(first);
    radioClose(second);
    radioReset(second);
    radioGetTemperature(second);
    radioReset(first);
    radioClose(first);
}

/* every_call CALIBRATION SCRIPT */
int main(int count, char **arguments)
{
    if (count != 3) {
        return EXIT_FAILURE;
    }
    radioSelectPlatform(RADIO_PLATFORM_COUNT);
    radioSelectPlatform(RADIO_PLATFORM_TALWIN);
    RadioContext *const first = radioOpen();
    callEach(first, arguments[1], arguments[2]);
    callWithOtherContexts(first, radioOpen());
    for (int i = 0; i <= OPEN_LIMIT; ++i) {
        radioOpen();
    }
    return EXIT_SUCCESS;
}
