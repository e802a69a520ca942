// SPDX-License-Identifier: LicenseRef-Proprietary
// Reading the text of a scenario file: its tables, one row a key.
#include "scenario_reading.h"

#include "conditions.h"
#include "functions.h"
#include "parse_number.h"
#include "registers.h"
#include "toml_keys.h"

#include <tuple>
#include <utility>

namespace sorel
{

namespace
{

constexpr std::size_t mostElements = 64; // of the signals, and of the faults
constexpr std::size_t mostRegisters = 256;

constexpr int64_t longestTime = 1'000'000'000; // in s: some 30 years

// A front end on which addresses and values can be tried.
FrontEnd trial(const Platform &platform)
{
    static const Scenario nothing;
    return switchedOn(platform, nothing);
}

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

Signal readElement(Reading &reading, const toml::table &table, const Signal *)
{
    Signal signal = {0, 0, 0, bothAntennas, 0, forever};
    readKeys(reading, table, " in [[signals]]", signalKeys, signal);
    return signal;
}

// ---- [registers] ----

// Why a board that is switched on cannot be made to hold that value, at once or after radioInit();
// null where it can.
const char *whyNotHeld(const Platform &platform, const RegisterValue &wanted)
{
    if (const char *const why = whyNotWritable(platform, wanted.address))
        return why;
    FrontEnd frontEnd = trial(platform);
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

// ---- [[faults]] ----

// What a fault can make a function answer.
struct Answer {
    ResultKind result; // of the function
    Effect effect;
    int64_t lowest; // of a number
    int64_t highest;
    const char *text;
};

// clang-format off

const Answer answers[] = {
    {ResultKind::Status,  Effect::Status,     0,         0,          "status = \"RADIO_EIO\" or another"},
    {ResultKind::Pointer, Effect::Null,       0,         0,          "result = \"null\""},
    {ResultKind::Float,   Effect::NotANumber, 0,         0,          "result = \"nan\""},
    {ResultKind::Int32,   Effect::Number,     INT32_MIN, INT32_MAX,  "result = -2147483648..2147483647"},
    {ResultKind::Uint32,  Effect::Number,     0,         UINT32_MAX, "result = 0..4294967295"},
};

const Choice<RadioReturn> statuses[] = {
    {"RADIO_EIO",    RADIO_EIO},
    {"RADIO_ENOTSUP", RADIO_ENOTSUP},
    {"RADIO_EINVAL", RADIO_EINVAL},
    {"RADIO_EAGAIN", RADIO_EAGAIN},
    {"RADIO_EERROR", RADIO_EERROR},
};

// Transmit and receive.
const Choice<std::pair<bool, bool>> synthesisers[] = {
    {"transmit", {true, false}},
    {"receive",  {false, true}},
    {"both",     {true, true}},
};

// clang-format on

void function(const Item &item, Fault &fault)
{
    const std::optional<std::string> name = textIn(item, "the name of a function");
    if (!name)
        return;
    if (functionNamed(*name))
        fault.function = *name;
    else
        note(item, "is " + quoted(*name) + ", not one of the driver's functions");
}

void probability(const Item &item, Fault &fault)
{
    if (const std::optional<double> share = numberIn(item, 0, 1))
        fault.likelihood =
            static_cast<uint64_t>(std::llround(*share * static_cast<double>(certain)));
}

// Whether the fault's function, read before, can give the answer that has been read.
void checkAnswer(const Item &item, const Fault &fault)
{
    const Function *const function = functionNamed(fault.function);
    if (!function)
        return;
    for (const Answer &answer : answers) {
        if (answer.result != function->result)
            continue;
        const bool fits = fault.effect == answer.effect && fault.number >= answer.lowest &&
                          fault.number <= answer.highest;
        if (!fits)
            note(item, "does not fit " + fault.function + ", which takes " + answer.text);
    }
}

void status(const Item &item, Fault &fault)
{
    const std::optional<RadioReturn> value = choiceIn(item, statuses);
    if (!value)
        return;
    fault.effect = Effect::Status;
    fault.status = *value;
    checkAnswer(item, fault);
}

void result(const Item &item, Fault &fault)
{
    const toml::value<std::string> *const text = item.value.as_string();
    const toml::value<int64_t> *const number = item.value.as_integer();
    if (text && **text == "null")
        fault.effect = Effect::Null;
    else if (text && **text == "nan")
        fault.effect = Effect::NotANumber;
    else if (number) {
        fault.effect = Effect::Number;
        fault.number = **number;
    } else if (text)
        return note(item, "is " + quoted(**text) + R"(, not "null", "nan" or an integer)");
    else
        return noteKind(item, R"("null", "nan" or an integer)");
    checkAnswer(item, fault);
}

void stuck(const Item &item, Fault &fault)
{
    const std::optional<int64_t> address = integerIn(item, 0, UINT32_MAX);
    if (!address)
        return;
    fault.effect = Effect::StuckRegister;
    fault.address = static_cast<uint32_t>(*address);
    uint32_t value = 0;
    FrontEnd frontEnd = trial(*item.reading.platform);
    const Outcome outcome = readRegister(frontEnd, fault.address, value);
    if (isRefused(outcome))
        note(item, std::string("cannot be: ") + outcome.cause);
}

void value(const Item &item, Fault &fault)
{
    const std::optional<int64_t> number = integerIn(item, INT32_MIN, UINT32_MAX);
    if (!number)
        return;
    fault.hasValue = true;
    fault.value = static_cast<uint32_t>(*number);
}

void synthesiser(const Item &item, Fault &fault)
{
    const auto ends = choiceIn(item, synthesisers);
    if (!ends)
        return;
    fault.effect = Effect::Synthesiser;
    std::tie(fault.transmit, fault.receive) = *ends;
}

void temperature(const Item &item, Fault &fault)
{
    fault.effect = Effect::Temperature;
    billionths<&Fault::nanodegrees, -55, 200>(item, fault);
}

// clang-format off

const Key<Fault> faultKeys[] = {
    {"function",    function},
    {"first",       integer<&Fault::first, 1, INT64_MAX>},
    {"calls",       integer<&Fault::calls, 1, INT64_MAX>},
    {"probability", probability},
    {"status",      status},
    {"result",      result},
    {"stuck",       stuck},
    {"value",       value},
    {"synthesiser", synthesiser},
    {"temperature", temperature, "degC"},
};

// clang-format on

constexpr const char *effectKeys[] = {"status", "result", "stuck", "synthesiser", "temperature"};

// What the keys of one fault have to do with each other.
void checkFault(Reading &reading, const toml::table &table)
{
    const auto has = [&](const char *key) { return table.contains(key); };
    const auto effects = std::count_if(std::begin(effectKeys), std::end(effectKeys), has);
    if (effects != 1)
        note(reading, table.source(),
             std::string(effects == 0 ? "no effect" : "more than one effect") +
                 " in [[faults]]; give one of status, result, stuck, synthesiser, temperature");
    if ((has("status") || has("result")) && !has("function"))
        note(reading, table.source(), "function is missing in [[faults]]");
    if (has("value") && !has("stuck"))
        note(reading, table.source(), "value goes with stuck only");
}

Fault readElement(Reading &reading, const toml::table &table, const Fault *)
{
    Fault fault;
    fault.line = table.source().begin.line;
    readKeys(reading, table, " in [[faults]]", faultKeys, fault);
    checkFault(reading, table);
    return fault;
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
void elements(const Item &item, std::vector<Element> &list)
{
    const toml::array *const array = item.value.as_array();
    if (!array)
        return noteKind(item, "a list of tables");
    if (array->size() > mostElements)
        return note(item, "are more than 64");
    for (const toml::node &node : *array) {
        const toml::table *const table = node.as_table();
        if (table)
            list.push_back(readElement(item.reading, *table, static_cast<Element *>(nullptr)));
        else
            noteKind({item.reading, item.name, "", node}, "a list of tables");
    }
}

void signals(const Item &item, Scenario &scenario)
{
    elements(item, scenario.signals);
}

void faults(const Item &item, Scenario &scenario)
{
    elements(item, scenario.faults);
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
