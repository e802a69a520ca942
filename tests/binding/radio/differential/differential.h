// SPDX-License-Identifier: LicenseRef-Proprietary
// Calls of two makes of a function, compared.
#pragma once

#include "tests/binding/radio/differential/memory_driver.h"
#include "tests/binding/support/lua_test.h"

#include <iosfwd>
#include <map>
#include <sstream>
#include <vector>

struct Function {
    const char *name;
    const char *kinds; // of its arguments; see AnyValues::pushArguments()
};

// The functions of the shell, and those written by hand.
lua_CFunction inShell(const char *name);
lua_CFunction byHand(const char *name);

// What a call led to.
struct Outcome {
    bool failed = false;
    DriverCalls driver;
    std::vector<std::string> results; // or the error

    bool operator==(const Outcome &) const = default;
};

std::ostream &operator<<(std::ostream &out, const Outcome &outcome);

class Differential : public LuaTest
{
protected:
    Differential();
    ~Differential() override;

    // Calls the function with the arguments on top of the stack, and leaves these there.
    Outcome call(lua_CFunction function, int arguments);

    // Makes so many calls, with any arguments and answers, of both; says how many differ.
    int differences(const Function &function, lua_CFunction ours, lua_CFunction theirs, int calls,
                    unsigned seed);

    std::map<std::string, int> seen; // how often theirs led to an error, or to "success"
    std::ostringstream first;        // the first difference
};
