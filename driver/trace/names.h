// SPDX-License-Identifier: LicenseRef-Proprietary
// The names of enumerations and of their members, both ways. No list to keep: the compiler spells
// them in __PRETTY_FUNCTION__.
#ifndef SOREL_TRACE_NAMES_H
#define SOREL_TRACE_NAMES_H

#include <array>
#include <cstddef>
#include <cstdint>
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
        return {};
}

template <class Enumeration>
constexpr std::array<std::string_view, values>
    members = table<Enumeration>(std::make_index_sequence<values>());

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
