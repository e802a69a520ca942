// SPDX-License-Identifier: LicenseRef-Proprietary
// The command line.
#pragma once

#include <argp.h>

// What the command line asks for. The texts are those of argv.
struct AppArgs {
    const char *command = nullptr;
    const char *batchFile = nullptr;
    bool interactive = true;
    bool version = false;
};

// Fills args. A command line that is rejected, and one that asks for argp's own help, end the
// process. Returns 0, or the error number of a failure inside argp.
error_t parseCommandLine(int argc, char **argv, AppArgs &args);
