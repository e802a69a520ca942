// SPDX-License-Identifier: LicenseRef-Proprietary
// Tables of a TOML file, key by key: one row a key, with what reads its value and the range. Every
// mistake is noted, none ends the reading. Included in source files only: toml++ is large.
#ifndef SOREL_DRIVER_TOML_KEYS_H
#define SOREL_DRIVER_TOML_KEYS_H

#include "parse_toml.h"
#include "scenario_reading.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

namespace sorel
{

// What is known while a file is read.
struct Reading {
    const Platform *platform; // of the board that the file is for
    std::vector<Mistake> mistakes;
};

// A key of the file with its value.
struct Item {
    Reading &reading;
    const char *name;
    const char *unit;
    const toml::node &value;
};

// A key that a table may have. read puts its value into the target, or notes what is wrong.
template <class Target>
struct Key {
    const char *name;
    void (*read)(const Item &item, Target &target);
    const char *unit = "";
    bool isRequired = false;
};

// What keeps a text from being TOML.
Mistake syntaxMistake(const toml::parse_error &error);

// In the order of the file.
void sortByPlace(std::vector<Mistake> &mistakes);

void note(Reading &reading, const toml::source_region &place, std::string text);

// Notes "NAME TEXT" at the value.
void note(const Item &item, const std::string &text);

// Notes that the value is of another kind.
void noteKind(const Item &item, const char *expected);

// A text of the file as messages show it: in quotes, and not at any length.
std::string quoted(std::string_view text);

// The value, if it is of that kind and in the range.
std::optional<int64_t> integerIn(const Item &item, int64_t lowest, int64_t highest);
std::optional<double> numberIn(const Item &item, int64_t lowest, int64_t highest);
std::optional<std::string> textIn(const Item &item, const char *expected);

// What a text of the file stands for.
template <class Value>
struct Choice {
    const char *name;
    Value value;
};

// "A", "B" or "C"
template <class Value, std::size_t count>
std::string listed(const Choice<Value> (&choices)[count])
{
    std::string list;
    for (std::size_t i = 0; i < count; ++i)
        list += (i == 0 ? "" : i + 1 == count ? " or " : ", ") + quoted(choices[i].name);
    return list;
}

template <class Value, std::size_t count>
std::optional<Value> choiceIn(const Item &item, const Choice<Value> (&choices)[count])
{
    const std::string list = listed(choices);
    const std::optional<std::string> text = textIn(item, list.c_str());
    if (!text)
        return {};
    for (const Choice<Value> &choice : choices)
        if (*text == choice.name)
            return choice.value;
    note(item, "is " + quoted(*text) + ", not " + list);
    return {};
}

// The platforms by the names that files have for them.
inline constexpr Choice<RadioPlatformSelectIndex> platformChoices[] = {
    {"default", RADIO_PLATFORM_DEFAULT}, {"talwin", RADIO_PLATFORM_TALWIN},
    {"merrik", RADIO_PLATFORM_MERRIK},   {"ostrav", RADIO_PLATFORM_OSTRAV},
    {"bellan", RADIO_PLATFORM_BELLAN},
};

template <class>
struct MemberOf;

template <class TheTarget, class TheValue>
struct MemberOf<TheValue TheTarget::*> {
    using Target = TheTarget;
    using Value = TheValue;
};

template <auto member>
using TargetOf = typename MemberOf<decltype(member)>::Target;

template <auto member>
using ValueOf = typename MemberOf<decltype(member)>::Value;

// Readers for the rows.

template <auto member, int64_t lowest, int64_t highest>
void integer(const Item &item, TargetOf<member> &target)
{
    if (const std::optional<int64_t> value = integerIn(item, lowest, highest))
        target.*member = static_cast<ValueOf<member>>(*value);
}

template <auto member, int64_t lowest, int64_t highest>
void number(const Item &item, TargetOf<member> &target)
{
    if (const std::optional<double> value = numberIn(item, lowest, highest))
        target.*member = *value;
}

// A number that is kept as an integer of 1e-9.
template <auto member, int64_t lowest, int64_t highest>
void billionths(const Item &item, TargetOf<member> &target)
{
    if (const std::optional<double> value = numberIn(item, lowest, highest))
        target.*member = std::llround(*value * 1e9);
}

template <auto member, auto &choices>
void choice(const Item &item, TargetOf<member> &target)
{
    if (const auto value = choiceIn(item, choices))
        target.*member = *value;
}

template <class Target, std::size_t count>
bool isKnown(std::string_view name, const Key<Target> (&keys)[count])
{
    return std::any_of(keys, keys + count, [&](const auto &key) { return name == key.name; });
}

template <class Target, std::size_t count>
void noteUnknown(Reading &reading, const toml::key &key, const char *where,
                 const Key<Target> (&keys)[count])
{
    std::string text = "unknown key " + quoted(key.str()) + where + "; the keys are ";
    for (const Key<Target> &known : keys)
        text.append(&known == keys ? "" : ", ").append(known.name);
    note(reading, key.source(), std::move(text));
}

// Reads a table's keys in the order of the rows. where names the table in messages.
template <class Target, std::size_t count>
void readKeys(Reading &reading, const toml::table &table, const char *where,
              const Key<Target> (&keys)[count], Target &target)
{
    for (const auto &[key, value] : table)
        if (!isKnown(key.str(), keys))
            noteUnknown(reading, key, where, keys);
    for (const Key<Target> &key : keys)
        if (const toml::node *const value = table.get(key.name))
            key.read({reading, key.name, key.unit, *value}, target);
        else if (key.isRequired)
            note(reading, table.source(), std::string(key.name) + " is missing" + where);
}

} // namespace sorel

#endif
