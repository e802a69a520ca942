/* SPDX-License-Identifier: LicenseRef-Proprietary */
/*
 * libsorel: the radio driver's interface, for C99 and C++.
 *
 * A RadioContext stands for one radio front end, from radioOpen() to radioClose(). A function that
 * takes a context works on that front end only; the library is not thread-safe.
 *
 * Lifecycle: radioSelectPlatform() names the hardware, radioOpen() opens it, radioInit() sets it up
 * for an antenna configuration, an air-interface mode and a band. Tuning, switching and gain
 * setting need radioInit() first.
 *
 * Status: the functions that return RadioReturn answer with RADIO_ESUCCESS, or with the first of
 * these that applies and without any effect:
 *   RADIO_EINVAL   an argument is out of range or names no member of its enumeration, or the
 *                  context is null or closed
 *   RADIO_EERROR   the call is not possible in the present state (before radioInit(), mostly)
 *   RADIO_ENOTSUP  the platform, or the mode it is set up for, lacks what is asked for
 *   RADIO_EAGAIN   the hardware is busy; the same call may succeed later
 *   RADIO_EIO      the hardware did not answer
 *
 * Readings have no status. One that fails (null or closed context, no radioInit() where one is
 * needed, an antenna that does not exist, a receiver that is off or not settled) is a not-a-number
 * for a float, INT32_MIN for an int32_t, UINT32_MAX for a uint32_t, and a null pointer for a text.
 *
 * Pointers that the library returns stay the library's and must not be freed. Pointers handed to it
 * stay the caller's; the library keeps none of them after the call, with one exception:
 * radioSetDebugFile().
 */
#ifndef SOREL_H
#define SOREL_H

#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

/* Every enumeration is a signed 32-bit integer in both languages. C before C23 cannot fix an
 * enumeration's underlying type, and makes one without a negative member unsigned; so there the
 * type of that name is int32_t itself, and the enumeration only lends it the members. */
#ifdef __cplusplus
#define SOREL_INT32 : int32_t
#else
#define SOREL_INT32
typedef int32_t RadioReturn, RadioDebug, RadioConf, RadioMode, RadioBand, RadioState;
typedef int32_t RadioRxGainMode, RadioTxAntenna, RadioRxAntenna, RadioSelectIndex;
typedef int32_t RadioPlatformSelectIndex, RadioLoopback, RadioCpriRate, RadioInterfaceMode;
#endif

#define SOREL_API __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Types --------------------------------------------------------------------------------- */

/* An open radio front end. Its contents are the driver's. */
typedef struct RadioContext RadioContext;

/* Memory functions. No function of this interface takes them. */
typedef struct RadioHooks {
    void *(*malloc)(size_t size); /* allocates a block of size bytes */
    void (*free)(void *block);    /* releases a block */
} RadioHooks;

/* Status of a call. */
enum RadioReturn SOREL_INT32 {
    RADIO_ESUCCESS = 0, /* done */
    RADIO_EIO = 1,      /* the hardware did not answer */
    RADIO_ENOTSUP = 2,  /* not supported by the platform */
    RADIO_EINVAL = 3,   /* invalid argument */
    RADIO_EAGAIN = 4,   /* busy, try again */
    RADIO_EERROR = 5,   /* not possible in the present state, or failed otherwise */
};

/* Verbosity of the driver's debug messages; each level includes those before it. */
enum RadioDebug SOREL_INT32 {
    RADIO_DEBUG_NONE = 0,  /* no messages */
    RADIO_DEBUG_ERROR = 1, /* why a call failed */
    RADIO_DEBUG_WARN = 2,  /* what succeeded but looks wrong */
    RADIO_DEBUG_INFO = 3,  /* what changes the radio's state */
    RADIO_DEBUG_DEBUG = 4, /* what the driver works out */
    RADIO_DEBUG_TRACE = 5, /* every call */
};

/* Antenna configuration. */
enum RadioConf SOREL_INT32 {
    RADIO_CONF_SISO = 0,    /* one transmit and one receive antenna: the first of each */
    RADIO_CONF_MIMO = 1,    /* two transmit and two receive antennas */
    RADIO_CONF_COUNT = 2,   /* number of configurations */
    RADIO_CONF_INVALID = 2, /* no configuration */
    RADIO_CONF_NULL = -1,   /* no value */
};

/* Air-interface mode. NODEB: base station, transmits the downlink and receives the uplink. UERX:
 * terminal receiver, the other way round. 2G: GSM, 3G: UTRA FDD, 4G: LTE with its channel
 * bandwidth, TD_SCDMA: UTRA TDD, 1.28 Mchip/s. */
enum RadioMode SOREL_INT32 {
    RADIO_MODE_3GNODEB = 0,
    RADIO_MODE_2GUERX = 1,
    RADIO_MODE_3GUERX = 2,
    RADIO_MODE_4GENODEB_FDD_3MHZ = 3,
    RADIO_MODE_4GENODEB_FDD_5MHZ = 4,
    RADIO_MODE_4GENODEB_FDD_10MHZ = 5,
    RADIO_MODE_4GENODEB_FDD_15MHZ = 6,
    RADIO_MODE_4GENODEB_FDD_20MHZ = 7,
    RADIO_MODE_4GENODEB_TDD_5MHZ = 8,
    RADIO_MODE_4GENODEB_TDD_10MHZ = 9,
    RADIO_MODE_4GENODEB_TDD_20MHZ = 10,
    RADIO_MODE_4GUERX_FDD_5MHZ = 11,
    RADIO_MODE_4GUERX_FDD_10MHZ = 12,
    RADIO_MODE_4GUERX_FDD_20MHZ = 13,
    RADIO_MODE_4GUERX_TDD_5MHZ = 14,
    RADIO_MODE_4GUERX_TDD_10MHZ = 15,
    RADIO_MODE_4GUERX_TDD_20MHZ = 16,
    RADIO_MODE_TD_SCDMA_NODEB = 17,
    RADIO_MODE_COUNT = 18,   /* number of modes */
    RADIO_MODE_INVALID = 18, /* no mode */
    RADIO_MODE_NULL = -1,    /* no value */
};

/* Operating band. 1 to 25 and 33 to 43: the number in 3GPP TS 36.101 table 5.5-1 and TS 25.101
 * table 5.0 (33 and up are unpaired, for TDD). GSM: 3GPP TS 45.005 section 2. 252 to 255 are not
 * band numbers of those tables. */
enum RadioBand SOREL_INT32 {
    RADIO_BAND_1 = 1,
    RADIO_BAND_2 = 2,
    RADIO_BAND_3 = 3,
    RADIO_BAND_4 = 4,
    RADIO_BAND_5 = 5,
    RADIO_BAND_6 = 6,
    RADIO_BAND_7 = 7,
    RADIO_BAND_8 = 8,
    RADIO_BAND_9 = 9,
    RADIO_BAND_10 = 10,
    RADIO_BAND_11 = 11,
    RADIO_BAND_12 = 12,
    RADIO_BAND_13 = 13,
    RADIO_BAND_14 = 14,
    RADIO_BAND_15 = 15,
    RADIO_BAND_16 = 16,
    RADIO_BAND_17 = 17,
    RADIO_BAND_18 = 18,
    RADIO_BAND_19 = 19,
    RADIO_BAND_20 = 20,
    RADIO_BAND_21 = 21,
    RADIO_BAND_22 = 22,
    RADIO_BAND_23 = 23,
    RADIO_BAND_24 = 24,
    RADIO_BAND_25 = 25,
    RADIO_BAND_33 = 33,
    RADIO_BAND_34 = 34,
    RADIO_BAND_35 = 35,
    RADIO_BAND_36 = 36,
    RADIO_BAND_37 = 37,
    RADIO_BAND_38 = 38,
    RADIO_BAND_39 = 39,
    RADIO_BAND_40 = 40,
    RADIO_BAND_41 = 41,
    RADIO_BAND_42 = 42,
    RADIO_BAND_43 = 43,
    RADIO_BAND_GSM_850 = 44,
    RADIO_BAND_GSM_900 = 45,  /* P-GSM 900 */
    RADIO_BAND_GSM_900E = 46, /* E-GSM 900 */
    RADIO_BAND_GSM_1800 = 47, /* DCS 1800 */
    RADIO_BAND_GSM_1900 = 48, /* PCS 1900 */
    RADIO_BAND_252 = 252,
    RADIO_BAND_253 = 253,
    RADIO_BAND_254 = 254,
    RADIO_BAND_255 = 255,
    RADIO_BAND_COUNT = 256,   /* one past the highest band */
    RADIO_BAND_INVALID = 256, /* no band */
    RADIO_BAND_NULL = -1,     /* no value */
};

/* Whether a transmitter or receiver is switched on. */
enum RadioState SOREL_INT32 {
    RADIO_STATE_DISABLE = 0,
    RADIO_STATE_ENABLE = 1,
};

/* Who sets the receiver's gain. */
enum RadioRxGainMode SOREL_INT32 {
    RADIO_RX_GAIN_MGC = 0,             /* manual: radioSetRxGain() */
    RADIO_RX_GAIN_AGC_FAST = 1,        /* automatic, fast attack */
    RADIO_RX_GAIN_AGC_SLOW = 2,        /* automatic, slow attack */
    RADIO_RX_GAIN_AGC_SLOW_HYBRID = 3, /* automatic, slow attack, when triggered */
};

/* Transmit antenna. The first has the value 0. */
enum RadioTxAntenna SOREL_INT32 {
    RADIO_TX_ANTENNA_1 = 0,
    RADIO_TX_ANTENNA_2 = 1,
};

/* Receive antenna. The first has the value 0. */
enum RadioRxAntenna SOREL_INT32 {
    RADIO_RX_ANTENNA_1 = 0,
    RADIO_RX_ANTENNA_2 = 1,
};

/* Paths of the front end: a path is a transmit and a receive antenna with what lies behind them. */
enum RadioSelectIndex SOREL_INT32 {
    RADIO_SELECT_0 = 0,   /* path 0: the first antennas */
    RADIO_SELECT_1 = 1,   /* path 1: the second antennas */
    RADIO_SELECT_ALL = 2, /* both */
};

/* Hardware platform. */
enum RadioPlatformSelectIndex SOREL_INT32 {
    RADIO_PLATFORM_DEFAULT = 0, /* the driver's choice */
    RADIO_PLATFORM_TALWIN = 1,
    RADIO_PLATFORM_MERRIK = 2,
    RADIO_PLATFORM_OSTRAV = 3,
    RADIO_PLATFORM_BELLAN = 4,
    RADIO_PLATFORM_COUNT = 5, /* number of platforms */
    RADIO_PLATFORM_NULL = -1, /* no value */
};

/* Digital loopback inside the front end. */
enum RadioLoopback SOREL_INT32 {
    RADIO_NO_LOOPBACK = 0,
    RADIO_TX_TO_RX_LOOPBACK = 1, /* what is transmitted is received */
    RADIO_RX_TO_TX_LOOPBACK = 2, /* what is received is transmitted */
};

/* CPRI line-rate option, by its number in the CPRI specification V7.0 section 4.2.1. */
enum RadioCpriRate SOREL_INT32 {
    RADIO_CPRI_RATE_1 = 1,   /* 614.4 Mbit/s */
    RADIO_CPRI_RATE_2 = 2,   /* 1228.8 Mbit/s */
    RADIO_CPRI_RATE_4 = 4,   /* 3072.0 Mbit/s */
    RADIO_CPRI_RATE_5 = 5,   /* 4915.2 Mbit/s */
    RADIO_CPRI_RATE_8 = 8,   /* 10137.6 Mbit/s */
    RADIO_CPRI_RATE_10 = 10, /* 24330.24 Mbit/s */
};

/* Digital data interface between the front end and the baseband. */
enum RadioInterfaceMode SOREL_INT32 {
    RADIO_INTERFACE_JESD_CMOS = 0, /* JESD207, CMOS levels */
    RADIO_INTERFACE_JESD_LVDS = 1, /* JESD207, LVDS levels */
    RADIO_INTERFACE_CPRI = 2,
};

/* ---- Platform and lifecycle ---------------------------------------------------------------- */

/* Selects the hardware platform of this process. The selection holds for every context opened
 * later, and for one that is open from its next radioInit() or radioInitByScript() on. */
SOREL_API RadioReturn radioSelectPlatform(RadioPlatformSelectIndex platform);

/* Opens the radio of the selected platform. The caller closes it with radioClose().
 * Returns null when it cannot be opened. */
SOREL_API RadioContext *radioOpen(void);

/* Closes the radio and switches its transmitters off. The context must not be used afterwards. */
SOREL_API RadioReturn radioClose(RadioContext *context);

/* Selects the paths that functions without an antenna parameter apply to, where they say so, from
 * the next call on. RADIO_SELECT_ALL after radioOpen() and radioReset(). Needs no radioInit(). */
SOREL_API RadioReturn radioSelect(RadioContext *context, RadioSelectIndex paths);

/* Sets the radio up for an antenna configuration, a mode and a band. Afterwards the receivers are
 * on and the transmitters off, both tuned to the middle of the band; the receivers are in manual
 * gain mode at the highest gain, the transmitters limited to the highest power, without offsets,
 * loopback or tables. The selected paths stay. Another platform than before starts with fresh
 * registers and oscillator, and without a CPRI link. RADIO_EERROR: the CPRI link that
 * radioCpriInit() has started is too slow for it. */
SOREL_API RadioReturn radioInit(RadioContext *context, RadioConf configuration, RadioMode mode,
                                RadioBand band);

/* As radioInit(), then runs the initialisation script in the file of that path. RADIO_EINVAL, with
 * nothing done, for a null path and a file that cannot be read or does not parse. */
SOREL_API RadioReturn radioInitByScript(RadioContext *context, RadioConf configuration,
                                        RadioMode mode, RadioBand band, const char *script);

/* Starts the CPRI link at a line rate. Until radioReset() or another platform it limits what
 * radioInit() may set up. RADIO_ENOTSUP: the platform lacks CPRI or that rate. RADIO_EERROR: the
 * rate is too low for what is set up. Needs no radioInit(). */
SOREL_API RadioReturn radioCpriInit(RadioContext *context, RadioCpriRate rate);

/* Puts the hardware into the state after radioOpen(): switched off, not initialised, all paths
 * selected. The platform, the calibration data and the debug settings are kept. */
SOREL_API RadioReturn radioReset(RadioContext *context);

/* Loads calibration data from the file of that path, in place of what was loaded before.
 * RADIO_EINVAL, with what was loaded before kept, for a null path and a file that cannot be read or
 * holds no calibration data. Needs no radioInit(). */
SOREL_API RadioReturn radioLoadCalibrationFile(RadioContext *context, const char *path);

/* Looks an integer of the calibration data up by name and stores it through value.
 * RADIO_EINVAL: a null pointer, or no integer of that name. */
SOREL_API RadioReturn radioGetIntegerFromCalibration(RadioContext *context, const char *name,
                                                     int32_t *const value);

/* Looks a text of the calibration data up by name and stores a pointer to it through value. The
 * text is valid until other data are loaded or the context is closed. RADIO_EINVAL: a null pointer,
 * or no text of that name. */
SOREL_API RadioReturn radioGetStringFromCalibration(RadioContext *context, const char *name,
                                                    const char **value);

/* Number of radio chips of the platform. */
SOREL_API int32_t radioGetPlatformChipCount(RadioContext *context);

/* Name of the context's platform; with a null context, of the selected platform. */
SOREL_API const char *radioGetPlatformName(RadioContext *context);

/* Version of the driver; needs no context. */
SOREL_API const char *radioVersion(RadioContext *context);

/* Names of the drivers in the library, ended by a null pointer. The list is writable and lives as
 * long as the process. */
SOREL_API char **radioGetDriverNames(RadioContext *context);

/* ---- Transmit path ------------------------------------------------------------------------- */

/* Tunes the transmitters. In hertz, within the transmit range of the band. In a TDD mode the
 * receivers follow. */
SOREL_API RadioReturn radioSetTxFrequency(RadioContext *context, uint32_t frequency);

/* Tunes the transmitters to a channel of the band: the EARFCN (3GPP TS 36.101 section 5.7.3),
 * UARFCN (TS 25.101 section 5.4.4) or ARFCN (TS 45.005 section 2) that fits the mode. */
SOREL_API RadioReturn radioSetTxChannel(RadioContext *context, uint16_t channel);

/* Switches the transmitters of the selected paths. RADIO_EAGAIN: switching on while the synthesiser
 * has not settled on its frequency. RADIO_EERROR: likewise while the chip is too hot. */
SOREL_API RadioReturn radioSetTxState(RadioContext *context, RadioState state);

/* Switches one transmitter; see radioSetTxState(). */
SOREL_API RadioReturn radioSetTxStateOfAntenna(RadioContext *context, RadioTxAntenna antenna,
                                               RadioState state);

/* Limits the output power of the selected paths. In 0.1 dBm, within the platform's range. */
SOREL_API RadioReturn radioSetTxMaxPower(RadioContext *context, int16_t power);

/* Limits the output power of one transmitter. In 0.1 dBm, within the platform's range. */
SOREL_API RadioReturn radioSetTxMaxPowerOfAntenna(RadioContext *context, RadioTxAntenna antenna,
                                                  int16_t power);

/* Sets the DC offset that one transmitter adds against carrier leakage, in-phase and quadrature.
 * In steps of the transmit converter, within its signed range. */
SOREL_API RadioReturn radioSetTxDcOffset(RadioContext *context, RadioTxAntenna antenna,
                                         int16_t inPhase, int16_t quadrature);

/* Loads the transmit power table, from which the output powers are chosen: count words at
 * registers, in the platform's form. RADIO_EINVAL: more words than the table holds, words that the
 * platform does not take, or a null pointer with a count other than 0. */
SOREL_API RadioReturn radioSetTxPowerRegisters(RadioContext *context, const uint32_t *registers,
                                               uint32_t count);

/* ---- Receive path -------------------------------------------------------------------------- */

/* Tunes the receivers. In hertz, within the receive range of the band. In a TDD mode the
 * transmitters follow. */
SOREL_API RadioReturn radioSetRxFrequency(RadioContext *context, uint32_t frequency);

/* Tunes the receivers to a channel of the band; the numbers are those of radioSetTxChannel(). */
SOREL_API RadioReturn radioSetRxChannel(RadioContext *context, uint16_t channel);

/* Switches the receivers of the selected paths. */
SOREL_API RadioReturn radioSetRxState(RadioContext *context, RadioState state);

/* Switches one receiver. */
SOREL_API RadioReturn radioSetRxStateOfAntenna(RadioContext *context, RadioRxAntenna antenna,
                                               RadioState state);

/* Sets the gain of the selected paths' receivers to the highest gain step that is not above it. In
 * dB, within the platform's range. RADIO_EERROR unless the gain mode is RADIO_RX_GAIN_MGC. */
SOREL_API RadioReturn radioSetRxGain(RadioContext *context, int16_t gain);

/* Says who sets the gain of the selected paths' receivers. RADIO_RX_GAIN_MGC after radioInit(). */
SOREL_API RadioReturn radioSetRxGainMode(RadioContext *context, RadioRxGainMode mode);

/* Loads the receive gain table, the gain steps: count words at registers, in the platform's form.
 * RADIO_EINVAL: more words than the table holds, words that the platform does not take, or a null
 * pointer with a count other than 0. */
SOREL_API RadioReturn radioSetRxGainRegisters(RadioContext *context, const uint32_t *registers,
                                              uint32_t count);

/* Sets the digital loopback. RADIO_NO_LOOPBACK after radioInit(). */
SOREL_API RadioReturn radioSetLoopback(RadioContext *context, RadioLoopback loopback);

/* ---- Measurements -------------------------------------------------------------------------- */

/* Temperature of the radio chip, in degrees Celsius. Needs no radioInit(). */
SOREL_API float radioGetTemperature(RadioContext *context);

/* Received total wideband power at the antenna connector, over the selected paths together.
 * In 0.1 dBm. */
SOREL_API int32_t radioGetRxRtwp(RadioContext *context);

/* As radioGetRxRtwp(), in dBm. */
SOREL_API float radioGetRxRtwpIndBm(RadioContext *context);

/* Received total wideband power of one receive antenna, in 0.1 dBm. */
SOREL_API int32_t radioGetRxRtwpOfAntenna(RadioContext *context, RadioRxAntenna antenna);

/* As radioGetRxRtwpOfAntenna(), in dBm. */
SOREL_API float radioGetRxRtwpOfAntennaIndBm(RadioContext *context, RadioRxAntenna antenna);

/* Present receiver gain of the first of the selected paths, in dB. */
SOREL_API int32_t radioGetRxGainIndB(RadioContext *context);

/* Present receiver gain of one receive antenna, in dB. */
SOREL_API int32_t radioGetRxGainOfAntennaIndB(RadioContext *context, RadioRxAntenna antenna);

/* ---- SPI registers and reference oscillator ------------------------------------------------ */

/* Reads the radio chip's register at address. Needs no radioInit(). UINT32_MAX where there is no
 * register: a bus that nobody drives. */
SOREL_API uint32_t radioSpiRead(RadioContext *context, uint32_t address);

/* Writes the radio chip's register at address; value carries its 32 bits. Needs no radioInit().
 * RADIO_EINVAL: there is no register, or it does not take that value. RADIO_ENOTSUP: it can only be
 * read. */
SOREL_API RadioReturn radioSpiWrite(RadioContext *context, uint32_t address, int32_t value);

/* Sets the DAC that tunes the reference oscillator, 0 to 2^width - 1. Needs no radioInit(). */
SOREL_API RadioReturn radioSetOscillatorDacValue(RadioContext *context, uint16_t value);

/* Value of the DAC that tunes the reference oscillator. */
SOREL_API uint32_t radioGetOscillatorDacValue(RadioContext *context);

/* Width of the DAC that tunes the reference oscillator, in bits. */
SOREL_API int32_t radioGetOscillatorDacWidth(RadioContext *context);

/* ---- Debug messages ------------------------------------------------------------------------ */

/* Verbosity of the debug messages, a RadioDebug value. RADIO_DEBUG_NONE after radioOpen(), unless
 * the driver's own settings ask for messages. */
SOREL_API int32_t radioGetDebugLevel(RadioContext *context);

/* Sets the verbosity of the debug messages. */
SOREL_API RadioReturn radioSetDebugLevel(RadioContext *context, RadioDebug level);

/* Sends the debug messages to file, which the driver uses until it is given another or the context
 * is closed, and never closes; null sends them where they go after radioOpen(): to standard error,
 * unless the driver's own settings name another place. */
SOREL_API RadioReturn radioSetDebugFile(RadioContext *context, FILE *file);

#ifdef __cplusplus
}
#endif

#undef SOREL_API
#undef SOREL_INT32

#endif
