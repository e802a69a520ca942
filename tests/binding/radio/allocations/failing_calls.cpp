// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tests/binding/radio/allocations/failing_calls.h"

#include "app/context.h"
#include "binding/radio/types.h"
#include "binding/radio_wrap.h"
#include "binding/runtime/pointer_objects.h"
#include "tests/binding/radio/differential/memory_driver.h"

#include <gtest/gtest.h>

namespace
{

void *allocate(std::size_t)
{
    return nullptr;
}

void release(void *)
{
}

void push(lua_State *L, void *pointer, TypePosition type, const char *global)
{
    SWIG_Lua_PushPointer(L, pointer, radioTypes[type], 0);
    lua_setglobal(L, global);
}

int withoutRadio(lua_State *)
{
    appContext = nullptr;
    return 0;
}

void load(lua_State *L, const std::string &text)
{
    if (luaL_loadstring(L, text.c_str()) != 0) {
        ADD_FAILURE() << lua_tostring(L, -1);
    }
}

lua_State *newState(const std::string &before)
{
    static RadioContext context;
    appContext = &context;
    lua_State *const L = newStateOfFailingMemory();
    luaL_openlibs(L);
    radioModuleOpen(L);
    push(L, reinterpret_cast<void *>(allocate), mallocFunctionType, "allocate");
    push(L, reinterpret_cast<void *>(release), freeFunctionType, "release");
    lua_register(L, "withoutRadio", withoutRadio);
    load(L, "for name, value in pairs(radio) do _G[name] = value end " + before);
    EXPECT_EQ(lua_pcall(L, 0, 0, 0), 0) << lua_tostring(L, -1);
    return L;
}

// Calls the function on top of the stack; its outcome is there afterwards.
void call(lua_State *L)
{
    lua_pcall(L, 0, 1, 0);
}

std::string popOutcome(lua_State *L)
{
    lua_getglobal(L, "tostring");
    lua_insert(L, -2);
    lua_call(L, 1, 1);
    std::string outcome = lua_tostring(L, -1);
    lua_pop(L, 1);
    return outcome;
}

Attempt runWithFailing(long number, const std::string &text, const std::string &before)
{
    Attempt attempt = {};
    resetMemory();
    lua_State *const L = newState(before);
    load(L, text);
    lua_pushvalue(L, -1);
    driverCalls.count = 0;
    failAllocation(number);
    call(L);
    attempt.failed = stopFailing();
    attempt.driverCalls = driverCalls.count;
    attempt.outcome = popOutcome(L);
    call(L);
    attempt.again = popOutcome(L);
    lua_close(L);
    attempt.blocksLeft = blocksTaken();
    attempt.bytesLeft = bytesOfLua();
    return attempt;
}

} // namespace

std::vector<Attempt> runWithEachFailing(const std::string &text, const std::string &before)
{
    std::vector<Attempt> attempts;
    do {
        attempts.push_back(runWithFailing(static_cast<long>(attempts.size()) + 1, text, before));
    } while (attempts.back().failed != Allocation::none);
    return attempts;
}

std::string outcomeOf(const std::string &text, const std::string &before)
{
    return runWithFailing(0, text, before).outcome;
}

void expectEachFailing(const std::string &text, const Expected &expected, const std::string &before)
{
    int number = 0;
    for (const Attempt &attempt : runWithEachFailing(text, before)) {
        SCOPED_TRACE(text + "\nwith allocation " + std::to_string(++number) + " failing");
        std::string outcome = expected.withMemory;
        if (attempt.failed == Allocation::ofLua) {
            outcome = "not enough memory";
        } else if (attempt.failed == Allocation::byMalloc) {
            outcome = expected.withoutMalloc;
        } else if (attempt.failed == Allocation::byCalloc) {
            outcome = expected.withoutCalloc;
        }
        EXPECT_EQ(attempt.outcome, outcome);
        EXPECT_EQ(attempt.again, expected.withMemory) << "when there was memory again";
        EXPECT_EQ(attempt.blocksLeft, 0);
        EXPECT_EQ(attempt.bytesLeft, 0U);
    }
}
