// SPDX-License-Identifier: LicenseRef-Proprietary
// What calls of the driver cost on the simulated board, straight from C++: one line for each kind
// of call, with the time that it is meant to stay below.
#include "sorel.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include <unistd.h>

namespace
{

constexpr double callGoal = 200;       // ns
constexpr double openGoal = 2'000'000; // ns, with a scenario that has to be read

constexpr uint32_t scratchRegister = 0x010;
constexpr uint32_t powerRegister = 0x046; // RTWP of the first receiver

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "driver_calls: %s\n", what);
    std::exit(EXIT_FAILURE);
}

void require(RadioReturn status)
{
    require(status == RADIO_ESUCCESS, "a call did not succeed");
}

// ---- Scenarios ----

struct Size {
    int signals;
    int faults;
};

constexpr Size commonSize = {16, 8};
constexpr Size mostSize = {64, 64};

// Signals all over band 7 that come one after the other, to stay; faults that stay away; and what a
// board holds when it is switched on. Other seeds make other texts.
std::string scenarioText(const Size &size, int seed)
{
    std::string text = "seed = " + std::to_string(seed) + "\nambient = 31.5\n[registers]\n" +
                       "0x010 = 0x1234\n0x011 = 30000\n0x032 = 150\n0x033 = 150\n" +
                       "0x042 = 40\n0x043 = 40\n0x044 = 2\n0x045 = 2\n";
    for (int i = 0; i < size.signals; ++i)
        text += "[[signals]]\nfrequency = " +
                std::to_string(2'503'000'000 + int64_t{i} * 17 % 64 * 1'000'000) +
                "\nbandwidth = 4_500_000\npower = -80.5\nstart = 0." + std::to_string(10 + i) +
                "\n";
    for (int i = 0; i < size.faults; ++i)
        text += "[[faults]]\nfunction = \"radioGetTemperature\"\nfirst = 1_000_000_000_000\n"
                "probability = 0.5\nresult = \"nan\"\n";
    return text;
}

// A scenario file, which is there as long as this object.
class ScenarioFile
{
public:
    explicit ScenarioFile(const Size &size, int seed = 1)
    {
        const int file = mkstemp(path.data());
        require(file >= 0 && close(file) == 0, "no temporary file can be made");
        std::ofstream(path) << scenarioText(size, seed);
    }

    ScenarioFile(const ScenarioFile &) = delete;
    ScenarioFile &operator=(const ScenarioFile &) = delete;

    ~ScenarioFile()
    {
        unsetenv("SOREL_SIM_SCENARIO");
        std::remove(path.c_str());
    }

    // What is opened from now on is in this scenario.
    void use() const
    {
        setenv("SOREL_SIM_SCENARIO", path.c_str(), 1);
    }

private:
    std::string path = "/tmp/driver_calls.XXXXXX";
};

// ---- Radios ----

// An open radio with two antennas and LTE 20 MHz in band 7, receivers on.
class Radio
{
public:
    Radio() : opened(radioOpen())
    {
        require(opened != nullptr, "the radio did not open");
        require(radioInit(opened, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7));
        require(radioSetRxFrequency(opened, 2'535'000'000));
    }

    Radio(const Radio &) = delete;
    Radio &operator=(const Radio &) = delete;

    ~Radio()
    {
        radioClose(opened);
    }

    RadioContext *context() const
    {
        return opened;
    }

    // The transmitters feed the receivers: a signal of -40 dBm.
    void feedBack() const
    {
        require(radioSetTxMaxPower(opened, 200));
        require(radioSetTxState(opened, RADIO_STATE_ENABLE));
        require(radioSetLoopback(opened, RADIO_TX_TO_RX_LOOPBACK));
    }

private:
    RadioContext *opened;
};

// Measures a call that is made with the values in turn.
template <class Call, class Value>
void measure(benchmark::State &state, RadioContext *context, Call call, Value one, Value other)
{
    require(call(context, one));
    require(call(context, other));
    bool turn = false;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(call(context, turn ? one : other));
        turn = !turn;
    }
}

// Measures a reading.
template <class Call>
void measure(benchmark::State &state, RadioContext *context, Call call)
{
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(call(context));
}

// ---- The calls ----

void setTxFrequency(benchmark::State &state)
{
    const Radio radio;
    measure(state, radio.context(), radioSetTxFrequency, 2'640'000'000U, 2'655'000'000U);
}

void setRxFrequency(benchmark::State &state)
{
    const Radio radio;
    measure(state, radio.context(), radioSetRxFrequency, 2'535'000'000U, 2'550'000'000U);
}

void setRxChannel(benchmark::State &state)
{
    const Radio radio;
    measure(state, radio.context(), radioSetRxChannel, uint16_t{21'100}, uint16_t{21'250});
}

void setRxGain(benchmark::State &state)
{
    const Radio radio;
    measure(state, radio.context(), radioSetRxGain, int16_t{30}, int16_t{50});
}

void setRxGainMode(benchmark::State &state)
{
    const Radio radio;
    measure(state, radio.context(), radioSetRxGainMode, RADIO_RX_GAIN_MGC, RADIO_RX_GAIN_AGC_SLOW);
}

void setTxMaxPower(benchmark::State &state)
{
    const Radio radio;
    measure(state, radio.context(), radioSetTxMaxPower, int16_t{100}, int16_t{150});
}

void setTxMaxPowerTransmitting(benchmark::State &state)
{
    const Radio radio;
    require(radioSetTxState(radio.context(), RADIO_STATE_ENABLE));
    measure(state, radio.context(), radioSetTxMaxPower, int16_t{100}, int16_t{150});
}

void setTxState(benchmark::State &state)
{
    const Radio radio;
    measure(state, radio.context(), radioSetTxState, RADIO_STATE_ENABLE, RADIO_STATE_DISABLE);
}

void setTxFrequencyRefused(benchmark::State &state)
{
    const Radio radio;
    require(radioSetTxFrequency(radio.context(), 1) == RADIO_EINVAL, "1 Hz was not refused");
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(radioSetTxFrequency(radio.context(), 1));
}

void spiWrite(benchmark::State &state)
{
    const Radio radio;
    int32_t value = 0;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(radioSpiWrite(radio.context(), scratchRegister, value ^= 1));
}

void spiRead(benchmark::State &state)
{
    const Radio radio;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(radioSpiRead(radio.context(), scratchRegister));
}

void spiReadPower(benchmark::State &state)
{
    const Radio radio;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(radioSpiRead(radio.context(), powerRegister));
}

void getTemperature(benchmark::State &state)
{
    const Radio radio;
    measure(state, radio.context(), radioGetTemperature);
}

void getTemperatureTransmitting(benchmark::State &state)
{
    const Radio radio;
    require(radioSetTxState(radio.context(), RADIO_STATE_ENABLE));
    measure(state, radio.context(), radioGetTemperature);
}

void getRxGain(benchmark::State &state)
{
    const Radio radio;
    measure(state, radio.context(), radioGetRxGainIndB);
}

void getRtwp(benchmark::State &state)
{
    const Radio radio;
    measure(state, radio.context(), radioGetRxRtwpIndBm);
}

void getRtwpTransmitting(benchmark::State &state)
{
    const Radio radio;
    require(radioSetTxState(radio.context(), RADIO_STATE_ENABLE));
    measure(state, radio.context(), radioGetRxRtwpIndBm);
}

void getRtwpFast(benchmark::State &state)
{
    const Radio radio;
    require(radioSetRxGainMode(radio.context(), RADIO_RX_GAIN_AGC_FAST));
    radio.feedBack();
    measure(state, radio.context(), radioGetRxRtwpIndBm);
}

void getRtwpSlow(benchmark::State &state)
{
    const Radio radio;
    require(radioSetRxGainMode(radio.context(), RADIO_RX_GAIN_AGC_SLOW));
    radio.feedBack();
    measure(state, radio.context(), radioGetRxRtwpIndBm);
}

// The signal jumps by 30 dB with each call, so that the gain control never comes to rest.
void setTxMaxPowerFast(benchmark::State &state)
{
    const Radio radio;
    require(radioSetRxGainMode(radio.context(), RADIO_RX_GAIN_AGC_FAST));
    radio.feedBack();
    measure(state, radio.context(), radioSetTxMaxPower, int16_t{-100}, int16_t{200});
}

void getRtwpAmong(benchmark::State &state, const Size &size)
{
    const ScenarioFile scenario(size);
    scenario.use();
    const Radio radio;
    require(radioSetRxGainMode(radio.context(), RADIO_RX_GAIN_AGC_FAST));
    measure(state, radio.context(), radioGetRxRtwpIndBm);
}

void getRtwpInScenario(benchmark::State &state)
{
    getRtwpAmong(state, commonSize);
}

void getRtwpInLargestScenario(benchmark::State &state)
{
    getRtwpAmong(state, mostSize);
}

void setRxFrequencyInScenario(benchmark::State &state)
{
    const ScenarioFile scenario(commonSize);
    scenario.use();
    const Radio radio;
    measure(state, radio.context(), radioSetRxFrequency, 2'535'000'000U, 2'550'000'000U);
}

void setRxFrequencyInLargestScenario(benchmark::State &state)
{
    const ScenarioFile scenario(mostSize);
    scenario.use();
    const Radio radio;
    measure(state, radio.context(), radioSetRxFrequency, 2'535'000'000U, 2'550'000'000U);
}

void init(benchmark::State &state)
{
    const Radio radio;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(radioInit(radio.context(), RADIO_CONF_MIMO,
                                           RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7));
}

void openAndClose(RadioContext *context)
{
    require(context != nullptr, "the radio did not open");
    radioClose(context);
}

void open(benchmark::State &state)
{
    for ([[maybe_unused]] auto _ : state)
        openAndClose(radioOpen());
}

// A file that has changed since the last radioOpen() has to be read again.
void openReading(benchmark::State &state, const Size &size)
{
    const ScenarioFile one(size, 1);
    const ScenarioFile other(size, 2);
    bool turn = false;
    for ([[maybe_unused]] auto _ : state) {
        (turn ? one : other).use();
        openAndClose(radioOpen());
        turn = !turn;
    }
}

void openInScenario(benchmark::State &state)
{
    openReading(state, commonSize);
}

void openInLargestScenario(benchmark::State &state)
{
    openReading(state, mostSize);
}

struct Row {
    const char *name;
    void (*run)(benchmark::State &state);
    double goal; // in ns
};

// clang-format off

// What only a scenario with faults makes slower comes last: such a process counts from then on.
const Row rows[] = {
    {"radioSetTxFrequency",                                setTxFrequency,                  callGoal},
    {"radioSetRxFrequency",                                setRxFrequency,                  callGoal},
    {"radioSetRxChannel",                                  setRxChannel,                    callGoal},
    {"radioSetRxGain",                                     setRxGain,                       callGoal},
    {"radioSetRxGainMode, manual and slow in turn",        setRxGainMode,                   callGoal},
    {"radioSetTxMaxPower",                                 setTxMaxPower,                   callGoal},
    {"radioSetTxMaxPower, transmitting",                   setTxMaxPowerTransmitting,       callGoal},
    {"radioSetTxMaxPower, fast gain control following",    setTxMaxPowerFast,               callGoal},
    {"radioSetTxState, on and off in turn",                setTxState,                      callGoal},
    {"radioSetTxFrequency, refused",                       setTxFrequencyRefused,           callGoal},
    {"radioInit",                                          init,                            callGoal},
    {"radioSpiWrite, scratch register",                    spiWrite,                        callGoal},
    {"radioSpiRead, scratch register",                     spiRead,                         callGoal},
    {"radioSpiRead, RTWP",                                 spiReadPower,                    callGoal},
    {"radioGetTemperature",                                getTemperature,                  callGoal},
    {"radioGetTemperature, transmitting",                  getTemperatureTransmitting,      callGoal},
    {"radioGetRxGainIndB",                                 getRxGain,                       callGoal},
    {"radioGetRxRtwpIndBm",                                getRtwp,                         callGoal},
    {"radioGetRxRtwpIndBm, transmitting",                  getRtwpTransmitting,             callGoal},
    {"radioGetRxRtwpIndBm, fast gain control, a signal",   getRtwpFast,                     callGoal},
    {"radioGetRxRtwpIndBm, slow gain control, a signal",   getRtwpSlow,                     callGoal},
    {"radioOpen and radioClose, no scenario",              open,                            openGoal},
    {"radioOpen and radioClose, 16 signals, 8 faults",     openInScenario,                  openGoal},
    {"radioOpen and radioClose, 64 signals, 64 faults",    openInLargestScenario,           openGoal},
    {"radioGetRxRtwpIndBm, 16 signals, 8 faults",          getRtwpInScenario,               callGoal},
    {"radioGetRxRtwpIndBm, 64 signals, 64 faults",         getRtwpInLargestScenario,        callGoal},
    {"radioSetRxFrequency, 16 signals, 8 faults",          setRxFrequencyInScenario,        callGoal},
    {"radioSetRxFrequency, 64 signals, 64 faults",         setRxFrequencyInLargestScenario, callGoal},
};

// clang-format on

// Prints the table: the time that the processor takes for a call, and the goal.
class Table : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override
    {
        std::printf("%-52s %14s %14s\n", "call", "ns per call", "goal in ns");
        return true;
    }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            const double goal = goalOf(run.run_name.function_name);
            const double time = run.GetAdjustedCPUTime();
            std::printf("%-52s %14.1f %14.0f%s\n", run.benchmark_name().c_str(), time, goal,
                        time < goal ? "" : "  missed");
        }
        std::fflush(stdout);
    }

private:
    static double goalOf(const std::string &name)
    {
        for (const Row &row : rows)
            if (name == row.name)
                return row.goal;
        return 0;
    }
};

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return EXIT_FAILURE;
    for (const Row &row : rows)
        benchmark::RegisterBenchmark(row.name, row.run);
    Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
    return EXIT_SUCCESS;
}
