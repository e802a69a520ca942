// SPDX-License-Identifier: LicenseRef-Proprietary
// The argument kinds. A kind has
//   typeName          the type name that the type error quotes
//   accepts(L, i)     the type test of the Lua value at index i, without side effects
//   convert(L, i)     the value for the driver; may raise
#pragma once

#include "binding/radio/errors.h"
#include "binding/radio/fixed_string.h"
#include "binding/radio/numbers.h"
#include "binding/runtime/pointer_objects.h"

#include <sorel.h>

// Numbers, and strings that Lua reads as numbers.
struct NumberArgument {
    static bool accepts(lua_State *L, int index)
    {
        return lua_isnumber(L, index) != 0;
    }
};

struct Unsigned32Argument : NumberArgument {
    static constexpr char typeName[] = "uint32_t";

    static std::uint32_t convert(lua_State *L, int index)
    {
        const lua_Number value = lua_tonumber(L, index);
        if (!(value >= 0)) { // so that not-a-number is refused too
            raiseMessage(L, negativeNumber);
        }
        return toUnsigned32(value);
    }
};

struct Unsigned16Argument : NumberArgument {
    static constexpr char typeName[] = "uint16_t";

    static std::uint16_t convert(lua_State *L, int index)
    {
        return static_cast<std::uint16_t>(Unsigned32Argument::convert(L, index));
    }
};

struct Signed16Argument : NumberArgument {
    static constexpr char typeName[] = "int16_t";

    static std::int16_t convert(lua_State *L, int index)
    {
        return static_cast<std::int16_t>(toSigned32(lua_tonumber(L, index)));
    }
};

// Any member or none: which values an enumeration has is the driver's to judge.
template <FixedString quotedName>
struct EnumerationArgument : NumberArgument {
    static constexpr const char *typeName = quotedName.text;

    static std::int32_t convert(lua_State *L, int index)
    {
        return toSigned32(lua_tonumber(L, index));
    }
};

struct TextArgument {
    static constexpr char typeName[] = "char const *";

    static bool accepts(lua_State *L, int index)
    {
        return SWIG_Lua_IsStringOrNil(L, index) != 0;
    }

    static const char *convert(lua_State *L, int index)
    {
        return lua_tostring(L, index);
    }
};

// Any value; what is no number reads as 0.
struct Unchecked32Argument {
    static constexpr char typeName[] = "";

    static bool accepts(lua_State *, int)
    {
        return true;
    }

    static std::int32_t convert(lua_State *L, int index)
    {
        return toSigned32(lua_tonumber(L, index));
    }
};

// The kind of a driver function's parameter, by its type. The quoted names of two enumerations
// carry the word "enum"; scripts may depend on the messages, so that stays.
// clang-format off
template <class Parameter> struct ArgumentKind;
template <> struct ArgumentKind<std::uint32_t>            { using Type = Unsigned32Argument; };
template <> struct ArgumentKind<std::uint16_t>            { using Type = Unsigned16Argument; };
template <> struct ArgumentKind<std::int16_t>             { using Type = Signed16Argument; };
template <> struct ArgumentKind<const char *>             { using Type = TextArgument; };
template <> struct ArgumentKind<RadioTxAntenna>           { using Type = EnumerationArgument<"RadioTxAntenna">; };
template <> struct ArgumentKind<RadioRxAntenna>           { using Type = EnumerationArgument<"RadioRxAntenna">; };
template <> struct ArgumentKind<RadioState>               { using Type = EnumerationArgument<"RadioState">; };
template <> struct ArgumentKind<RadioRxGainMode>          { using Type = EnumerationArgument<"RadioRxGainMode">; };
template <> struct ArgumentKind<RadioLoopback>            { using Type = EnumerationArgument<"RadioLoopback">; };
template <> struct ArgumentKind<RadioCpriRate>            { using Type = EnumerationArgument<"RadioCpriRate">; };
template <> struct ArgumentKind<RadioConf>                { using Type = EnumerationArgument<"RadioConf">; };
template <> struct ArgumentKind<RadioMode>                { using Type = EnumerationArgument<"RadioMode">; };
template <> struct ArgumentKind<RadioBand>                { using Type = EnumerationArgument<"RadioBand">; };
template <> struct ArgumentKind<RadioDebug>               { using Type = EnumerationArgument<"RadioDebug">; };
template <> struct ArgumentKind<RadioPlatformSelectIndex> { using Type = EnumerationArgument<"enum RadioPlatformSelectIndex">; };
template <> struct ArgumentKind<RadioSelectIndex>         { using Type = EnumerationArgument<"enum RadioSelectIndex">; };
// clang-format on

template <class Parameter>
concept HasArgumentKind = requires
{
    typename ArgumentKind<Parameter>::Type;
};
