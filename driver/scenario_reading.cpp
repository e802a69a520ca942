// SPDX-License-Identifier: LicenseRef-Proprietary
// Reading the text of a scenario file: its tables, one row a key.
#include "scenario_reading.h"

#include "conditions.h"
#include "decibel.h"
#include "fault_reading.h"
#include "parse_number.h"
#include "registers.h"

#include <tuple>

namespace sorel
{

namespace
{

constexpr std::size_t mostElements = 64; // of the signals, and of the faults
constexpr std::size_t mostRegisters = 256;

constexpr int64_t longestTime = 1'000'000'000; // in s: some 30 years

// ---- [[signals]] ----

constexpr int bothAntennas = 1 << RADIO_RX_ANTENNA_1 | 1 << RADIO_RX_ANTENNA_2;

void antenna(const Item &item, Signal &signal)
{
    if (const std::optional<int64_t> number = integerIn(item, 1, 2))
        signal.antennas = 1 << (*number - 1);
}

// Read last: it has to be later than the start.
void end(const Item &item, Signal &signal)
{
    billionths<&Signal::end, 0, longestTime>(item, signal);
    if (signal.end <= signal.start)
        note(item, "is not later than start");
}

// clang-format off

const Key<Signal> signalKeys[] = {
    {"frequency", integer<&Signal::frequency, 1, UINT32_MAX>,     "Hz",  true},
    {"bandwidth", integer<&Signal::bandwidth, 0, UINT32_MAX>,     "Hz"},
    {"power",     number<&Signal::power, -200, 30>,               "dBm", true},
    {"antenna",   antenna},
    {"start",     billionths<&Signal::start, 0, longestTime>,     "s"},
    {"end",       end,                                            "s"},
};

// clang-format on

Signal readSignal(Reading &reading, const toml::table &table)
{
    Signal signal = {0, 0, 0, bothAntennas, 0, forever};
    readKeys(reading, table, " in [[signals]]", signalKeys, signal);
    signal.power = milliwatts(signal.power); // read in dBm
    return signal;
}

// ---- [registers] ----

// Why a board that is switched on cannot be made to hold that value, at once or after radioInit();
// null where it can.
const char *whyNotHeld(const Platform &platform, const RegisterValue &wanted)
{
    if (const char *const why = whyNotWritable(platform, wanted.address))
        return why;
    const Scenario nothing;
    FrontEnd frontEnd = switchedOn(platform, nothing);
    const Outcome outcome = writeRegister(frontEnd, wanted.address, wanted.value);
    return outcome.status == RADIO_EINVAL ? outcome.cause : nullptr;
}

void readRegister(Reading &reading, const toml::key &key, const toml::node &node,
                  std::vector<RegisterValue> &registers)
{
    const std::string name = quoted(key.str());
    RegisterValue wanted = {0, 0};
    if (!parseNumber(key.str(), wanted.address))
        return note(reading, key.source(), name + " is not an address, such as 0x010");
    const std::optional<int64_t> value =
        integerIn({reading, name.c_str(), "", node}, INT32_MIN, UINT32_MAX);
    if (!value)
        return;
    wanted.value = static_cast<uint32_t>(*value);
    if (const char *const why = whyNotHeld(*reading.platform, wanted))
        return note(reading, key.source(), name + ": " + why);
    for (const RegisterValue &other : registers)
        if (other.address == wanted.address)
            return note(reading, key.source(), name + " is given a value twice");
    registers.push_back(wanted);
}

void registers(const Item &item, Scenario &scenario)
{
    const toml::table *const table = item.value.as_table();
    if (!table)
        return noteKind(item, "a table, [registers]");
    if (table->size() > mostRegisters)
        return note(item, "has more than 256 values");
    for (const auto &[key, node] : *table)
        readRegister(item.reading, key, node, scenario.registers);
    std::sort(scenario.registers.begin(), scenario.registers.end(),
              [](const auto &a, const auto &b) { return a.address < b.address; });
}

// ---- The file ----

const Choice<Clock> clocks[] = {{"calls", Clock::Calls}, {"wall", Clock::Wall}};

// Read first: addresses are the platform's.
void platform(const Item &item, Scenario &scenario)
{
    if (const auto value = choiceIn(item, platformChoices))
        scenario.platform = item.reading.platform = &platformOf(*value);
}

template <class Element>
void elements(const Item &item, std::vector<Element> &list,
              Element (*read)(Reading &reading, const toml::table &table))
{
    const toml::array *const array = item.value.as_array();
    if (!array)
        return noteKind(item, "a list of tables");
    if (array->size() > mostElements)
        return note(item, "are more than 64");
    for (const toml::node &node : *array) {
        const toml::table *const table = node.as_table();
        if (table)
            list.push_back(read(item.reading, *table));
        else
            noteKind({item.reading, item.name, "", node}, "a list of tables");
    }
}

void signals(const Item &item, Scenario &scenario)
{
    elements(item, scenario.signals, readSignal);
}

void faults(const Item &item, Scenario &scenario)
{
    elements(item, scenario.faults, readFault);
    const auto stuckCount =
        std::count_if(scenario.faults.begin(), scenario.faults.end(),
                      [](const Fault &fault) { return fault.effect == Effect::StuckRegister; });
    if (stuckCount > mostStuckRegisters)
        note(item, "have more than 8 stuck registers");
}

// clang-format off

const Key<Scenario> fileKeys[] = {
    {"platform",  platform},
    {"serial",    integer<&Scenario::serial, 0, UINT32_MAX>},
    {"ambient",   billionths<&Scenario::ambientNanodegrees, -55, 125>, "degC"},
    {"seed",      integer<&Scenario::seed, 0, INT64_MAX>},
    {"clock",     choice<&Scenario::clock, clocks>},
    {"lock_time", billionths<&Scenario::lockTime, 0, 10>,              "s"},
    {"signals",   signals},
    {"registers", registers},
    {"faults",    faults},
};

// clang-format on

} // namespace

std::vector<Mistake> readScenario(const std::string &text, const Platform &selected,
                                  Scenario &scenario)
{
    const toml::parse_result file = parseToml(text);
    if (!file)
        return {syntaxMistake(file.error())};
    Reading reading = {&selected, {}};
    readKeys(reading, file.table(), "", fileKeys, scenario);
    sortByPlace(reading.mistakes);
    return std::move(reading.mistakes);
}

} // namespace sorel
