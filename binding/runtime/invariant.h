// SPDX-License-Identifier: LicenseRef-Proprietary
// The invariants of the binding runtime. A broken one ends the process with a report that names the
// source unit radio_wrap, a function and a line.
#pragma once

#include "binding/runtime/assertion.h"

inline void checkInvariant(bool holds, const char *expression, unsigned line, const char *function)
{
    assertThat(holds, expression, "radio_wrap", line, function);
}

// The expression that most of the reports quote: the value on top of the stack is a table.
inline constexpr char topIsTable[] = "(lua_type(L, (-1)) == 5)";
