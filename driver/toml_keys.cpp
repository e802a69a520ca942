// SPDX-License-Identifier: LicenseRef-Proprietary
// Tables of a TOML file, key by key: the values that need no more than a kind and a range.
#include "toml_keys.h"

#include <charconv>
#include <tuple>
#include <utility>

namespace sorel
{

namespace
{

const char *kindOf(const toml::node &value)
{
    switch (value.type()) {
    case toml::node_type::table:
        return "a table";
    case toml::node_type::array:
        return "a list";
    case toml::node_type::string:
        return "a text";
    case toml::node_type::integer:
        return "an integer";
    case toml::node_type::floating_point:
        return "a float";
    case toml::node_type::boolean:
        return "a boolean";
    default:
        return "a date or a time";
    }
}

// In C's own notation, whatever the process has for its language.
template <class Number>
std::string shown(Number number)
{
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

template <class Number>
void noteRange(const Item &item, Number number, int64_t lowest, int64_t highest)
{
    const std::string unit = *item.unit ? ' ' + std::string(item.unit) : "";
    note(item, "is " + shown(number) + unit + ", not " + shown(lowest) + ".." + shown(highest));
}

} // namespace

Mistake syntaxMistake(const toml::parse_error &error)
{
    const toml::source_position place = error.source().begin;
    return {place.line, place.column, std::string(error.description())};
}

void sortByPlace(std::vector<Mistake> &mistakes)
{
    std::stable_sort(mistakes.begin(), mistakes.end(), [](const Mistake &a, const Mistake &b) {
        return std::tie(a.line, a.column) < std::tie(b.line, b.column);
    });
}

void note(Reading &reading, const toml::source_region &place, std::string text)
{
    reading.mistakes.push_back({place.begin.line, place.begin.column, std::move(text)});
}

void note(const Item &item, const std::string &text)
{
    note(item.reading, item.value.source(), item.name + (' ' + text));
}

void noteKind(const Item &item, const char *expected)
{
    note(item, std::string("is ") + kindOf(item.value) + ", not " + expected);
}

std::string quoted(std::string_view text)
{
    constexpr std::size_t longest = 40;
    if (text.size() <= longest)
        return '"' + std::string(text) + '"';
    std::size_t length = longest;
    while ((text[length] & 0xc0) == 0x80) // in the middle of a character of UTF-8
        --length;
    return '"' + std::string(text.substr(0, length)) + "...\"";
}

std::optional<int64_t> integerIn(const Item &item, int64_t lowest, int64_t highest)
{
    const toml::value<int64_t> *const value = item.value.as_integer();
    if (!value)
        return noteKind(item, "an integer"), std::nullopt;
    if (**value >= lowest && **value <= highest)
        return **value;
    return noteRange(item, **value, lowest, highest), std::nullopt;
}

std::optional<double> numberIn(const Item &item, int64_t lowest, int64_t highest)
{
    if (item.value.is_integer()) {
        const std::optional<int64_t> integer = integerIn(item, lowest, highest);
        return integer ? std::optional(static_cast<double>(*integer)) : std::nullopt;
    }
    const toml::value<double> *const value = item.value.as_floating_point();
    if (!value)
        return noteKind(item, "a number"), std::nullopt;
    if (**value >= static_cast<double>(lowest) && **value <= static_cast<double>(highest))
        return **value;
    return noteRange(item, **value, lowest, highest), std::nullopt;
}

std::optional<std::string> textIn(const Item &item, const char *expected)
{
    const toml::value<std::string> *const value = item.value.as_string();
    if (!value)
        return noteKind(item, expected), std::nullopt;
    return **value;
}

} // namespace sorel
