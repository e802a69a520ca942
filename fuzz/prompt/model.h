// SPDX-License-Identifier: LicenseRef-Proprietary
// What the prompt does with its input, worked out apart from the program.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The kinds of line.
enum LineKind : std::size_t {
    emptyLine,
    exitLine,
    quitLine,
    exitCallLine,
    quitCallLine,
    nearlyExit, // with blanks, in capitals, with a carriage return, without its newline
    help,
    zeroByte, // ended by one
    longest,  // 198 bytes and a newline
    controlBytes,
    highBytes,
    otherLine,
    lineKinds
};

// How the input comes to its end.
enum class SessionEnd { word, longLine, endOfInput };

struct Line {
    LineKind kind;
    std::string run; // what is run; nothing for an empty line and an exit word
};

struct Session {
    std::vector<Line>
        lines; // each after a prompt of its own; the last prompt has none at an assertion
    SessionEnd end = SessionEnd::endOfInput;

    std::size_t prompts() const
    {
        return lines.size() + (end == SessionEnd::word ? 0 : 1);
    }
};

Session sessionOf(std::string_view input);
