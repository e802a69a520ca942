// SPDX-License-Identifier: LicenseRef-Proprietary
// Assertions whose texts are part of the system: the same in every build type, and reported by the
// C library. <cassert> would lose them under NDEBUG and report this tree's files and lines.
#pragma once

extern "C" [[noreturn]] void __assert_fail(const char *expression, const char *file, unsigned line,
                                           const char *function) noexcept;

// Ends the process with the C library's assertion report unless condition holds.
inline void assertThat(bool condition, const char *expression, const char *file, unsigned line,
                       const char *function)
{
    if (!condition) [[unlikely]] {
        __assert_fail(expression, file, line, function);
    }
}
