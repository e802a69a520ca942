// SPDX-License-Identifier: LicenseRef-Proprietary
// Calls that set and get take no memory: on a board they may come from where none must be taken.
//
// The functions below stand in for the C library's in the whole process, the driver included: its
// own operator new ends in malloc(). That of the address sanitizer does not, but tells who asks.
#include "scenario_fixture.h"
#include "tests/support/next_function.h"

#include <cerrno>

namespace
{

int allocations = 0;

} // namespace

#ifdef __SANITIZE_ADDRESS__

// GCC comes without the header.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*made)(const volatile void *,
                                                                      size_t),
                                                         void (*freed)(const volatile void *));

const int hooks = __sanitizer_install_malloc_and_free_hooks(
    [](const volatile void *, size_t) { ++allocations; }, [](const volatile void *) {});

#else

extern "C" {

void *malloc(size_t size)
{
    ++allocations;
    return NEXT_FUNCTION(malloc)(size);
}

void *calloc(size_t count, size_t size)
{
    ++allocations;
    return NEXT_FUNCTION(calloc)(count, size);
}

void *realloc(void *block, size_t size)
{
    ++allocations;
    return NEXT_FUNCTION(realloc)(block, size);
}

void *memalign(size_t alignment, size_t size)
{
    ++allocations;
    return NEXT_FUNCTION(memalign)(alignment, size);
}

void *aligned_alloc(size_t alignment, size_t size)
{
    ++allocations;
    return NEXT_FUNCTION(memalign)(alignment, size);
}

int posix_memalign(void **block, size_t alignment, size_t size)
{
    ++allocations;
    *block = NEXT_FUNCTION(memalign)(alignment, size);
    return *block ? 0 : ENOMEM;
}

} // extern "C"

#endif

namespace sorel_tests
{

namespace
{

// How often what is called takes memory.
template <class Calls>
int allocationsOf(Calls calls)
{
    const int before = allocations;
    calls();
    return allocations - before;
}

constexpr RadioRxAntenna receiver = RADIO_RX_ANTENNA_1;
constexpr RadioTxAntenna transmitter = RADIO_TX_ANTENNA_1;
constexpr RadioSelectIndex allPaths = RADIO_SELECT_ALL;

constexpr uint32_t powers[] = {0, 100, 200}; // in 0.1 dBm
constexpr uint32_t gains[] = {0, 200, 400};  // in 0.1 dB

struct Call {
    const char *name;
    RadioReturn (*call)(RadioContext *context);
};

RadioReturn getInteger(RadioContext *context)
{
    int32_t value = 0;
    return radioGetIntegerFromCalibration(context, "serial", &value);
}

RadioReturn getString(RadioContext *context)
{
    const char *text = nullptr;
    return radioGetStringFromCalibration(context, "site", &text);
}

// Calls a reading, whose value does not matter here.
template <auto Reading, auto... Arguments>
RadioReturn read(RadioContext *context)
{
    static_cast<void>(Reading(context, Arguments...));
    return RADIO_ESUCCESS;
}

template <auto Function, auto... Arguments>
RadioReturn set(RadioContext *context)
{
    return Function(context, Arguments...);
}

// clang-format off

// All functions with a context but those that open, close, and load files.
const Call calls[] = {
    {"radioSelect",                  set<radioSelect, allPaths>},
    {"radioInit",                    set<radioInit, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7>},
    {"radioGetPlatformChipCount",    read<radioGetPlatformChipCount>},
    {"radioGetPlatformName",         read<radioGetPlatformName>},
    {"radioVersion",                 read<radioVersion>},
    {"radioGetDriverNames",          read<radioGetDriverNames>},
    {"radioSetTxFrequency",          set<radioSetTxFrequency, 2'655'000'000U>},
    {"radioSetTxChannel",            set<radioSetTxChannel, uint16_t{3100}>},
    {"radioSetTxState",              set<radioSetTxState, RADIO_STATE_ENABLE>},
    {"radioSetTxStateOfAntenna",     set<radioSetTxStateOfAntenna, transmitter, RADIO_STATE_ENABLE>},
    {"radioSetTxMaxPower",           set<radioSetTxMaxPower, int16_t{150}>},
    {"radioSetTxMaxPowerOfAntenna",  set<radioSetTxMaxPowerOfAntenna, transmitter, int16_t{150}>},
    {"radioSetTxDcOffset",           set<radioSetTxDcOffset, transmitter, int16_t{10}, int16_t{-10}>},
    {"radioSetTxPowerRegisters",     [](RadioContext *c) { return radioSetTxPowerRegisters(c, powers, 3); }},
    {"radioSetRxFrequency",          set<radioSetRxFrequency, 2'535'000'000U>},
    {"radioSetRxChannel",            set<radioSetRxChannel, uint16_t{21100}>},
    {"radioSetRxState",              set<radioSetRxState, RADIO_STATE_ENABLE>},
    {"radioSetRxStateOfAntenna",     set<radioSetRxStateOfAntenna, receiver, RADIO_STATE_ENABLE>},
    {"radioSetRxGain",               set<radioSetRxGain, int16_t{40}>},
    {"radioSetRxGainRegisters",      [](RadioContext *c) { return radioSetRxGainRegisters(c, gains, 3); }},
    {"radioSetRxGainMode, fast",     set<radioSetRxGainMode, RADIO_RX_GAIN_AGC_FAST>},
    {"radioSetLoopback",             set<radioSetLoopback, RADIO_TX_TO_RX_LOOPBACK>},
    {"radioGetTemperature",          read<radioGetTemperature>},
    {"radioGetRxRtwp",               read<radioGetRxRtwp>},
    {"radioGetRxRtwpIndBm",          read<radioGetRxRtwpIndBm>},
    {"radioGetRxRtwpOfAntenna",      read<radioGetRxRtwpOfAntenna, receiver>},
    {"radioGetRxRtwpOfAntennaIndBm", read<radioGetRxRtwpOfAntennaIndBm, receiver>},
    {"radioGetRxGainIndB",           read<radioGetRxGainIndB>},
    {"radioGetRxGainOfAntennaIndB",  read<radioGetRxGainOfAntennaIndB, receiver>},
    {"radioSetRxGainMode, manual",   set<radioSetRxGainMode, RADIO_RX_GAIN_MGC>},
    {"radioSpiRead",                 read<radioSpiRead, uint32_t{RX_RTWP}>},
    {"radioSpiWrite",                set<radioSpiWrite, uint32_t{SCRATCH}, 1>},
    {"radioSetOscillatorDacValue",   set<radioSetOscillatorDacValue, uint16_t{30000}>},
    {"radioGetOscillatorDacValue",   read<radioGetOscillatorDacValue>},
    {"radioGetOscillatorDacWidth",   read<radioGetOscillatorDacWidth>},
    {"radioGetDebugLevel",           read<radioGetDebugLevel>},
    {"radioSetDebugLevel",           set<radioSetDebugLevel, RADIO_DEBUG_NONE>},
    {"radioSetDebugFile",            set<radioSetDebugFile, nullptr>},
    {"radioGetIntegerFromCalibration", getInteger},
    {"radioGetStringFromCalibration", getString},
    {"radioReset",                   set<radioReset>},
    {"radioCpriInit",                set<radioCpriInit, RADIO_CPRI_RATE_5>},
};

// clang-format on

class Allocation : public ScenarioTest
{
protected:
    // Each call succeeds, and takes no memory, however often it comes.
    void expectNone()
    {
        init();
        ASSERT_EQ(radioLoadCalibrationFile(context, SOREL_DATA_DIR "/good.toml"), RADIO_ESUCCESS);
        for (const Call &row : calls) {
            RadioReturn status = RADIO_ESUCCESS;
            EXPECT_EQ(allocationsOf([&] {
                          for (int i = 0; i < 100; ++i)
                              status = row.call(context);
                      }),
                      0)
                << row.name;
            EXPECT_EQ(status, RADIO_ESUCCESS) << row.name;
        }
    }
};

TEST_F(Allocation, what_the_driver_takes_is_counted)
{
    EXPECT_GT(allocationsOf([] { radioClose(radioOpen()); }), 0);
}

TEST_F(Allocation, calls_that_set_and_get_take_no_memory)
{
    expectNone();
}

TEST_F(Allocation, nor_do_they_while_signals_come_and_faults_are_counted)
{
    openIn("[[signals]]\nfrequency = 2_535_000_000\npower = -40\nstart = 0.05\nend = 0.15\n"
           "[[signals]]\nfrequency = 2_540_000_000\nbandwidth = 9_000_000\npower = -70\n"
           "[[faults]]\nfirst = 10\ncalls = 50\ntemperature = 90\n"
           "[[faults]]\nprobability = 0.1\nstuck = 0x006\n"
           "[[faults]]\nfunction = \"radioGetTemperature\"\nprobability = 0.5\nresult = \"nan\"\n");
    ASSERT_NE(context, nullptr);
    expectNone();
}

TEST_F(Allocation, nor_do_calls_that_are_refused)
{
    const std::string name(1000, 'x');
    int32_t value = 0;
    EXPECT_EQ(allocationsOf([&] {
                  EXPECT_EQ(radioGetIntegerFromCalibration(context, name.c_str(), &value),
                            RADIO_EINVAL);
              }),
              0);
    EXPECT_EQ(allocationsOf([&] { EXPECT_EQ(radioSetRxGain(context, 40), RADIO_EERROR); }), 0);
    init();
    EXPECT_EQ(allocationsOf([&] { EXPECT_EQ(radioSetTxFrequency(context, 1), RADIO_EINVAL); }), 0);
    EXPECT_EQ(allocationsOf([&] { EXPECT_EQ(radioSpiWrite(context, UNMAPPED, 1), RADIO_EINVAL); }),
              0);
    EXPECT_EQ(allocationsOf([&] { EXPECT_EQ(radioSpiWrite(context, IDENTITY, 1), RADIO_ENOTSUP); }),
              0);
}

} // namespace

} // namespace sorel_tests
