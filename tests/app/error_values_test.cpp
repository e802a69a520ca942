// SPDX-License-Identifier: LicenseRef-Proprietary
// The error values that failing lines leave on the Lua stack, and the room that they have there.
#include "app/interactive.h"
#include "tests/app/input.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <lua.hpp>

namespace
{

// The memory of a Lua state. Behind each block lies a guard, which nobody may write to; and on
// demand it refuses to give more.
class GuardedMemory
{
public:
    int refusals = 0; // how often more memory is refused from now on
    bool broken = false;

    static void *allocate(void *self, void *block, std::size_t size, std::size_t wanted)
    {
        return static_cast<GuardedMemory *>(self)->move(block, size, wanted);
    }

private:
    static constexpr std::size_t guardSize = 4096;
    static constexpr char guardByte = 0x5a;

    void *move(void *block, std::size_t size, std::size_t wanted)
    {
        if (wanted > size && refusals > 0) {
            --refusals;
            return nullptr;
        }
        char *made = nullptr;
        if (wanted > 0) {
            made = static_cast<char *>(std::malloc(wanted + guardSize));
            std::memset(made + wanted, guardByte, guardSize);
        }
        if (block != nullptr) {
            check(static_cast<const char *>(block) + size);
            if (made != nullptr) {
                std::memcpy(made, block, size < wanted ? size : wanted);
            }
            std::free(block);
        }
        return made;
    }

    void check(const char *guard)
    {
        for (std::size_t i = 0; i < guardSize; ++i) {
            broken = broken || guard[i] != guardByte;
        }
    }
};

constexpr int forever = std::numeric_limits<int>::max();

GuardedMemory memory;

// Has no memory, once.
int lackMemory(lua_State *L)
{
    memory.refusals = 1;
    lua_newuserdata(L, 1);
    return 0;
}

class ErrorValues : public testing::Test
{
protected:
    ErrorValues()
    {
        luaL_openlibs(L);
        lua_pushcclosure(L, lackMemory, 0);
        lua_setglobal(L, "lackMemory");
    }

    ~ErrorValues() override
    {
        memory.refusals = 0;
        lua_close(L);
        EXPECT_FALSE(memory.broken);
    }

    ErrorValues(const ErrorValues &) = delete;
    ErrorValues &operator=(const ErrorValues &) = delete;

    // Runs the loop on lines, many times; returns what it printed on standard error.
    std::string errorsOf(const std::string &lines, int times = 1)
    {
        std::string text;
        for (int i = 0; i < times; ++i) {
            text += lines;
        }
        const Input input(text + "exit\n");
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        runInteractive(L);
        testing::internal::GetCapturedStdout();
        return testing::internal::GetCapturedStderr();
    }

    static constexpr char noMemory[] = "failed to process stdin: \"not enough memory\"\n";

    lua_State *L = lua_newstate(GuardedMemory::allocate, &memory);
};

TEST_F(ErrorValues, ofManyLinesHaveRoomOnTheStack)
{
    errorsOf("error('runtime', 0)\nerror({})\n+\n\033\n", 1000);
    ASSERT_EQ(lua_gettop(L), 4000);
    for (int i = -4000; i < 0; i += 4) { // from the top: Lua answers for no more above the bottom
        EXPECT_STREQ(lua_tostring(L, i), "runtime");
        EXPECT_TRUE(lua_istable(L, i + 1));
        EXPECT_STREQ(lua_tostring(L, i + 2), "[string \"stdin\"]:1: unexpected symbol near '+'");
        EXPECT_STREQ(lua_tostring(L, i + 3), "stdin: unexpected end in precompiled chunk");
    }
}

TEST_F(ErrorValues, ofALackOfMemoryIsLeftAsAnyOther)
{
    EXPECT_EQ(errorsOf("lackMemory()\n"), noMemory);
    EXPECT_EQ(errorsOf("lackMemory()\n"), noMemory);
    ASSERT_EQ(lua_gettop(L), 2);
    EXPECT_STREQ(lua_tostring(L, 1), "not enough memory");
    EXPECT_STREQ(lua_tostring(L, 2), "not enough memory");
}

TEST_F(ErrorValues, areNotWrittenBehindTheStackWhileThereIsNoMemory)
{
    constexpr int lines = 200;
    memory.refusals = forever;
    const std::string errors = errorsOf("x = 1\n", lines);
    memory.refusals = 0;
    EXPECT_EQ(errors.size(), lines * std::strlen(noMemory));

    const int top = lua_gettop(L);
    EXPECT_EQ(errorsOf("x = 2\n"), "");
    EXPECT_EQ(errorsOf("error(x, 0)\n"), "failed to process stdin: \"2\"\n");
    ASSERT_EQ(lua_gettop(L), top + 1);
    EXPECT_STREQ(lua_tostring(L, -1), "2");
}

} // namespace
