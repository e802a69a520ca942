// SPDX-License-Identifier: LicenseRef-Proprietary
// The names of enumerations and of their members, both ways. No list to keep: the compiler spells
// them in __PRETTY_FUNCTION__.
#ifndef SOREL_TRACE_NAMES_H
#define SOREL_TRACE_NAMES_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string_view>
#include <type_traits>
#include <utility>

namespace sorel
{

namespace spelling
{

// The range of values that names are looked for in: all that the interface's enumerations have.
constexpr int lowest = -1;
constexpr int highest = 255;
constexpr std::size_t values = highest - lowest + 1;

// What stands for the template's parameter in a function's signature.
constexpr std::string_view argument(std::string_view signature, std::string_view parameter)
{
    const std::size_t begin = signature.find(parameter) + parameter.size();
    return signature.substr(begin, signature.find_first_of(";]", begin) - begin);
}

// As "RADIO_BAND_7"; "(RadioBand)26" where there is no such member.
template <auto member>
constexpr std::string_view ofMember()
{
    return argument(__PRETTY_FUNCTION__, "member = ");
}

template <class Type>
constexpr std::string_view ofType()
{
    return argument(__PRETTY_FUNCTION__, "Type = ");
}

// The COUNT and INVALID members share a value, and mean no more than that number.
template <auto member>
constexpr std::string_view ofRealMember()
{
    constexpr std::string_view spelled = ofMember<member>();
    if (spelled.starts_with('(') || spelled.ends_with("_COUNT") || spelled.ends_with("_INVALID"))
        return {};
    return spelled;
}

template <class Enumeration, std::size_t... indices>
constexpr std::array<std::string_view, values> table(std::index_sequence<indices...>)
{
    // Where the underlying type is not fixed, a value beyond the members may not even be formed.
    if constexpr (requires { Enumeration{0}; })
        return {ofRealMember<static_cast<Enumeration>(lowest + static_cast<int>(indices))>()...};
    else
        return {((void)indices, std::string_view())...};
}

// The names of all members in one text. It has no pointers, which the loader would have to set in
// each process that starts.
template <std::size_t length>
struct Names {
    std::array<uint16_t, values + 1> begins{}; // of each value's, and the end of the last
    std::array<char, length> text{};

    constexpr std::string_view operator[](std::size_t index) const
    {
        return {text.data() + begins[index], std::size_t(begins[index + 1] - begins[index])};
    }
};

template <class Enumeration>
constexpr auto names()
{
    constexpr auto spelled = table<Enumeration>(std::make_index_sequence<values>());
    constexpr std::size_t length =
        std::accumulate(spelled.begin(), spelled.end(), std::size_t{0},
                        [](std::size_t sum, std::string_view name) { return sum + name.size(); });
    static_assert(length <= UINT16_MAX);

    Names<length> packed;
    std::size_t end = 0;
    for (std::size_t i = 0; i < values; ++i) {
        for (const char character : spelled[i])
            packed.text[end++] = character;
        packed.begins[i + 1] = static_cast<uint16_t>(end);
    }
    return packed;
}

template <class Enumeration>
inline constexpr auto members = names<Enumeration>();

} // namespace spelling

// The name of an enumeration.
template <class Enumeration>
constexpr std::string_view typeName()
{
    static_assert(std::is_enum_v<Enumeration>);
    return spelling::ofType<Enumeration>();
}

// The name of a member, NULL members included; empty for a value that names none, or only the COUNT
// or INVALID one.
template <class Enumeration>
constexpr std::string_view nameOf(Enumeration value)
{
    static_assert(std::is_enum_v<Enumeration>);
    const auto number = static_cast<int64_t>(value);
    if (number < spelling::lowest || number > spelling::highest)
        return {};
    return spelling::members<Enumeration>[static_cast<std::size_t>(number - spelling::lowest)];
}

// Stores the member of that name, one that nameOf() gives. False, with nothing stored, where there
// is none.
template <class Enumeration>
constexpr bool valueOf(std::string_view name, Enumeration &value)
{
    static_assert(std::is_enum_v<Enumeration>);
    for (std::size_t i = 0; i < spelling::values; ++i)
        if (!name.empty() && spelling::members<Enumeration>[i] == name) {
            value = static_cast<Enumeration>(spelling::lowest + static_cast<int>(i));
            return true;
        }
    return false;
}

} // namespace sorel

#endif
