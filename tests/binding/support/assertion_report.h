// SPDX-License-Identifier: LicenseRef-Proprietary
// Failed assertions: their reports are part of the system, so tests compare them whole.
#pragma once

#include <csignal>
#include <gtest/gtest.h>
#include <string>

// The C library's report, as a regular expression that matches its literal text.
inline std::string assertionReport(const char *file, unsigned line, const char *function,
                                   const char *expression)
{
    const std::string report = std::string(": ") + file + ":" + std::to_string(line) + ": " +
                               function + ": Assertion `" + expression + "' failed.\n";
    std::string pattern;
    for (const char character : report) {
        if (std::string("()[]{}.*+?|^$\\").find(character) != std::string::npos) {
            pattern += '\\';
        }
        pattern += character;
    }
    return pattern;
}

// The statement ends the process with this report of the source unit radio_wrap.
#define EXPECT_INVARIANT(statement, line, function, expression)                                    \
    EXPECT_EXIT(statement, testing::KilledBySignal(SIGABRT),                                       \
                assertionReport("radio_wrap", line, function, expression))

// The expression that most of the reports quote.
inline constexpr char topIsTableText[] = "(lua_type(L, (-1)) == 5)";
