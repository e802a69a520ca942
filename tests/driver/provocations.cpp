// SPDX-License-Identifier: LicenseRef-Proprietary
// Calls that are refused, with the reason in the words of driver/README.md's table of statuses.
#include "provocations.h"

#include "right_calls.h"

namespace sorel_tests
{

namespace
{

struct Row {
    State state;
    const char *text;
    RadioReturn (*call)(RadioContext *c);
    const char *reason;
};

constexpr RadioBand B38 = RADIO_BAND_38;
const uint32_t falling[] = {100, 0};
const uint32_t tooMuch[] = {10000};

#define DATA(name) SOREL_DATA_DIR "/" name

// clang-format off

// RADIO_EINVAL, also before radioInit() where it can be known by then.
const Row invalid[] = {
    {Null,   CALL(radioSelectPlatform(valued<RadioPlatformSelectIndex>(-1))),          "platform"},
    {Null,   CALL(radioSelectPlatform(RADIO_PLATFORM_COUNT)),                          "platform"},
    {Closed, CALL(radioClose(c)),                                                      "context"},
    {Null,   CALL(radioClose(c)),                                                      "context"},
    {Opened, CALL(radioSelect(c, valued<RadioSelectIndex>(-1))),                       "paths"},
    {Opened, CALL(radioSelect(c, valued<RadioSelectIndex>(3))),                        "paths"},
    {Opened, CALL(radioInit(c, RADIO_CONF_NULL, FDD, B7)),                             "configuration"},
    {Opened, CALL(radioInit(c, RADIO_CONF_INVALID, FDD, B7)),                          "configuration"},
    {Opened, CALL(radioInit(c, MIMO, RADIO_MODE_NULL, B7)),                            "mode"},
    {Opened, CALL(radioInit(c, MIMO, RADIO_MODE_INVALID, B7)),                         "mode"},
    {Opened, CALL(radioInit(c, MIMO, FDD, RADIO_BAND_NULL)),                           "band"},
    {Opened, CALL(radioInit(c, MIMO, FDD, RADIO_BAND_INVALID)),                        "band"},
    {Opened, CALL(radioInit(c, MIMO, FDD, valued<RadioBand>(0))),                      "band"},
    {Opened, CALL(radioInit(c, MIMO, FDD, valued<RadioBand>(26))),                     "band"},
    {Opened, CALL(radioInit(c, MIMO, FDD, valued<RadioBand>(32))),                     "band"},
    {Opened, CALL(radioInit(c, MIMO, FDD, valued<RadioBand>(49))),                     "band"},
    {Opened, CALL(radioInit(c, MIMO, FDD, valued<RadioBand>(251))),                    "band"},
    {Opened, CALL(radioInitByScript(c, RADIO_CONF_INVALID, FDD, B7, "")),              "configuration"},
    {Opened, CALL(radioInitByScript(c, MIMO, RADIO_MODE_INVALID, B7, "")),             "mode"},
    {Opened, CALL(radioInitByScript(c, MIMO, FDD, RADIO_BAND_INVALID, "")),            "band"},
    {Opened, CALL(radioInitByScript(c, MIMO, FDD, B7, nullptr)),                       "file"},
    {Opened, CALL(radioInitByScript(c, MIMO, FDD, B7, "/no/such/file")),               "file"},
    {Opened, CALL(radioInitByScript(c, MIMO, FDD, B7, DATA("not_a_script.script"))),                                      "content"},
    {Opened, CALL(radioInitByScript(c, MIMO, FDD, B7, DATA("write_invalid.script"))),                                     "write"},
    {Opened, CALL(radioCpriInit(c, valued<RadioCpriRate>(0))),                         "rate"},
    {Opened, CALL(radioCpriInit(c, valued<RadioCpriRate>(3))),                         "rate"},
    {Opened, CALL(radioCpriInit(c, valued<RadioCpriRate>(11))),                        "rate"},
    {Opened, CALL(radioLoadCalibrationFile(c, nullptr)),                               "file"},
    {Opened, CALL(radioLoadCalibrationFile(c, "/no/such/file")),                       "file"},
    {Opened, CALL(radioLoadCalibrationFile(c, DATA("good.script"))),         "content"},
    {Null,   CALL(radioGetIntegerFromCalibration(c, "k", &integer)),                   "context"},
    {Closed, CALL(radioGetIntegerFromCalibration(c, "k", &integer)),                   "context"},
    {Opened, CALL(radioGetIntegerFromCalibration(c, nullptr, &integer)),               "name"},
    {Opened, CALL(radioGetIntegerFromCalibration(c, "k", &integer)),                   "name"},
    {Opened, CALL(radioGetIntegerFromCalibration(c, "k", nullptr)),                    "result"},
    {Null,   CALL(radioGetStringFromCalibration(c, "k", &text)),                       "context"},
    {Closed, CALL(radioGetStringFromCalibration(c, "k", &text)),                       "context"},
    {Opened, CALL(radioGetStringFromCalibration(c, nullptr, &text)),                   "name"},
    {Opened, CALL(radioGetStringFromCalibration(c, "k", &text)),                       "name"},
    {Opened, CALL(radioGetStringFromCalibration(c, "k", nullptr)),                     "result"},
    {Ready,  CALL(radioSetTxFrequency(c, 2619999999u)),                                "frequency"},
    {Ready,  CALL(radioSetTxFrequency(c, 2690000001u)),                                "frequency"},
    {Ready,  CALL(radioSetTxFrequency(c, 0)),                                          "frequency"},
    {Ready,  CALL(radioSetTxFrequency(c, 0xffffffffu)),                                "frequency"},
    {Ready,  CALL(radioSetTxChannel(c, 2749)),                                         "channel"},
    {Ready,  CALL(radioSetTxChannel(c, 3450)),                                         "channel"},
    {Ready,  CALL(radioSetTxChannel(c, 20850)),                                        "channel"},
    {Opened, CALL(radioSetTxState(c, valued<RadioState>(2))),                          "state"},
    {Opened, CALL(radioSetTxState(c, valued<RadioState>(-1))),                         "state"},
    {Opened, CALL(radioSetTxStateOfAntenna(c, valued<RadioTxAntenna>(2), ON)),         "antenna"},
    {Opened, CALL(radioSetTxStateOfAntenna(c, T1, valued<RadioState>(2))),             "state"},
    {Opened, CALL(radioSetTxMaxPower(c, 241)),                                         "power"},
    {Opened, CALL(radioSetTxMaxPower(c, -601)),                                        "power"},
    {Tables, CALL(radioSetTxMaxPower(c, 99)),                                          "table"},
    {Opened, CALL(radioSetTxMaxPowerOfAntenna(c, valued<RadioTxAntenna>(2), 0)),       "antenna"},
    {Opened, CALL(radioSetTxMaxPowerOfAntenna(c, T1, 241)),                            "power"},
    {Tables, CALL(radioSetTxMaxPowerOfAntenna(c, T2, 99)),                             "table"},
    {Opened, CALL(radioSetTxDcOffset(c, valued<RadioTxAntenna>(-1), 0, 0)),            "antenna"},
    {Opened, CALL(radioSetTxDcOffset(c, T1, 2048, 0)),                                 "offset"},
    {Opened, CALL(radioSetTxDcOffset(c, T1, 0, -2049)),                                "offset"},
    {Opened, CALL(radioSetTxPowerRegisters(c, nullptr, 1)),                            "words"},
    {Opened, CALL(radioSetTxPowerRegisters(c, words, 257)),                            "words"},
    {Opened, CALL(radioSetTxPowerRegisters(c, tooMuch, 1)),                            "words"},
    {Opened, CALL(radioSetTxPowerRegisters(c, falling, 2)),                            "words"},
    {Limited, CALL(radioSetTxPowerRegisters(c, falling, 1)),                           "limit"},
    {Ready,  CALL(radioSetRxFrequency(c, 2499999999u)),                                "frequency"},
    {Ready,  CALL(radioSetRxFrequency(c, 2570000001u)),                                "frequency"},
    {Ready,  CALL(radioSetRxFrequency(c, 2655000000u)),                                "frequency"},
    {Ready,  CALL(radioSetRxChannel(c, 2850)),                                         "channel"},
    {Opened, CALL(radioSetRxState(c, valued<RadioState>(7))),                          "state"},
    {Opened, CALL(radioSetRxStateOfAntenna(c, valued<RadioRxAntenna>(2), ON)),         "antenna"},
    {Opened, CALL(radioSetRxStateOfAntenna(c, R1, valued<RadioState>(2))),             "state"},
    {Opened, CALL(radioSetRxGain(c, -1)),                                              "gain"},
    {Automatic, CALL(radioSetRxGain(c, 77)),                                           "gain"},
    {Tables, CALL(radioSetRxGain(c, 9)),                                               "table"},
    {Opened, CALL(radioSetRxGainMode(c, valued<RadioRxGainMode>(4))),                  "gain mode"},
    {Opened, CALL(radioSetRxGainMode(c, valued<RadioRxGainMode>(-1))),                 "gain mode"},
    {Opened, CALL(radioSetRxGainRegisters(c, nullptr, 1)),                             "words"},
    {Opened, CALL(radioSetRxGainRegisters(c, words, 257)),                             "words"},
    {Opened, CALL(radioSetRxGainRegisters(c, tooMuch, 1)),                             "words"},
    {Opened, CALL(radioSetRxGainRegisters(c, falling, 2)),                             "words"},
    {Opened, CALL(radioSetLoopback(c, valued<RadioLoopback>(3))),                      "loopback"},
    {Opened, CALL(radioSpiWrite(c, UNMAPPED, 0)),                                      "address"},
    {Opened, CALL(radioSpiWrite(c, 0xffffffffu, 0)),                                   "address"},
    {Bellan, CALL(radioSpiWrite(c, TX_STATE + 1, 0)),                                  "address"},
    {Opened, CALL(radioSpiWrite(c, LOOPBACK, 3)),                                      "value"},
    {Opened, CALL(radioSpiWrite(c, DAC, 65536)),                                       "value"},
    {Merrik, CALL(radioSetOscillatorDacValue(c, 4096)),                                "value"},
    {Opened, CALL(radioSetDebugLevel(c, valued<RadioDebug>(6))),                       "level"},
    {Opened, CALL(radioSetDebugLevel(c, valued<RadioDebug>(-1))),                      "level"},
};

const Row errors[] = {
    {Linked,    CALL(radioInit(c, MIMO, FDD, B7)),                                     "link"},
    {Linked,    CALL(radioInitByScript(c, MIMO, FDD, B7, DATA("good.script"))), "link"},
    {Opened,    CALL(radioInitByScript(c, MIMO, FDD, B7, DATA("check_fails.script"))),                                    "check"},
    {Opened,    CALL(radioInitByScript(c, MIMO, FDD, B7, DATA("write_error.script"))),                                    "write"},
    {Ready,     CALL(radioCpriInit(c, RADIO_CPRI_RATE_2)),                             "link"},
    {OnePath,   CALL(radioCpriInit(c, RADIO_CPRI_RATE_1)),                             "link"},
    {Hot,       CALL(radioSetTxState(c, ON)),                                          "heat"},
    {Hot,       CALL(radioSetTxStateOfAntenna(c, T1, ON)),                             "heat"},
    {Automatic, CALL(radioSetRxGain(c, 30)),                                           "gain mode"},
    {Opened,    CALL(radioSpiWrite(c, TX_STATE, 1)),                                   "before radioInit"},
    {Automatic, CALL(radioSpiWrite(c, RX_GAIN, 30)),                                   "gain mode"},
    {Hot,       CALL(radioSpiWrite(c, TX_STATE, 1)),                                   "heat"},
};

const Row unsupported[] = {
    {OnePath,    CALL(radioSelect(c, RADIO_SELECT_1)),                                 "path"},
    {Bellan,     CALL(radioSelect(c, RADIO_SELECT_1)),                                 "path"},
    {Bellan,     CALL(radioInit(c, MIMO, TDD, B38)),                                   "antennas"},
    {Merrik,     CALL(radioInit(c, MIMO, TDD, B38)),                                   "mode"},
    {Merrik,     CALL(radioInit(c, MIMO, FDD, RADIO_BAND_22)),                         "band"},
    {Opened,     CALL(radioInit(c, MIMO, FDD, RADIO_BAND_15)),                         "band"},
    {Opened,     CALL(radioInit(c, MIMO, FDD, RADIO_BAND_16)),                         "band"},
    {Opened,     CALL(radioInit(c, MIMO, FDD, RADIO_BAND_252)),                        "band"},
    {Opened,     CALL(radioInit(c, MIMO, TDD, RADIO_BAND_255)),                        "band"},
    {Opened,     CALL(radioInit(c, MIMO, FDD, B38)),                                   "band"},
    {Opened,     CALL(radioInit(c, MIMO, TDD, B7)),                                    "band"},
    {Opened,     CALL(radioInit(c, MIMO, FDD, RADIO_BAND_GSM_900)),                    "band"},
    {Opened,     CALL(radioInit(c, MIMO, RADIO_MODE_2GUERX, RADIO_BAND_8)),            "band"},
    {Opened,     CALL(radioInit(c, MIMO, RADIO_MODE_3GNODEB, RADIO_BAND_17)),          "band"},
    {Opened,     CALL(radioInit(c, MIMO, RADIO_MODE_TD_SCDMA_NODEB, RADIO_BAND_1)),    "band"},
    {OtherBoard, CALL(radioInit(c, MIMO, FDD, B7)),                                    "board"},
    {Bellan,     CALL(radioInitByScript(c, MIMO, TDD, B38, DATA("good.script"))), "antennas"},
    {Merrik,     CALL(radioInitByScript(c, MIMO, TDD, B38, DATA("good.script"))), "mode"},
    {Opened,     CALL(radioInitByScript(c, MIMO, FDD, B38, DATA("good.script"))), "band"},
    {OtherBoard, CALL(radioInitByScript(c, MIMO, FDD, B7, DATA("good.script"))),                                          "board"},
    {Opened,     CALL(radioInitByScript(c, MIMO, FDD, B7, DATA("write_read_only.script"))),                               "write"},
    {Bellan,     CALL(radioCpriInit(c, RADIO_CPRI_RATE_1)),                            "rate"},
    {Merrik,     CALL(radioCpriInit(c, RADIO_CPRI_RATE_1)),                            "CPRI"},
    {Deselected, CALL(radioSetTxState(c, ON)),                                         "path"},
    {OnePath,    CALL(radioSetTxStateOfAntenna(c, T2, ON)),                            "antenna"},
    {Deselected, CALL(radioSetTxMaxPower(c, 0)),                                       "path"},
    {OnePath,    CALL(radioSetTxMaxPowerOfAntenna(c, T2, 0)),                          "antenna"},
    {OnePath,    CALL(radioSetTxDcOffset(c, T2, 0, 0)),                                "antenna"},
    {Deselected, CALL(radioSetRxState(c, ON)),                                         "path"},
    {OnePath,    CALL(radioSetRxStateOfAntenna(c, R2, ON)),                            "antenna"},
    {Deselected, CALL(radioSetRxGain(c, 0)),                                           "path"},
    {Deselected, CALL(radioSetRxGainMode(c, RADIO_RX_GAIN_MGC)),                       "path"},
    {Opened,     CALL(radioSpiWrite(c, IDENTITY, 0)),                                  "read-only"},
    {OnePath,    CALL(radioSpiWrite(c, TX_STATE + 1, 1)),                              "antenna"},
};

const Row busy[] = {
    {Opened,   CALL(radioInitByScript(c, MIMO, FDD, B7, DATA("write_unlocked.script"))),                                  "write"},
    {Unlocked, CALL(radioSetTxState(c, ON)),                                           "lock"},
    {Unlocked, CALL(radioSetTxStateOfAntenna(c, T2, ON)),                              "lock"},
    {Unlocked, CALL(radioSpiWrite(c, TX_STATE, 1)),                                    "lock"},
};

// With a fault of theirs.
const Row faultyBesides[] = {
    {Null,   CALL(radioSelectPlatform(RADIO_PLATFORM_TALWIN)),                         "fault"},
    {Opened, CALL(radioClose(c)),                                                      "fault"},
    {Opened, CALL(radioGetIntegerFromCalibration(c, "k", &integer)),                   "fault"},
    {Opened, CALL(radioGetStringFromCalibration(c, "k", &text)),                       "fault"},
};

// clang-format on

// Of the call after the one that may be needed to reach the state.
std::string faultOf(const std::string &function)
{
    return "[[faults]]\nfunction = \"" + function +
           "\"\nstatus = \"RADIO_EIO\"\nfirst = " + (function == "radioInit" ? "2" : "1");
}

} // namespace

std::vector<Provocation> provocations()
{
    std::vector<Provocation> all;
    const auto add = [&](const auto &rows, RadioReturn status) {
        for (const Row &row : rows)
            all.push_back({row.state, row.text, row.call, status, row.reason, ""});
    };
    const auto addFault = [&](State state, const char *call, RadioReturn (*run)(RadioContext *)) {
        const std::string scenario = faultOf(functionOf(call));
        all.push_back({state, call, run, RADIO_EIO, "fault", scenario});
    };
    add(invalid, RADIO_EINVAL);
    add(errors, RADIO_EERROR);
    add(unsupported, RADIO_ENOTSUP);
    add(busy, RADIO_EAGAIN);
    for (const Row &row : faultyBesides)
        addFault(Opened, row.text, row.call);
    for (const RightCall &row : rightCalls) {
        all.push_back({Null, row.text, row.call, RADIO_EINVAL, "context", ""});
        all.push_back({Closed, row.text, row.call, RADIO_EINVAL, "context", ""});
        if (row.needsInit)
            all.push_back({Opened, row.text, row.call, RADIO_EERROR, "before radioInit", ""});
        addFault(Ready, row.text, row.call);
    }
    return all;
}

} // namespace sorel_tests
