// SPDX-License-Identifier: LicenseRef-Proprietary
// The argument kinds. A kind has
//   typeName          the type name that the type error quotes
//   Value             what it is converted to
//   accepts(L, i)     the type test of the Lua value at index i, without side effects
//   convert(L, i)     the value for the driver; may raise
//   convertQuickly(L, i, value)
//                     does for what scripts usually pass, in fewer steps, what the two before do;
//                     never raises. Where it gives false, the argument is still as it was, whatever
//                     is wrong or unusual about it.
//   runsLua           whether a conversion may run Lua code: the collector's finalisers
#pragma once

#include "binding/radio/errors.h"
#include "binding/radio/fixed_string.h"
#include "binding/radio/numbers.h"
#include "binding/runtime/pointer_objects.h"

#include <sorel.h>

// Numbers, and strings that Lua reads as numbers.
struct NumberTest {
    static constexpr bool runsLua = false;

    static bool accepts(lua_State *L, int index)
    {
        return lua_isnumber(L, index) != 0;
    }
};

// Any value; what is no number reads as 0.
struct NoTest {
    static constexpr bool runsLua = false;

    static bool accepts(lua_State *, int)
    {
        return true;
    }
};

// The quick conversions of numbers rest on this: lua_tonumber() has no side effects, and gives 0
// for all that is no number. So whatever it gives but 0 has passed the type test. Looked at first
// are the numbers from 1 on, by one comparison at each end of what can be converted; the nesting
// keeps it at that, as not-a-number is not asked about twice. What is left is cut to 0, and the
// only thing whose type is asked about.

struct Unsigned32Argument : NumberTest {
    static constexpr char typeName[] = "uint32_t";
    using Value = std::uint32_t;

    static Value convert(lua_State *L, int index)
    {
        const lua_Number number = lua_tonumber(L, index);
        if (!(number >= 0)) { // so that not-a-number is refused too
            raiseMessage(L, negativeNumber);
        }
        return toUnsigned32(number);
    }

    static bool convertQuickly(lua_State *L, int index, Value &value)
    {
        const lua_Number number = lua_tonumber(L, index);
        if (number >= 1) [[likely]] {
            if (number >= endOfUnsigned32) [[unlikely]] {
                return false;
            }
            value = static_cast<Value>(number);
            return true;
        }
        value = 0;
        return number >= 0 && accepts(L, index);
    }
};

// The wrapper keeps the low 16 bits.
struct Unsigned16Argument : Unsigned32Argument {
    static constexpr char typeName[] = "uint16_t";
};

// Signed integers, of which the wrapper keeps the low bits; and enumerations, any member or none,
// as which values an enumeration has is the driver's to judge.
template <FixedString quotedName, class TypeTest = NumberTest>
struct Signed32Argument : TypeTest {
    static constexpr const char *typeName = quotedName.text;
    using Value = std::int32_t;

    static Value convert(lua_State *L, int index)
    {
        return toSigned32(lua_tonumber(L, index));
    }

    static bool convertQuickly(lua_State *L, int index, Value &value)
    {
        const lua_Number number = lua_tonumber(L, index);
        if (number >= 1) [[likely]] {
            if (number >= endOfSigned32) [[unlikely]] {
                return false;
            }
            value = static_cast<Value>(number);
            return true;
        }
        if (number <= -1) {
            value = toNegativeSigned32(number);
            return true;
        }
        value = 0; // not-a-number too
        return TypeTest::accepts(L, index);
    }
};

using Unchecked32Argument = Signed32Argument<"", NoTest>;

struct TextArgument {
    static constexpr char typeName[] = "char const *";
    static constexpr bool runsLua = true; // the text of a number is a new one
    using Value = const char *;

    static bool accepts(lua_State *L, int index)
    {
        return SWIG_Lua_IsStringOrNil(L, index) != 0;
    }

    static Value convert(lua_State *L, int index)
    {
        return lua_tostring(L, index);
    }

    // Null is given for what is no text and no number, before anything is done to it.
    static bool convertQuickly(lua_State *L, int index, Value &value)
    {
        value = lua_tostring(L, index);
        return value != nullptr || lua_isnil(L, index);
    }
};

// The kind of a driver function's parameter, by its type. The quoted names of two enumerations
// carry the word "enum"; scripts may depend on the messages, so that stays.
// clang-format off
template <class Parameter> struct ArgumentKind;
template <> struct ArgumentKind<std::uint32_t>            { using Type = Unsigned32Argument; };
template <> struct ArgumentKind<std::uint16_t>            { using Type = Unsigned16Argument; };
template <> struct ArgumentKind<std::int16_t>             { using Type = Signed32Argument<"int16_t">; };
template <> struct ArgumentKind<const char *>             { using Type = TextArgument; };
template <> struct ArgumentKind<RadioTxAntenna>           { using Type = Signed32Argument<"RadioTxAntenna">; };
template <> struct ArgumentKind<RadioRxAntenna>           { using Type = Signed32Argument<"RadioRxAntenna">; };
template <> struct ArgumentKind<RadioState>               { using Type = Signed32Argument<"RadioState">; };
template <> struct ArgumentKind<RadioRxGainMode>          { using Type = Signed32Argument<"RadioRxGainMode">; };
template <> struct ArgumentKind<RadioLoopback>            { using Type = Signed32Argument<"RadioLoopback">; };
template <> struct ArgumentKind<RadioCpriRate>            { using Type = Signed32Argument<"RadioCpriRate">; };
template <> struct ArgumentKind<RadioConf>                { using Type = Signed32Argument<"RadioConf">; };
template <> struct ArgumentKind<RadioMode>                { using Type = Signed32Argument<"RadioMode">; };
template <> struct ArgumentKind<RadioBand>                { using Type = Signed32Argument<"RadioBand">; };
template <> struct ArgumentKind<RadioDebug>               { using Type = Signed32Argument<"RadioDebug">; };
template <> struct ArgumentKind<RadioPlatformSelectIndex> { using Type = Signed32Argument<"enum RadioPlatformSelectIndex">; };
template <> struct ArgumentKind<RadioSelectIndex>         { using Type = Signed32Argument<"enum RadioSelectIndex">; };
// clang-format on

template <class Parameter>
concept HasArgumentKind = requires
{
    typename ArgumentKind<Parameter>::Type;
};
