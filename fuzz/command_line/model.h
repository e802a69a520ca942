// SPDX-License-Identifier: LicenseRef-Proprietary
// What becomes of a command line, worked out apart from the program and from the C library's
// parser.
#pragma once

#include <optional>
#include <string>
#include <vector>

// How an option, or what is none, is written.
enum Spelling : std::size_t {
    shortBatch,           // -b FILE
    joinedBatch,          // -bFILE
    longBatch,            // --batch FILE
    equalsBatch,          // --batch=FILE
    shortenedBatch,       // --ba FILE
    shortenedEqualsBatch, // --ba=FILE
    shortCommand,
    joinedCommand,
    longCommand,
    equalsCommand,
    shortenedCommand,
    shortenedEqualsCommand,
    shortInteractive,
    longInteractive,
    shortenedInteractive,
    shortVersion,
    longVersion,
    shortenedVersion,
    shortHelp,
    longHelp,
    shortenedHelp,
    longUsage,
    shortenedUsage,
    shortLibraryVersion,
    programName,
    hang,
    endOfOptions, // --
    positional,
    single, // - , which is positional
    unknownShort,
    unknownLong,
    nameless,     // --=VALUE
    valueForNone, // --interactive=VALUE
    missingValue, // -b at the end
    spellingCount
};

struct Met {
    Spelling spelling;
    std::optional<std::string> value;
};

enum Outcome : std::size_t { accepted, rejected, answered, outcomeCount };

struct Expected {
    Outcome outcome = accepted;
    // Nothing is promised: the C library's parser sleeps for whoever debugs it (--HANG), or comes
    // to an unknown option of the byte 0xff, which it takes for -? where characters have a sign.
    bool leftOut = false;
    std::optional<std::string> batchFile;
    std::optional<std::string> command;
    bool interactive = true;
    bool version = false;
    std::vector<Met> met;
};

// The arguments are those after the program's name.
Expected expectedOf(const std::vector<std::string> &arguments);
