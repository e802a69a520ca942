// SPDX-License-Identifier: LicenseRef-Proprietary
// RadioHooks objects, and opening the module, with each allocation failing.
#include "app/context.h"
#include "binding/radio_wrap.h"
#include "tests/binding/radio/allocations/failing_calls.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace
{

constexpr char withHooks[] = "h = RadioHooks() h.malloc = allocate other = RadioHooks()";

TEST(HooksAllocations, anObjectIsMadeOrNilOrMemoryIsMissed)
{
    const std::vector<Attempt> attempts = runWithEachFailing("return RadioHooks() ~= nil");
    bool calloc = false;
    for (const Attempt &attempt : attempts) {
        calloc = calloc || attempt.failed == Allocation::byCalloc;
    }
    EXPECT_TRUE(calloc) << "the record is made by calloc()";
    expectEachFailing("return RadioHooks() ~= nil", {"true", "(there is none)", "false"});
}

TEST(HooksAllocations, aWrongCountOfArguments)
{
    expectEachFailing("return RadioHooks(1)",
                      {"Error in RadioHooks::RadioHooks expected 0..0 args, got 1"});
}

TEST(HooksAllocations, manyObjectsOfWhichMostAreGarbage)
{
    expectEachFailing("local kept for i = 1, 20 do kept = RadioHooks() or kept "
                      "if i % 5 == 0 then collectgarbage() end end return kept ~= nil",
                      {"true", "(there is none)", "true"});
}

TEST(HooksAllocations, attributesAreReadAndAssigned)
{
    expectEachFailing("return h.malloc ~= nil and h.free == nil", {"true"}, withHooks);
    expectEachFailing("h.free = release return swig_type(h.free)", {"void (*)(void *)"}, withHooks);
    expectEachFailing("other.malloc = h.malloc return swig_equals(other.malloc, allocate)",
                      {"true"}, withHooks);
    expectEachFailing("h.malloc = nil return h.malloc", {"nil"}, withHooks);
    expectEachFailing("h.unknown = 1 return h.unknown", {"nil"}, withHooks);
}

TEST(HooksAllocations, wrongAttributesAreRefused)
{
    expectEachFailing("h.malloc = 5",
                      {"Error in malloc (arg 2), expected 'void *(*)(size_t)' got 'number'"},
                      withHooks);
    expectEachFailing("h.malloc = h",
                      {"Error in RadioHooks_malloc_set (arg 2), expected 'void *(*)(size_t)' got "
                       "'struct RadioHooks *|RadioHooks *'"},
                      withHooks);
}

TEST(HooksAllocations, aFinaliserCalledByHandFreesOnce)
{
    expectEachFailing("getmetatable(h).__gc(h) getmetatable(h).__gc(h) return h.malloc", {"nil"},
                      withHooks);
}

TEST(HooksAllocations, collectingTakesNoMemory)
{
    const std::vector<Attempt> attempts =
        runWithEachFailing("h = nil other = nil collect() return 1",
                           std::string(withHooks) + " collect = collectgarbage");
    ASSERT_EQ(attempts.size(), 1U);
    EXPECT_EQ(attempts[0].outcome, "1");
    EXPECT_EQ(attempts[0].blocksLeft, 0);
}

int openModule(lua_State *L)
{
    radioModuleOpen(L);
    return 0;
}

TEST(ModuleAllocations, openingTheModuleFailsCleanly)
{
    long number = 0;
    Allocation failed = Allocation::none;
    do {
        SCOPED_TRACE("allocation " + std::to_string(++number));
        resetMemory();
        lua_State *const L = newStateOfFailingMemory();
        failAllocation(number);
        const int status = lua_cpcall(L, openModule, nullptr);
        failed = stopFailing();
        EXPECT_EQ(status, failed == Allocation::none ? 0 : LUA_ERRMEM);
        ASSERT_EQ(lua_cpcall(L, openModule, nullptr), 0) << "there is memory again";
        lua_getglobal(L, "radio");
        lua_getfield(L, -1, "RADIO_INTERFACE_CPRI");
        EXPECT_TRUE(lua_isnumber(L, -1)) << "the last constant";
        lua_close(L);
        EXPECT_EQ(bytesOfLua(), 0U);
        EXPECT_EQ(blocksTaken(), 0);
    } while (failed != Allocation::none);
    EXPECT_GT(number, 100);
}

// Opens the module for the first time in the process without all memory, in a state that has so
// many entries in its registry, then with all; ends the process, with status 0 if the second
// opening made the whole module.
[[noreturn]] void openTwice(int entries, long number)
{
    lua_State *L = newStateOfFailingMemory();
    for (int i = 1; i <= entries; ++i) {
        lua_pushboolean(L, 1);
        lua_setfield(L, LUA_REGISTRYINDEX, std::to_string(i).c_str());
    }
    failAllocation(number);
    const bool failed = lua_cpcall(L, openModule, nullptr) == LUA_ERRMEM;
    stopFailing();
    lua_close(L);
    L = luaL_newstate();
    luaL_openlibs(L);
    const bool whole = lua_cpcall(L, openModule, nullptr) == 0 &&
                       luaL_dostring(L, "local h = radio.RadioHooks() h.malloc = nil "
                                        "assert(swig_type(h):find('RadioHooks'))") == 0;
    std::exit(failed && whole ? 0 : 1);
}

TEST(ModuleAllocations, aFirstOpeningThatFailsLeavesTheNextOneWhole)
{
    for (int entries = 0; entries < 4; ++entries) { // with and without a free place for one more
        for (int number = 1; number <= 8; ++number) {
            EXPECT_EXIT(openTwice(entries, number), testing::ExitedWithCode(0), "")
                << entries << " entries, allocation " << number;
        }
    }
}

} // namespace
