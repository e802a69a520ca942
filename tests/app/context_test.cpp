// SPDX-License-Identifier: LicenseRef-Proprietary
// The context, on a driver within the test.
#include "app/context.h"
#include "tests/binding/support/lua_test.h"

#include <vector>

namespace
{

std::vector<std::string> calls;
bool opens = true;
char block; // whose address stands for a context

} // namespace

RadioContext *radioOpen()
{
    calls.emplace_back("open");
    return opens ? reinterpret_cast<RadioContext *>(&block) : nullptr;
}

RadioReturn radioClose(RadioContext *)
{
    calls.emplace_back("close");
    return RADIO_EERROR;
}

namespace
{

using Calls = std::vector<std::string>;

class Context : public LuaTest
{
protected:
    Context()
    {
        appContext = nullptr;
        calls.clear();
        opens = true;
        registerRadioNative(L);
        registerRadioInternal(L);
    }

    // What the function says on standard error.
    template <class Function>
    static std::string errorsOf(Function function)
    {
        testing::internal::CaptureStderr();
        function();
        return testing::internal::GetCapturedStderr();
    }
};

TEST_F(Context, isOpenedOnceOnly)
{
    EXPECT_EQ(errorsOf([] {
                  appRadioOpen();
                  appRadioOpen();
              }),
              "");
    EXPECT_EQ(appContext, reinterpret_cast<RadioContext *>(&block));
    EXPECT_EQ(calls, Calls{"open"});
}

TEST_F(Context, thatTheDriverRefusesIsReportedAndTriedAgain)
{
    opens = false;
    EXPECT_EQ(errorsOf(appRadioOpen), "radioOpen() failed\n");
    EXPECT_EQ(appContext, nullptr);
    EXPECT_EQ(errorsOf(appRadioOpen), "radioOpen() failed\n");
    EXPECT_EQ(calls, (Calls{"open", "open"}));
}

TEST_F(Context, isClosedWhateverTheDriverAnswers)
{
    appRadioOpen();
    appRadioClose();
    EXPECT_EQ(appContext, nullptr);
    appRadioClose();
    EXPECT_EQ(calls, (Calls{"open", "close"}));
}

TEST_F(Context, isMadeAnewByAScript)
{
    run("radioNative.radioOpen() radioNative.radioOpen('ignored')");
    EXPECT_EQ(calls, (Calls{"open", "close", "open"}));
    EXPECT_EQ(value("select('#', radioNative.radioOpen())"), "0");
}

TEST_F(Context, isClosedByAScriptOnceOnly)
{
    appRadioOpen();
    EXPECT_EQ(value("select('#', radioNative.radioClose('ignored'))"), "0");
    EXPECT_EQ(raised("radioNative.radioClose()"), "No radio context, call radioOpen() first");
    EXPECT_EQ(calls, (Calls{"open", "close"}));
}

TEST_F(Context, hasTwoFunctionsForScriptsAndATableOfTheShellsOwn)
{
    run("n = 0 for _ in pairs(radioNative) do n = n + 1 end");
    EXPECT_EQ(value("n"), "2");
    EXPECT_EQ(value("next(radioInternal)"), "nil");
}

} // namespace
