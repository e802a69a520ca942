// SPDX-License-Identifier: LicenseRef-Proprietary
// Thousands of tables of any elements, which metatables give and change while they are read.
#include "tests/binding/radio/register_tables/outcome.h"

namespace
{

// A table of any elements, of which a metatable's function may give and change some.
constexpr char anyTable[] = R"(
    local state = SEED
    local function random(limit)
        state = (state * 1103515245 + 12345) % 2147483648
        return math.floor(state / 65536) % limit + 1
    end
    local values = {
        function() return random(30000) * random(30000) * 5 end,
        function() return random(30000) * random(30000) / 1000 end,
        function() return -random(30000) end,
        function() return random(30000) * 1e11 end,
        function() return tostring(random(30000)) end,
        function() return 0.9999 + random(100) / 1e6 end,
    }
    local function value() return values[random(#values)]() end
    local size = random(50)
    local t = {}
    for i = 1, size do t[i] = value() end
    for _ = 1, random(4) - 1 do t[random(size)] = nil end
    if random(4) == 1 then t[random(size)] = ({true, 'x', {}, ''})[random(4)] end
    local does = {
        function() t[random(size)] = value() end,
        function() t[random(size)] = nil end,
        function() collectgarbage('step') end,
        function() note(tostring(pcall(setPower, {random(9), value()}))) end,
        function() if random(9) == 1 then error('mine', 0) end end,
        function() if random(9) == 1 then setmetatable(t, nil) end end,
        function() if random(9) == 1 then t[random(size)] = {} end end,
        function() end,
    }
    local function index(_, key)
        note('asked', key)
        does[random(#does)]()
        if random(30) > 1 then return value() end
    end
    if random(3) > 1 then setmetatable(t, {__index = index}) end
    note(#t)
    note(tostring(select(2, pcall(set, t))))
)";

TEST_F(RegisterTables, ofAnyElementsAreReadAsOneElementAfterTheOtherIs)
{
    int asked = 0;
    int called = 0;
    for (int seed = 1; seed <= ANY_TABLES_COUNT; ++seed) {
        std::string text = anyTable;
        text.replace(text.find("SEED"), 4, std::to_string(seed * 7919));
        const std::string expected = outcome(text, throughText);
        ASSERT_EQ(outcome(text, ours), expected) << "seed " << seed;
        asked += expected.find("asked") != std::string::npos ? 1 : 0;
        called += expected.find("radioSetRxGainRegisters(") != std::string::npos ? 1 : 0;
    }
    EXPECT_GT(asked, ANY_TABLES_COUNT / 10);
    EXPECT_GT(called, ANY_TABLES_COUNT / 10);
    EXPECT_LT(called, ANY_TABLES_COUNT);
}

// What a number's text would take of memory could set off the collector.
TEST_F(RegisterTables, ofNumbersAreReadWithoutAFinaliserInBetween)
{
    const std::string text =
        "local t = {} for i = 1, 2000 do t[i] = i % 2 == 0 and i + 0.99995 or 1e15 + i * 1e10 end "
        "collectgarbage('setstepmul', 1000000) collectgarbage('stop') "
        "getmetatable(newproxy(true)).__gc = function() for i = 1, 2000 do t[i] = 5 end end "
        "collectgarbage('restart') set(t)";
    constexpr char changed[] = ", 5, 5, 5)";
    EXPECT_NE(outcome(text, throughText).find(changed), std::string::npos);
    EXPECT_EQ(outcome(text, ours).find(changed), std::string::npos);
}

} // namespace
