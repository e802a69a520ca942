// SPDX-License-Identifier: LicenseRef-Proprietary
// The line reader and the loop, seen from inside.
#include "app/interactive.h"
#include "tests/app/input.h"
#include "tests/binding/support/assertion_report.h"
#include "tests/binding/support/lua_test.h"

#include <cstdio>
#include <cstring>

namespace
{

// A line as the reader returns it.
std::string readLine()
{
    char *const line = cmdGetLine();
    std::string text = line != nullptr ? line : "(null)";
    cmdFreeLine(line);
    return text;
}

TEST(LineReader, showsThePromptWithoutANewline)
{
    const Input input("x\n");
    testing::internal::CaptureStdout();
    readLine();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "sorelapp> ");
}

TEST(LineReader, returnsEachLineWithItsNewline)
{
    const Input input("first\n\n  third \n");
    EXPECT_EQ(readLine(), "first\n");
    EXPECT_EQ(readLine(), "\n");
    EXPECT_EQ(readLine(), "  third \n");
}

TEST(LineReader, endsALineAtAZeroByteWithoutANewline)
{
    const Input input(std::string("first\0second\n\0third\n", 20));
    EXPECT_EQ(readLine(), "first");
    EXPECT_EQ(readLine(), "second\n");
    EXPECT_EQ(readLine(), "");
    EXPECT_EQ(readLine(), "third\n");
}

TEST(LineReader, keepsEveryOtherByte)
{
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\n') {
            bytes += static_cast<char>(byte);
        }
    }
    const std::string first = bytes.substr(0, 127) + "\n";
    const std::string second = bytes.substr(127) + "\n";
    const Input input(first + second);
    EXPECT_EQ(readLine(), first);
    EXPECT_EQ(readLine(), second) << "0xff is a byte as any other";
}

TEST(LineReader, takes198CharactersAndANewline)
{
    const std::string line = std::string(198, 'x') + "\n";
    const Input input(line);
    EXPECT_EQ(readLine(), line);
}

TEST(LineReader, takes199CharactersAndAZeroByte)
{
    const std::string line(199, 'x');
    const Input input(line + std::string(1, '\0'));
    EXPECT_EQ(readLine(), line);
}

#define EXPECT_NO_ROOM(statement)                                                                  \
    EXPECT_EXIT(statement, testing::KilledBySignal(SIGABRT),                                       \
                assertionReport("app/sorelapp", 262, "cmdGetLine", "read - input < inLen"))

TEST(LineReader, abortsAtTheNewlineBehind199Characters)
{
    const Input input(std::string(199, 'x') + "\n");
    EXPECT_NO_ROOM(readLine());
}

TEST(LineReader, abortsAtThe200thCharacter)
{
    const Input input(std::string(200, 'x'));
    EXPECT_NO_ROOM(readLine());
}

TEST(LineReader, abortsAtTheEndOfTheInput)
{
    const Input nothing("");
    EXPECT_NO_ROOM(readLine());
    const Input noNewline("print(1)");
    EXPECT_NO_ROOM(readLine());
}

TEST(LineReader, freesNull)
{
    cmdFreeLine(nullptr);
    const Input input("x\n");
    EXPECT_EQ(readLine(), "x\n");
}

class Loop : public LuaTest
{
protected:
    // Runs the loop on a text; returns what it printed on standard error.
    std::string errorsOf(const std::string &text)
    {
        const Input input(text);
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        runInteractive(L);
        testing::internal::GetCapturedStdout();
        return testing::internal::GetCapturedStderr();
    }
};

TEST_F(Loop, leavesEachErrorValueOnTheStack)
{
    EXPECT_EQ(errorsOf("error('first', 0)\nx = 1\nerror({})\n+\nexit\n"),
              "failed to process stdin: \"first\"\n"
              "failed to process stdin: \"(null)\"\n"
              "failed to process stdin: \"[string \"stdin\"]:1: unexpected symbol near '+'\"\n");
    ASSERT_EQ(lua_gettop(L), 3);
    EXPECT_STREQ(lua_tostring(L, 1), "first");
    EXPECT_TRUE(lua_istable(L, 2));
    EXPECT_TRUE(lua_isstring(L, 3));
}

TEST_F(Loop, leavesNoResultOnTheStack)
{
    EXPECT_EQ(errorsOf("return 1, 2, 3\nexit\n"), "");
    EXPECT_EQ(lua_gettop(L), 0);
}

TEST_F(Loop, leavesWhatIsBehindAnExitWordUnread)
{
    for (const char *const word : {"exit\n", "quit\n", "exit()\n", "quit()\n"}) {
        const Input input(std::string(word) + "x = 1\n");
        testing::internal::CaptureStdout();
        runInteractive(L);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "sorelapp> ") << word;
        EXPECT_EQ(std::getc(stdin), 'x') << word;
    }
    EXPECT_EQ(value("x"), "nil");
}

TEST_F(Loop, takesAnExitWordWithoutItsNewlineForLua)
{
    const std::string errors = errorsOf(std::string("exit\0exit\n", 10));
    EXPECT_EQ(errors.substr(0, 25), "failed to process stdin: ");
}

} // namespace
