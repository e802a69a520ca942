// SPDX-License-Identifier: LicenseRef-Proprietary
// The functions of the interface, each of which hands the call on to the driver behind, and traces
// it.
#include "driver_library.h"
#include "failing.h"
#include "trace/trace.h"

#include <cstdlib>

#include <unistd.h>

namespace sorel
{

namespace
{

enum Index {
#define FUNCTION(name) name##Index,
#include "../functions.inc"
#undef FUNCTION
    functionCount
};

extern Forwarded functions[functionCount];

constexpr const char *traceVariable = "SOREL_SIM_TRACE";

// Words of an array that are listed at most.
constexpr uint32_t mostWords = 65536;

Trace trace;

void start()
{
    const char *const path = setting(traceVariable);
    trace.start(traceVariable, path ? path : "-", mostWords);
    // The driver behind may be the simulated board, which would trace each call once more.
    unsetenv(traceVariable);
    loadDriver(functions);
}

// At the first call of the process.
void startOnce()
{
    static bool hasStarted = false;
    if (!hasStarted)
        start();
    hasStarted = true;
}

// Makes a call of the driver's function, where there is one.
template <class Result, class... Parameters>
auto callDriver(const Forwarded &function, Parameters... arguments)
{
    const auto target = reinterpret_cast<Result (*)(Parameters...)>(function.target);
    if constexpr (std::is_void_v<Result>) {
        if (target)
            target(arguments...);
        return Nothing{};
    } else {
        return target ? target(arguments...) : failing<Result>();
    }
}

template <Index index, class Result, class... Parameters>
Result forward(Parameters... arguments)
{
    startOnce();
    const auto call = [&] {
        return callDriver<Result, Parameters...>(functions[index], arguments...);
    };
    return static_cast<Result>(trace.record(functions[index].name, call, arguments...));
}

// What forwards the calls of a function of that type.
template <Index index, class Result, class... Parameters>
constexpr auto forwarderOf(Result (*)(Parameters...))
{
    return &forward<index, Result, Parameters...>;
}

Forwarded functions[functionCount] = {
#define FUNCTION(name)                                                                             \
    {#name, reinterpret_cast<void *>(forwarderOf<name##Index>(&(name))), nullptr},
#include "../functions.inc"
#undef FUNCTION
};

} // namespace

} // namespace sorel

using namespace sorel;

// C++ has no way to define a function by the type that sorel.h declares it with. An indirect
// function is defined by a declaration alone: the loader asks the resolver for its address.
extern "C" {
#define FUNCTION(name)                                                                             \
    decltype(&(name)) resolve_##name()                                                             \
    {                                                                                              \
        return forwarderOf<name##Index>(&(name));                                                  \
    }                                                                                              \
    decltype(name) name /* NOLINT(bugprone-macro-parentheses): GCC warns of them there */          \
        __attribute__((ifunc("resolve_" #name)));
#include "../functions.inc"
#undef FUNCTION
}
