// SPDX-License-Identifier: LicenseRef-Proprietary
// The functions of the radio module.
#pragma once

#include "binding/runtime/module_table.h"

// All of them, in the order in which they are registered.
extern const CommandEntry radioCommands[];
