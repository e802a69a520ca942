// SPDX-License-Identifier: LicenseRef-Proprietary
// The version and licence block.
#pragma once

// Prints the block on standard output. Opens no radio: the driver is asked for its platform without
// a context.
void printVersion();
