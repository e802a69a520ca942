// SPDX-License-Identifier: LicenseRef-Proprietary
// The driver's constants as fields of the radio module.
#pragma once

#include "binding/runtime/constants.h"

// Every member of every enumeration of the driver, in the order in which they are installed.
extern const ConstantEntry radioConstants[];
