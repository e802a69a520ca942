// SPDX-License-Identifier: LicenseRef-Proprietary
// A text is made of a number, the collector runs, and a finaliser closes the radio: the call goes
// on with the context that there was when it began.
#include "app/context.h"
#include "tests/binding/radio/differential/differential.h"

#include <cstring>
#include <tuple>

namespace
{

int textPosition;      // of a wrapper's argument that is a text
bool finaliserSawText; // the argument was a text already when the finaliser ran, and no number

// The finaliser, within a wrapper.
int closeRadio(lua_State *L)
{
    appRadioClose();
    lua_Debug wrapper;
    finaliserSawText = lua_getstack(L, 1, &wrapper) != 0 &&
                       lua_getlocal(L, &wrapper, textPosition) != nullptr &&
                       lua_type(L, -1) == LUA_TSTRING;
    return 0;
}

struct Make {
    const char *name;
    lua_CFunction (*of)(const char *function);
};

constexpr Make makes[] = {{"inShell", inShell}, {"byHand", byHand}};

class Collector : public Differential,
                  public testing::WithParamInterface<std::tuple<Make, Function>>
{
protected:
    Collector()
    {
        const char *const kinds = std::get<Function>(GetParam()).kinds;
        textPosition = static_cast<int>(std::strcspn(kinds, "t")) + 1;
        answers.opened = &context;
        appRadioOpen();
    }

    // Pushes the function and good arguments, of which the text is to be made of a number.
    void pushGoodCall()
    {
        const auto &[make, function] = GetParam();
        lua_pushcfunction(L, make.of(function.name));
        for (const char *kind = function.kinds; *kind != '\0'; ++kind) {
            if (*kind == 'p') {
                lua_pushnil(L);
            } else {
                lua_pushnumber(L, 12.5);
            }
        }
    }

    // Calls the function on the stack; the first text that is made meanwhile runs a finaliser,
    // which closes the radio.
    int call()
    {
        const int arguments = lua_gettop(L) - 1;
        lua_gc(L, LUA_GCCOLLECT, 0);
        lua_gc(L, LUA_GCSTOP, 0);
        lua_gc(L, LUA_GCSETSTEPMUL, 0); // a step is the whole way
        lua_newuserdata(L, 0);
        lua_newtable(L);
        lua_pushcfunction(L, closeRadio);
        lua_setfield(L, -2, "__gc");
        lua_setmetatable(L, -2);
        lua_pop(L, 1);
        driverCalls = {};
        lua_gc(L, LUA_GCRESTART, 0);
        const int status = lua_pcall(L, arguments, 0, 0);
        lua_gc(L, LUA_GCSTOP, 0);
        return status;
    }

    RadioContext context;
};

TEST_P(Collector, closesTheRadioUnderACallThatGoesOn)
{
    const Function function = std::get<Function>(GetParam());
    pushGoodCall();
    ASSERT_EQ(call(), 0) << popText();

    EXPECT_TRUE(finaliserSawText);
    EXPECT_EQ(appContext, nullptr);
    EXPECT_EQ(driverCalls.count, 2);
    EXPECT_STREQ(driverCalls.function, function.name);
    EXPECT_EQ(driverCalls.arguments[0], reinterpret_cast<std::uintptr_t>(&context));
    EXPECT_EQ(driverCalls.text, "12.5");
}

TEST_P(Collector, findsNoTextMadeWhereThereIsAnArgumentTooMany)
{
    const Function function = std::get<Function>(GetParam());
    pushGoodCall();
    lua_pushnil(L);
    ASSERT_NE(call(), 0);

    EXPECT_EQ(popText().find("Error in " + std::string(function.name) + " expected "), 0U);
    EXPECT_EQ(appContext, nullptr); // closed when the text of the error was made
    EXPECT_FALSE(finaliserSawText);
}

class CollectorAmongArguments : public Collector
{
};

TEST_P(CollectorAmongArguments, findsNoTextMadeWhereAnotherIsWrong)
{
    const auto &[make, function] = GetParam();
    lua_pushcfunction(L, make.of(function.name));
    for (const char *kind = function.kinds; *kind != '\0'; ++kind) {
        if (*kind == 't') {
            lua_pushnumber(L, 12.5);
        } else {
            lua_pushboolean(L, 1);
        }
    }
    ASSERT_NE(call(), 0);

    EXPECT_EQ(popText().find("Error in " + std::string(function.name) + " (arg "), 0U);
    EXPECT_EQ(appContext, nullptr); // closed when the text of the error was made
    EXPECT_FALSE(finaliserSawText);
}

constexpr Function aloneOrNot[] = {
    {"radioLoadCalibrationFile", "t"},
    {"radioGetIntegerFromCalibration", "tp"},
    {"radioGetStringFromCalibration", "tp"},
    {"radioInitByScript", "nnnt"},
};
constexpr Function amongOthers[] = {aloneOrNot[1], aloneOrNot[2], aloneOrNot[3]};

std::string nameOf(const testing::TestParamInfo<std::tuple<Make, Function>> &tested)
{
    return std::string(std::get<Make>(tested.param).name) + "_" +
           std::get<Function>(tested.param).name;
}

INSTANTIATE_TEST_SUITE_P(Differential, Collector,
                         testing::Combine(testing::ValuesIn(makes), testing::ValuesIn(aloneOrNot)),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Differential, CollectorAmongArguments,
                         testing::Combine(testing::ValuesIn(makes), testing::ValuesIn(amongOthers)),
                         nameOf);

} // namespace
