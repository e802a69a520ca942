// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tests/binding/radio/differential/memory_driver.h"

#include <type_traits>

Answers answers;
DriverCalls driverCalls;

namespace
{

template <class Argument>
std::uint64_t bitsOf(Argument argument)
{
    if constexpr (std::is_same_v<Argument, const char *>) {
        driverCalls.text = argument != nullptr ? argument : "";
        return argument != nullptr;
    } else if constexpr (std::is_pointer_v<Argument>) {
        return reinterpret_cast<std::uintptr_t>(argument);
    } else {
        return static_cast<std::uint64_t>(static_cast<std::int64_t>(argument));
    }
}

template <class Result>
Result answer()
{
    if constexpr (std::is_same_v<Result, RadioReturn>) {
        return answers.status;
    } else if constexpr (std::is_same_v<Result, float>) {
        return answers.reading;
    } else if constexpr (std::is_same_v<Result, std::int32_t>) {
        return answers.integer;
    } else if constexpr (std::is_same_v<Result, std::uint32_t>) {
        return answers.word;
    } else if constexpr (std::is_same_v<Result, const char *>) {
        return answers.text;
    } else if constexpr (std::is_same_v<Result, char **>) {
        return answers.names;
    } else {
        return answers.opened;
    }
}

enum Index {
#define FUNCTION(name) name##Index,
#include "driver/functions.inc"
#undef FUNCTION
    functionCount
};

constexpr const char *names[functionCount] = {
#define FUNCTION(name) #name,
#include "driver/functions.inc"
#undef FUNCTION
};

template <Index index, class Result, class... Parameters>
Result remember(Parameters... arguments)
{
    ++driverCalls.count;
    driverCalls.function = names[index];
    driverCalls.arguments = {bitsOf(arguments)...};
    return answer<Result>();
}

template <Index index, class Result, class... Parameters>
constexpr auto rememberingOf(Result (*)(Parameters...))
{
    return &remember<index, Result, Parameters...>;
}

} // namespace

// Indirect functions, as C++ has no other way to define one by its declaration alone; see
// driver/forwarding. Defined in the executable, they come before the driver's that it is linked
// with.
extern "C" {
#define FUNCTION(name)                                                                             \
    decltype(&(name)) resolve_##name()                                                             \
    {                                                                                              \
        return rememberingOf<name##Index>(&(name));                                                \
    }                                                                                              \
    decltype(name) name /* NOLINT(bugprone-macro-parentheses): not a declarator of GCC's */        \
        __attribute__((ifunc("resolve_" #name)));
#include "driver/functions.inc"
#undef FUNCTION
}
