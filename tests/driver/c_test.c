/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The header and the library as a C99 program sees them. */
#include "sorel.h"

#include <math.h>
#include <string.h>

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
    return failures == 0 ? 0 : 1;
}
