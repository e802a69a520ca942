// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/options.h"

#include <cstring>

// Read by argp for its own help and version options.
const char *argp_program_version = "libsorel " SORELAPP_VERSION;
const char *argp_program_bug_address = "sorelapp@example.com";

namespace
{

const argp_option options[] = {
    {"batch", 'b', "FILE", 0, "Process a script file", 0},
    {"command", 'c', "COMMAND", 0, "Run a single command", 0},
    {"interactive", 'i', nullptr, 0, "Run in interactive mode", 0},
    {"version", 'v', nullptr, 0, "Print program version and license", 0},
    {nullptr, 0, nullptr, 0, nullptr, 0},
};

// Judges the final values only, so that the order of the options matters: -i takes the interactive
// mode back that an earlier -b or -c has cleared, and the other way round.
bool isConsistent(const AppArgs &args)
{
    return (!args.interactive && args.batchFile == nullptr) || args.command == nullptr;
}

// Takes an option. False where there is none of that key.
bool takeOption(int key, const char *argument, AppArgs &args)
{
    switch (key) {
    case 'i':
        args.interactive = true;
        return true;
    case 'b':
        args.batchFile = argument;
        args.interactive = false;
        return true;
    case 'c':
        args.command = argument;
        args.interactive = false;
        return true;
    case 'v':
        args.version = true;
        return true;
    default:
        return false;
    }
}

error_t parseOpt(int key, char *argument, argp_state *state)
{
    AppArgs &args = *static_cast<AppArgs *>(state->input);
    if (key == ARGP_KEY_END) {
        if (state->arg_num > 0 || !isConsistent(args)) {
            argp_usage(state);
        }
        return 0;
    }
    return takeOption(key, argument, args) ? 0 : ARGP_ERR_UNKNOWN;
}

// Takes the command lines that nearly all starts have, and leaves the others: none at all, -b FILE
// and -c COMMAND. argp says the same of them, but would bring a quarter of a megabyte of the C
// library into memory for it.
bool takePlainCommandLine(int argc, char **argv, AppArgs &args)
{
    if (argc == 3 && (std::strcmp(argv[1], "-b") == 0 || std::strcmp(argv[1], "-c") == 0)) {
        return takeOption(argv[1][1], argv[2], args);
    }
    return argc == 1;
}

const argp parser = {
    options, parseOpt, nullptr, "sorelapp -- Lua wrapper for libsorel", nullptr, nullptr, nullptr,
};

} // namespace

error_t parseCommandLine(int argc, char **argv, AppArgs &args)
{
    if (takePlainCommandLine(argc, argv, args)) {
        return 0;
    }
    return argp_parse(&parser, argc, argv, 0, nullptr, &args);
}
