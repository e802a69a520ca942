/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The header and the library as a C99 program sees them: brings a board up, and tries what a
 * scenario does to it. */
#define _POSIX_C_SOURCE 200809L

#include "sorel.h"

#include <math.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

static int failures = 0;

#define CHECK(condition)                                                                           \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition);                        \
            ++failures;                                                                            \
        }                                                                                          \
    } while (0)

/* A signed type of 32 bits, or this does not compile. */
#define SIGNED_32(type) extern char type##IsSigned32[sizeof(type) == 4 && (type)-1 < 0 ? 1 : -1]

SIGNED_32(RadioReturn);
SIGNED_32(RadioDebug);
SIGNED_32(RadioConf);
SIGNED_32(RadioMode);
SIGNED_32(RadioBand);
SIGNED_32(RadioState);
SIGNED_32(RadioRxGainMode);
SIGNED_32(RadioTxAntenna);
SIGNED_32(RadioRxAntenna);
SIGNED_32(RadioSelectIndex);
SIGNED_32(RadioPlatformSelectIndex);
SIGNED_32(RadioLoopback);
SIGNED_32(RadioCpriRate);
SIGNED_32(RadioInterfaceMode);

static void bringUp(RadioContext *context)
{
    CHECK(radioInit(context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7) ==
          RADIO_ESUCCESS);
    CHECK(radioSetTxFrequency(context, 2655000000u) == RADIO_ESUCCESS);
    CHECK(radioSetRxFrequency(context, 2535000000u) == RADIO_ESUCCESS);
    CHECK(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_SLOW) == RADIO_ESUCCESS);
    CHECK(radioSetTxState(context, RADIO_STATE_ENABLE) == RADIO_ESUCCESS);
}

/* A strong signal from 10 ms on, and a bus that fails once. */
static const char scenario[] = "[[signals]]\n"
                               "frequency = 2535000000\n"
                               "bandwidth = 18000000\n"
                               "power = -40\n"
                               "start = 0.010\n"
                               "[[faults]]\n"
                               "function = \"radioSpiWrite\"\n"
                               "first = 2\n"
                               "calls = 1\n"
                               "status = \"RADIO_EIO\"\n";

static RadioContext *openInScenario(void)
{
    char path[] = "/tmp/sorel_c_test.XXXXXX";
    const int descriptor = mkstemp(path);
    RadioContext *context;

    CHECK(descriptor >= 0 &&
          write(descriptor, scenario, sizeof scenario - 1) == (ssize_t)sizeof scenario - 1);
    CHECK(setenv("SOREL_SIM_SCENARIO", path, 1) == 0);
    context = radioOpen();
    unsetenv("SOREL_SIM_SCENARIO");
    unlink(path);
    close(descriptor);
    return context;
}

static void tryScenario(void)
{
    RadioContext *context = openInScenario();
    int call;

    CHECK(context != NULL);
    bringUp(context);
    CHECK(radioGetRxGainIndB(context) == 72);
    for (call = 0; call < 1000; ++call) {
        radioGetTemperature(context);
    }
    CHECK(fabsf(radioGetRxRtwpOfAntennaIndBm(context, RADIO_RX_ANTENNA_1) + 40) < 1);
    CHECK(radioGetRxGainIndB(context) < 30);

    CHECK(radioSpiWrite(context, 0x10, 1) == RADIO_ESUCCESS);
    CHECK(radioSpiWrite(context, 0x10, 2) == RADIO_EIO);
    CHECK(radioSpiRead(context, 0x10) == 1);
    CHECK(radioSpiWrite(context, 0x10, 3) == RADIO_ESUCCESS);
    CHECK(radioClose(context) == RADIO_ESUCCESS);
}

int main(void)
{
    RadioContext *context;
    const char *const *names = (const char *const *)radioGetDriverNames(NULL);

    CHECK(radioSelectPlatform(RADIO_PLATFORM_TALWIN) == RADIO_ESUCCESS);
    CHECK(radioSelectPlatform(RADIO_PLATFORM_NULL) == RADIO_EINVAL);
    CHECK(strstr(radioGetPlatformName(NULL), "simulated") != NULL);
    CHECK(radioVersion(NULL) != NULL);
    CHECK(names != NULL && names[0] != NULL);

    context = radioOpen();
    CHECK(context != NULL);
    CHECK(isnan(radioGetRxRtwpIndBm(context)));
    bringUp(context);
    CHECK(radioGetTemperature(context) > 25 && radioGetTemperature(context) < 60);
    CHECK(radioGetRxRtwpIndBm(context) > -97 && radioGetRxRtwpIndBm(context) < -90);
    CHECK(radioGetRxGainIndB(context) == 72);
    CHECK(radioSpiWrite(context, 0x10, -1) == RADIO_ESUCCESS);
    CHECK(radioSpiRead(context, 0x10) == 0xffffffffu);
    CHECK(radioSpiRead(context, 0x20) == 2655000000u);
    CHECK(radioClose(context) == RADIO_ESUCCESS);
    CHECK(radioClose(context) == RADIO_EINVAL);

    tryScenario();
    return failures == 0 ? 0 : 1;
}
