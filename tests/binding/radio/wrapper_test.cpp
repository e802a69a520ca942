// SPDX-License-Identifier: LicenseRef-Proprietary
// The frame of driver functions, around functions that the driver lacks today.
#include "app/context.h"
#include "binding/radio/wrapper.h"
#include "tests/binding/support/lua_test.h"

namespace
{

int contextOfCalls; // its address
std::string made;   // what the last call was given

RadioContext *someContext()
{
    return reinterpret_cast<RadioContext *>(&contextOfCalls);
}

RadioReturn textFirst(RadioContext *context, const char *text, RadioState state)
{
    made = (context == someContext() ? "" : "other context, ") + std::string(text) + ", " +
           std::to_string(static_cast<int>(state));
    return RADIO_ESUCCESS;
}

enum Signed { least = INT32_MIN, most = INT32_MAX };
enum class Unsigned : std::uint32_t { most = UINT32_MAX };

Signed leastOfSigned()
{
    return least;
}

Unsigned mostOfUnsigned()
{
    return Unsigned::most;
}

// Closes the radio when it is collected.
int closeRadio(lua_State *)
{
    appContext = nullptr;
    return 0;
}

class WrapperTest : public LuaTest
{
protected:
    WrapperTest()
    {
        appContext = someContext();
        made = "nothing";
        name("textFirst", Wrapper<"textFirst", textFirst, WrapperOptions{}>::call);
        name("leastOfSigned", Wrapper<"leastOfSigned", leastOfSigned, WrapperOptions{}>::call);
        name("mostOfUnsigned", Wrapper<"mostOfUnsigned", mostOfUnsigned, WrapperOptions{}>::call);
        name("closeRadio", closeRadio);
    }

    ~WrapperTest() override
    {
        appContext = nullptr;
    }

    WrapperTest(const WrapperTest &) = delete;
    WrapperTest &operator=(const WrapperTest &) = delete;

    // A script with an object that closes the radio as soon as any text is made.
    static std::string closingMeanwhile(const std::string &script)
    {
        return "p = newproxy(true) getmetatable(p).__gc = closeRadio "
               "collectgarbage('stop') collectgarbage('setstepmul', 0) p = nil "
               "collectgarbage('restart') " +
               script;
    }
};

TEST_F(WrapperTest, convertsInOrderWithTheContextOfTheEntry)
{
    run(closingMeanwhile("textFirst(7, 8)"));
    EXPECT_EQ(made, "7, 8");
    EXPECT_EQ(appContext, nullptr) << "the conversion of 7 runs the finaliser";
}

TEST_F(WrapperTest, hasTheContextOfTheEntryWhicheverNumbersAreConverted)
{
    run(closingMeanwhile("textFirst(7, 1e10)"));
    EXPECT_EQ(made, "7, 2147483647");
    EXPECT_EQ(appContext, nullptr);
}

TEST_F(WrapperTest, givesAnEnumerationAsItsNumberOf32SignedBits)
{
    EXPECT_EQ(value("leastOfSigned()"), "-2147483648");
    EXPECT_EQ(value("mostOfUnsigned()"), "-1");
    EXPECT_EQ(value("select('#', leastOfSigned())"), "1");
}

} // namespace
