// SPDX-License-Identifier: LicenseRef-Proprietary
// Start-up, the prompt and the libraries, with each of their allocations failing once. What the
// user sees of that is tested end to end; here, that nothing is left behind.
#include "app/context.h"
#include "app/interactive.h"
#include "app/libraries.h"
#include "app/lua_state.h"
#include "app/opening.h"
#include "tests/app/input.h"
#include "tests/failing_memory/failing_memory.h"

#include <gtest/gtest.h>

namespace
{

// The standard libraries are opened while there is memory: where Lua's io lacks some, closing the
// state would close this process's standard streams.
int startUp(lua_State *L)
{
    beginOpening(L);
    pauseFailing();
    luaL_openlibs(L);
    resumeFailing();
    openShellLibraries(L);
    endOpening(L);
    return 0;
}

void startUpWithMemory(lua_State *L)
{
    failAllocation(0);
    EXPECT_EQ(lua_cpcall(L, startUp, nullptr), 0);
    stopFailing();
}

bool isGlobal(lua_State *L, const char *name)
{
    lua_getglobal(L, name);
    const bool is = !lua_isnil(L, -1);
    lua_pop(L, 1);
    return is;
}

void close(lua_State *L)
{
    keepLoadedLibraries(L);
    lua_close(L);
    EXPECT_EQ(bytesOfLua(), 0U);
    EXPECT_EQ(blocksTaken(), 0);
}

// Calls use for 1, 2, ... until it says that no allocation of that number was made.
template <class Use>
void forEachAllocation(Use use)
{
    long number = 1;
    while (!testing::Test::HasFailure() && use(number) != Allocation::none) {
        ++number;
        ASSERT_LT(number, 100'000) << "there is no end";
    }
    EXPECT_GT(number, 1) << "nothing failed";
}

TEST(Allocations, aStateIsMadeOrNoneAndNothingIsLeft)
{
    forEachAllocation([](long number) {
        resetMemory();
        failAllocation(number);
        lua_State *const L = newStateOfFailingMemory();
        const Allocation failed = stopFailing();
        EXPECT_EQ(L == nullptr, failed != Allocation::none);
        if (L != nullptr) {
            lua_close(L);
        }
        EXPECT_EQ(bytesOfLua(), 0U);
        return failed;
    });
}

TEST(Allocations, startUpFailsAsAWholeButForTheCopiesToTheGlobals)
{
    int withoutRadio = 0;
    int withoutNative = 0;
    int raised = 0;
    forEachAllocation([&](long number) {
        SCOPED_TRACE("allocation " + std::to_string(number));
        resetMemory();
        lua_State *const L = newStateOfFailingMemory();
        failAllocation(number);
        const int status = lua_cpcall(L, startUp, nullptr);
        const Allocation failed = stopFailing();
        if (status == 0) {
            const bool radio = isGlobal(L, "radioReset");
            const bool native = isGlobal(L, "radioClose");
            withoutRadio += radio ? 0 : 1;
            withoutNative += native ? 0 : 1;
            EXPECT_EQ(failed == Allocation::none, radio && native);
            EXPECT_TRUE(isGlobal(L, "radio") && isGlobal(L, "bit") && isGlobal(L, "socket"));
        } else {
            EXPECT_EQ(status, LUA_ERRMEM);
            EXPECT_EQ(failed, Allocation::ofLua);
            ++raised;
        }
        close(L);
        return failed;
    });
    EXPECT_GT(raised, 300);
    EXPECT_GT(withoutRadio, 0);
    EXPECT_GT(withoutNative, 0);
}

class Lines : public testing::TestWithParam<const char *>
{
};

// Runs the loop with the allocation of the number that the argument points to failing.
int loop(lua_State *L)
{
    failAllocation(*static_cast<const long *>(lua_touserdata(L, 1)));
    runInteractive(L);
    return 0;
}

// Counts the pieces of a text.
long count(const std::string &text, const std::string &piece)
{
    long pieces = 0;
    for (auto at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) {
        ++pieces;
    }
    return pieces;
}

TEST_P(Lines, leaveNothingBehind)
{
    forEachAllocation([](long number) {
        SCOPED_TRACE("allocation " + std::to_string(number));
        resetMemory();
        lua_State *const L = newStateOfFailingMemory();
        startUpWithMemory(L);
        const Input input(std::string(GetParam()) + "exit\n");
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int status = lua_cpcall(L, loop, &number);
        const Allocation failed = stopFailing();
        const std::string out = testing::internal::GetCapturedStdout();
        const std::string err = testing::internal::GetCapturedStderr();
        EXPECT_EQ(status, 0);
        EXPECT_EQ(count(out, "error: no memory to allocate cmd input buffer...\n\n") +
                      count(err, "failed to process stdin: \"Out of memory\"\n"),
                  failed == Allocation::byMalloc ? 1 : 0);
        EXPECT_EQ(count(err, "failed to process stdin: \"not enough memory\"\n"),
                  failed == Allocation::ofLua ? 1 : 0);
        close(L);
        return failed;
    });
}

INSTANTIATE_TEST_SUITE_P(EachAllocationOf, Lines,
                         testing::Values("x = {} for i = 1, 20 do x[i] = 'a' .. i end\n",
                                         "this does not compile\n", "error('a' .. 1)\n",
                                         "error({})\n", "help\n", "\n",
                                         "radioSetRxGainRegisters({'x'})\n",
                                         "h = RadioHooks() x = h.malloc\n"));

TEST(Allocations, protectedFunctionsOfSocketsRaiseTheWantOfMemory)
{
    constexpr char text[] = "local function try(what) error(what, 0) end "
                            "local nothing, first = socket.protect(try)({'a' .. #_VERSION}) "
                            "local fine, raised = pcall(socket.protect(try), 'b') "
                            "return tostring(nothing) .. first .. tostring(fine) .. raised";
    forEachAllocation([&](long number) {
        SCOPED_TRACE("allocation " + std::to_string(number));
        resetMemory();
        lua_State *const L = newStateOfFailingMemory();
        startUpWithMemory(L);
        EXPECT_EQ(luaL_loadstring(L, text), 0);
        failAllocation(number);
        const int status = lua_pcall(L, 0, 1, 0);
        const Allocation failed = stopFailing();
        // Want of memory in what pcall() calls is what that returns.
        const std::string result = lua_tostring(L, -1);
        if (failed == Allocation::none) {
            EXPECT_EQ(status, 0);
            EXPECT_EQ(result, "nila7falseb");
        } else {
            EXPECT_EQ(result, status != 0 ? "not enough memory" : "nila7falsenot enough memory");
        }
        close(L);
        return failed;
    });
}

} // namespace
