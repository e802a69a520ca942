// SPDX-License-Identifier: LicenseRef-Proprietary
// The frame that every plain driver function is wrapped in. What a function takes and returns is
// read off its declaration in sorel.h at compile time.
//
// The order is fixed, because scripts can observe it: read the context; check the argument count;
// test the types of all arguments; convert them from the first to the last, with the sign test of
// unsigned ones; check the context; call the driver; check its status or push its result. Anything
// that a conversion sets off in Lua (a finaliser that closes the radio, say) leaves the context of
// this call as it was read.
//
// Nearly all calls go a shorter way to the same end: what the kinds convert quickly needs no test
// before (arguments.h). Where one of the arguments is not converted quickly, nothing has happened
// yet that a script could observe, and all is done over in that order.
#pragma once

#include "app/context.h"
#include "binding/radio/arguments.h"
#include "binding/radio/results.h"

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

inline RadioContext *checkContext(lua_State *L, RadioContext *context)
{
    if (context == nullptr) [[unlikely]] {
        raiseNoContext(L);
    }
    return context;
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

    template <std::size_t... i>
    static auto valuesOf(std::index_sequence<i...>) -> std::tuple<typename Kind<i>::Value...>;

    using Values = decltype(valuesOf(std::make_index_sequence<count>{}));

    static constexpr auto positions = std::make_index_sequence<count>{};

    // Whether the conversion of an argument can run Lua code, which can close the radio.
    static constexpr bool runsLua = []<std::size_t... i>(std::index_sequence<i...>)
    {
        return (Kind<i>::runsLua || ...);
    }
    (positions);

    // The order of the checks and conversions can be observed where one of them has effects, so the
    // quick way is only gone where no argument stands behind one whose conversion has any.
    static constexpr bool hasQuickWay = []<std::size_t... i>(std::index_sequence<i...>)
    {
        return ((!Kind<i>::runsLua || i + 1 == count) && ...);
    }
    (positions);

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
    static int callDriverWith(lua_State *L, [[maybe_unused]] RadioContext *context,
                              [[maybe_unused]] const Values &values, std::index_sequence<i...>)
    {
        if constexpr (Signature::takesContext) {
            return callDriver(L, checkContext(L, context),
                              static_cast<Parameter<i>>(std::get<i>(values))...);
        } else {
            return callDriver(L, static_cast<Parameter<i>>(std::get<i>(values))...);
        }
    }

    template <std::size_t i>
    static void checkType(lua_State *L)
    {
        constexpr int position = static_cast<int>(i) + 1;
        if (!Kind<i>::accepts(L, position)) {
            raiseArgumentType(L, name.text, position, Kind<i>::typeName, position);
        }
    }

    template <std::size_t... i>
    static Values checkAndConvert([[maybe_unused]] lua_State *L, std::index_sequence<i...>)
    {
        (checkType<i>(L), ...);
        return {Kind<i>::convert(L, static_cast<int>(i) + 1)...}; // braces: from first to last
    }

    // The whole frame, step by step. Nothing before it has run Lua code, so that the context is
    // still that at the call's entry.
    [[gnu::cold, gnu::noinline]] static int callStepByStep(lua_State *L)
    {
        RadioContext *const context = appContext;
        checkArgumentCount(L, name.text, static_cast<int>(count));
        const Values values = checkAndConvert(L, positions);
        return callDriverWith(L, context, values, positions);
    }

    template <std::size_t... i>
    static bool convertQuickly([[maybe_unused]] lua_State *L, [[maybe_unused]] Values &values,
                               std::index_sequence<i...>)
    {
        return (Kind<i>::convertQuickly(L, static_cast<int>(i) + 1, std::get<i>(values)) && ...);
    }

public:
    static int call(lua_State *L)
    {
        static_assert(std::is_trivially_destructible_v<Values>);
        if constexpr (!hasQuickWay) {
            return callStepByStep(L);
        }
        // Where no Lua code runs meanwhile, the context is the same at the end, and reading it only
        // there leaves a register free.
        RadioContext *const contextAtEntry = runsLua ? appContext : nullptr;
        Values values;
        if (lua_gettop(L) != static_cast<int>(count) || !convertQuickly(L, values, positions))
            [[unlikely]] {
            return callStepByStep(L);
        }
        return callDriverWith(L, runsLua ? contextAtEntry : appContext, values, positions);
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
