// SPDX-License-Identifier: LicenseRef-Proprietary
// Reading a fault of a scenario file: one row a key, and what the keys have to do with each other.
#include "fault_reading.h"

#include "functions.h"
#include "registers.h"

#include <tuple>
#include <utility>

namespace sorel
{

namespace
{

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
    const Scenario nothing;
    FrontEnd frontEnd = switchedOn(*item.reading.platform, nothing);
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

} // namespace

Fault readFault(Reading &reading, const toml::table &table)
{
    Fault fault;
    fault.line = table.source().begin.line;
    readKeys(reading, table, " in [[faults]]", faultKeys, fault);
    checkFault(reading, table);
    return fault;
}

} // namespace sorel
