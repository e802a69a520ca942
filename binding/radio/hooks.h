// SPDX-License-Identifier: LicenseRef-Proprietary
// The class RadioHooks.
#pragma once

#include "binding/runtime/records.h"

extern ClassRecord hooksClass;
