// SPDX-License-Identifier: LicenseRef-Proprietary
// What a script does with register tables, by the shell's functions or by those that take one
// element after the other through its text.
#pragma once

#include "bench/yardstick/register_tables.h"
#include "binding/radio/register_tables.h"
#include "tests/binding/radio/register_tables/captured_words.h"

#include "app/context.h"

#include <gtest/gtest.h>
#include <lua.hpp>
#include <string>

struct Setters {
    lua_CFunction rxGain;
    lua_CFunction txPower;
};

constexpr Setters ours = {radioSetRxGainRegistersWrapper, radioSetTxPowerRegistersWrapper};
constexpr Setters throughText = {yardstickSetRxGainRegisters, yardstickSetTxPowerRegisters};

// Runs the script in a state of its own, where it can call set(t), setPower(t) and note(...) with
// texts. Returns what it noted, the error that it raised and the calls that the driver got.
std::string outcome(const std::string &script, const Setters &setters);

// Tests of functions that find a context open.
class RegisterTables : public testing::Test
{
protected:
    RegisterTables()
    {
        appContext = reinterpret_cast<RadioContext *>(this);
    }

    ~RegisterTables() override
    {
        appContext = nullptr;
        registerStatus = RADIO_ESUCCESS;
    }
};
