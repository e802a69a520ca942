// SPDX-License-Identifier: LicenseRef-Proprietary
// The frame that every plain driver function is wrapped in. What a function takes and returns is
// read off its declaration in sorel.h at compile time.
//
// The order is fixed, because scripts can observe it: read the context; check the argument count;
// test the types of all arguments; convert them from the first to the last, with the sign test of
// unsigned ones; check the context; call the driver; check its status or push its result. Anything
// that a conversion sets off in Lua (a finaliser that closes the radio, say) leaves the context of
// this call as it was read.
#pragma once

#include "app/context.h"
#include "binding/radio/arguments.h"

#include <tuple>
#include <type_traits>
#include <utility>

// What a row of the catalogue says beyond the driver function's declaration.
struct WrapperOptions {
    int uncheckedArgument = 0;  // position, from 1, of an argument that takes any value; 0: none
    bool ignoresResult = false; // whatever the driver returns is dropped
};

// The parameters of a driver function behind the context, and whether it takes a context.
template <class Function>
struct DriverSignature;

template <class ResultType, class... ParameterTypes>
struct DriverSignature<ResultType (*)(RadioContext *, ParameterTypes...)> {
    static constexpr bool takesContext = true;
    using Result = ResultType;
    using Parameters = std::tuple<ParameterTypes...>;
};

template <class ResultType, class... ParameterTypes>
struct DriverSignature<ResultType (*)(ParameterTypes...)> {
    static constexpr bool takesContext = false;
    using Result = ResultType;
    using Parameters = std::tuple<ParameterTypes...>;
};

// Raises "NAME() did not return success" unless the status is success.
template <FixedString name>
void checkStatus(lua_State *L, RadioReturn status)
{
    static constexpr auto message = name + FixedString("() did not return success");
    if (status != RADIO_ESUCCESS) [[unlikely]] {
        raiseMessage(L, message.text);
    }
}

inline RadioContext *checkContext(lua_State *L, RadioContext *context)
{
    if (context == nullptr) [[unlikely]] {
        raiseMessage(L, noRadioContext);
    }
    return context;
}

// Pushes a driver function's result and returns the number of Lua results.
template <FixedString name, class Result>
int pushResult(lua_State *L, Result result)
{
    if constexpr (std::is_same_v<Result, RadioReturn>) {
        checkStatus<name>(L, result);
        return 0;
    } else if constexpr (std::is_enum_v<Result>) {
        // A driver header that does not fix the type of an enumeration leaves its sign open.
        lua_pushnumber(L, static_cast<std::int32_t>(result));
        return 1;
    } else if constexpr (std::is_same_v<Result, const char *>) {
        lua_pushstring(L, result);
        return 1;
    } else {
        lua_pushnumber(L, static_cast<lua_Number>(result));
        return 1;
    }
}

template <FixedString name, auto *function, WrapperOptions options>
class Wrapper
{
    using Signature = DriverSignature<decltype(function)>;
    using Parameters = typename Signature::Parameters;
    static constexpr std::size_t count = std::tuple_size_v<Parameters>;

    template <std::size_t i>
    using Parameter = std::tuple_element_t<i, Parameters>;

    template <std::size_t i>
    static auto kindOf()
    {
        if constexpr (static_cast<int>(i) + 1 == options.uncheckedArgument) {
            return Unchecked32Argument{};
        } else {
            return typename ArgumentKind<Parameter<i>>::Type{};
        }
    }

    template <std::size_t i>
    using Kind = decltype(kindOf<i>());

    template <std::size_t i>
    static void checkType(lua_State *L)
    {
        constexpr int position = static_cast<int>(i) + 1;
        if (!Kind<i>::accepts(L, position)) [[unlikely]] {
            raiseArgumentType(L, name.text, position, Kind<i>::typeName, position);
        }
    }

    template <std::size_t i>
    static Parameter<i> convert(lua_State *L)
    {
        return static_cast<Parameter<i>>(Kind<i>::convert(L, static_cast<int>(i) + 1));
    }

    template <class... Arguments>
    static int callDriver(lua_State *L, Arguments... arguments)
    {
        if constexpr (options.ignoresResult) {
            static_cast<void>(function(arguments...));
            return 0;
        } else {
            return pushResult<name>(L, function(arguments...));
        }
    }

    template <std::size_t... i>
    static int callWith(lua_State *L, RadioContext *context, std::index_sequence<i...>)
    {
        static_assert(std::is_trivially_destructible_v<Parameters>);
        (checkType<i>(L), ...);
        const Parameters arguments{convert<i>(L)...}; // braces: from the first to the last
        if constexpr (Signature::takesContext) {
            return callDriver(L, checkContext(L, context), std::get<i>(arguments)...);
        } else {
            return callDriver(L, std::get<i>(arguments)...);
        }
    }

public:
    static int call(lua_State *L)
    {
        RadioContext *const context = appContext;
        checkArgumentCount(L, name.text, static_cast<int>(count));
        return callWith(L, context, std::make_index_sequence<count>{});
    }
};

// True when every parameter of a driver function has an argument kind.
template <auto *function, WrapperOptions options>
constexpr bool takesKnownTypes()
{
    using Parameters = typename DriverSignature<decltype(function)>::Parameters;
    return []<std::size_t... i>(std::index_sequence<i...>)
    {
        return ((static_cast<int>(i) + 1 == options.uncheckedArgument ||
                 HasArgumentKind<std::tuple_element_t<i, Parameters>>)&&...);
    }
    (std::make_index_sequence<std::tuple_size_v<Parameters>>{});
}

// True when pushResult() knows the type of what a driver function returns, or nothing is pushed.
template <auto *function, WrapperOptions options>
constexpr bool returnsKnownType()
{
    using Result = typename DriverSignature<decltype(function)>::Result;
    return options.ignoresResult || std::is_enum_v<Result> || std::is_arithmetic_v<Result> ||
           std::is_same_v<Result, const char *>;
}
