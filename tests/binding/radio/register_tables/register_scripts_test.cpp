// SPDX-License-Identifier: LicenseRef-Proprietary
// Tables that do something while they are read, and others: scripts must see and do the same with
// both kinds of functions.
#include "tests/binding/radio/register_tables/outcome.h"

namespace
{

struct Script {
    const char *name;
    const char *text;
};

void PrintTo(const Script &script, std::ostream *stream)
{
    *stream << script.name;
}

class RegisterScripts : public RegisterTables, public testing::WithParamInterface<Script>
{
};

// Each is run with 40 elements, more than what is read at once: of those, hole is missing. The
// metatable's function gets the key.
#define WITH_INDEX(hole, body)                                                                     \
    "local t = {} for i = 1, 40 do t[i] = i * 1e8 end t[" hole "] = nil "                          \
    "setmetatable(t, {__index = function(t, key) note('asked', key) " body " end}) "               \
    "set(t)"

// clang-format off
const Script scripts[] = {
    {"aMissingElementIsGiven",          WITH_INDEX("3", "return key / 8")},
    {"theFirstIsGiven",                 WITH_INDEX("1", "return 5")},
    {"oneAtTheEndOfABatchIsGiven",      WITH_INDEX("16", "return 5")},
    {"oneAtTheStartOfABatchIsGiven",    WITH_INDEX("17", "return 5")},
    {"aTextIsGiven",                    WITH_INDEX("3", "return ' -7.5e3'")},
    {"aTextThatIsNoNumberIsGiven",      WITH_INDEX("3", "return 'x'")},
    {"nothingIsGiven",                  WITH_INDEX("3", "return nil")},
    {"aTableIsGiven",                   WITH_INDEX("3", "return {}")},
    {"anErrorIsRaised",                 WITH_INDEX("3", "error('mine', 0)")},
    {"anErrorThatIsNoTextIsRaised",     WITH_INDEX("3", "error({})")},
    {"theNextElementIsChanged",         WITH_INDEX("3", "t[4] = 44 return 1")},
    {"theNextElementIsTakenAway",       WITH_INDEX("3", "t[4] = nil return 1")},
    {"allLaterElementsAreTakenAway",    WITH_INDEX("3",
        "for i = 4, 40 do t[i] = nil end return 1")},
    {"anEarlierElementIsChanged",       WITH_INDEX("3", "t[1] = 'x' return 1")},
    {"theElementItselfIsSet",           WITH_INDEX("3", "t[3] = 33 return 1")},
    {"theNextElementBecomesNoNumber",   WITH_INDEX("3", "t[4] = {} return 1")},
    {"theNextElementBecomesAText",      WITH_INDEX("3", "t[4] = '0x10' return 1")},
    {"theMetatableIsTakenAway",         WITH_INDEX("3",
        "t[9] = nil setmetatable(t, nil) return 1")},
    {"theMetatableIsAnotherFromThenOn", WITH_INDEX("3",
        "t[9] = nil setmetatable(t, {__index = {[9] = 99}}) return 1")},
    {"theFunctionIsAnotherFromThenOn",  WITH_INDEX("3",
        "t[9] = nil getmetatable(t).__index = function(_, key) return key * 2 end return 1")},
    {"theTableGrows",                   WITH_INDEX("3", "for i = 41, 99 do t[i] = 1 end return 1")},
    {"theSameTableIsSetMeanwhile",      WITH_INDEX("3",
        "t[3] = 7 set(t) setPower(t) t[3] = nil return 1")},
    {"theCollectorRuns",                WITH_INDEX("3", "t[5] = {} collectgarbage() return 1")},
    {"aFinaliserChangesTheTable",       WITH_INDEX("3",
        "getmetatable(newproxy(true)).__gc = function() t[4] = 4 t[20] = nil end "
        "collectgarbage() return key")},
    {"aFinaliserTakesTheMetatableAway", WITH_INDEX("3",
        "getmetatable(newproxy(true)).__gc = function() t[20] = nil setmetatable(t, nil) end "
        "collectgarbage() return key")},
    {"aFinaliserGivesAMetatable",       WITH_INDEX("3",
        "getmetatable(newproxy(true)).__gc = function() t[20] = nil "
        "setmetatable(t, {__index = {[20] = '20'}}) end collectgarbage() return key")},
    {"aCoroutineCannotYieldInBetween",
        "local t = setmetatable({1, nil, 3}, {__index = function() coroutine.yield(1) end}) "
        "note(tostring(coroutine.resume(coroutine.create(function() set(t) end)))) "
        "note(select(2, coroutine.resume(coroutine.create(function() set(t) end))))"},
    {"allElementsAreAskedOfTheMetatableWhereTheyAreMissing",
        "local t = {} for i = 1, 64 do t[i] = i end for i = 1, 63 do t[i] = nil end "
        "setmetatable(t, {__index = function(_, key) note(key) return key + 0.5 end}) set(t)"},
    {"aTableIsAskedInPlaceOfAFunction",
        "set(setmetatable({1, nil, 3}, {__index = setmetatable({}, {__index = {0, '2'}})}))"},
    {"theMetatableIsAskedOfAFunctionThatIsNone",
        "set(setmetatable({1, nil, 3}, {__index = 5}))"},
    {"elementsOfATableWithAnEmptyMetatable",
        "set(setmetatable({1, '2', 3.75, 1e15, -1, 0/0}, {}))"},
    {"aHoleInATableWithAnEmptyMetatable", "set(setmetatable({1, nil, 3}, {}))"},
    {"aProtectedMetatable",
        "set(setmetatable({1, nil, 3}, {__metatable = false, __index = {0, 2}}))"},
    {"aWeakTable",
        "local t = setmetatable({1, '2', {}, 4}, {__mode = 'v'}) collectgarbage() note(#t) set(t)"},
    {"aWeakTableWithNumbers",
        "local t = setmetatable({1, 2.5, 3e14}, {__mode = 'kv'}) collectgarbage() set(t)"},
    {"otherMetamethodsAreNotAsked",
        "local function no() error('asked') end set(setmetatable({1, '2', 3}, {__len = no, "
        "__call = no, __tostring = no, __newindex = no, __unm = no, __gc = no, __index = no}))"},
    {"textsOfEveryForm",
        "set({'0x10', '-0x10', ' 7 ', '+8', '1e3', '.5', '-0', '4294967296', '-4294967296', "
        "('9'):rep(50), '-' .. ('9'):rep(50), '00012', '1.999', '-1.999', '1e400', '5e-400'})"},
    {"aTextWithAZeroByte", "set({1, '1\\0', 3})"},
    {"holesWithoutAMetatable", "set({1, nil, 3})"},
    {"aBadElementAfterGoodOnes",
        "local t = {} for i = 1, 40 do t[i] = i end t[39] = true set(t)"},
    {"noElements", "set({}) setPower({})"},
    {"elementsOfTheHashPart",
        "local t = {} for i = 100, 1, -1 do t[i] = i + 0.75 end set(t)"},
    {"elementsInPlacesOfOtherKeys", "set({[-1] = 1, [0] = 1, [1] = 1, [2] = 2, x = 3, [3.5] = 4})"},
    {"theElementsStayWhatTheyAre",
        "local t = {1.5, '2', 1e15} set(t) note(type(t[1]), t[1], type(t[2]), t[2], type(t[3]))"},
    {"theResultsAreNone", "note(select('#', set({1})), select('#', setPower({2})))"},
    {"noArgument", "set()"},
    {"twoArguments", "setPower({}, 1)"},
    {"noTable", "set('1')"},
    {"noTableThoughItHasElements", "set(setmetatable({}, nil) and newproxy(true))"},
};
// clang-format on

TEST_P(RegisterScripts, haveTheOutcomeOfReadingOneElementAfterTheOther)
{
    const std::string expected = outcome(GetParam().text, throughText);
    EXPECT_EQ(outcome(GetParam().text, ours), expected);
}

TEST_P(RegisterScripts, haveThatOutcomeWithAStatusOtherThanSuccess)
{
    registerStatus = RADIO_EIO;
    const std::string expected = outcome(GetParam().text, throughText);
    EXPECT_EQ(outcome(GetParam().text, ours), expected);
}

TEST_P(RegisterScripts, haveThatOutcomeWithoutAContext)
{
    appContext = nullptr;
    const std::string expected = outcome(GetParam().text, throughText);
    EXPECT_EQ(outcome(GetParam().text, ours), expected);
}

INSTANTIATE_TEST_SUITE_P(RegisterTables, RegisterScripts, testing::ValuesIn(scripts),
                         [](const auto &script) { return script.param.name; });

} // namespace
