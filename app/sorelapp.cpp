// SPDX-License-Identifier: LicenseRef-Proprietary
// sorelapp: the start-up order of the shell.
#include "app/context.h"
#include "app/interactive.h"
#include "app/libraries.h"
#include "app/lua_state.h"
#include "app/opening.h"
#include "app/options.h"
#include "app/scripts.h"
#include "app/version.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <lua.hpp>

int main(int argc, char **argv)
{
    AppArgs args;
    if (const error_t failure = parseCommandLine(argc, argv, args); failure != 0) {
        std::fprintf(stderr, "failed to parse the command line: %s\n", std::strerror(failure));
        return EXIT_FAILURE;
    }
    if (args.version) {
        printVersion();
        return EXIT_SUCCESS;
    }

    appRadioOpen();

    appLuaState = luaL_newstate();
    if (appLuaState == nullptr) {
        std::fputs("failed to initialise lua\n", stderr);
        return EXIT_FAILURE;
    }
    beginOpening(appLuaState);
    luaL_openlibs(appLuaState);
    if (!openShellLibraries(appLuaState)) {
        std::fputs("failed to initialise lua (radio module)\n", stderr);
        return EXIT_FAILURE;
    }
    endOpening(appLuaState);

    if (args.batchFile != nullptr) {
        runBatchFile(appLuaState, args.batchFile);
    }
    if (args.interactive) {
        runInteractive(appLuaState);
    } else if (args.command != nullptr) {
        runCommand(appLuaState, args.command);
    }

    appRadioClose();
    keepLoadedLibraries(appLuaState);
    lua_close(appLuaState);
    return EXIT_SUCCESS;
}
