// SPDX-License-Identifier: LicenseRef-Proprietary
// Messages about pointer arguments whose type has no name for people. Only another binding's record
// can be such a type; here ours loses its name.
#include "binding/radio/types.h"
#include "binding/radio_wrap.h"
#include "tests/binding/support/lua_test.h"

namespace
{

class TypeWithoutAName : public LuaTest
{
protected:
    TypeWithoutAName()
    {
        radioModuleOpen(L);
        run("h = radio.RadioHooks() get = getmetatable(h)['.get'] set = getmetatable(h)['.set']");
        for (TypeRecord **type = radioTypes; *type != nullptr; ++type) {
            (*type)->str = nullptr;
        }
    }
};

TEST_F(TypeWithoutAName, isVoidPointerToTheCalibrationGetters)
{
    EXPECT_EQ(raised("radio.radioGetIntegerFromCalibration('k', h)"),
              "Error in radioGetIntegerFromCalibration (arg 3), expected 'void*' got 'no value'");
    EXPECT_EQ(raised("radio.radioGetStringFromCalibration('k', h)"),
              "Error in radioGetStringFromCalibration (arg 3), expected 'void*' got 'no value'");
}

TEST_F(TypeWithoutAName, isVoidPointerToTheDebugFile)
{
    EXPECT_EQ(raised("radio.radioSetDebugFile(h)"),
              "Error in radioSetDebugFile (arg 2), expected 'void*' got 'no value'");
}

TEST_F(TypeWithoutAName, isVoidPointerToTheAccessorsOfHooks)
{
    EXPECT_EQ(raised("get.malloc(newproxy())"), "Error in RadioHooks_malloc_get (arg 1), expected "
                                                "'void*' got 'userdata (unknown type)'");
    EXPECT_EQ(raised("set.free(h, h)"), "Error in RadioHooks_free_set (arg 2), expected 'void*' "
                                        "got 'userdata (unknown type)'");
}

TEST_F(TypeWithoutAName, isUnknownToSwigType)
{
    EXPECT_EQ(value("swig_type(h)"), "userdata (unknown type)");
}

} // namespace
