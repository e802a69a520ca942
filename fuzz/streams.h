// SPDX-License-Identifier: LicenseRef-Proprietary
// The standard streams of the program, in memory.
#pragma once

#include <string>
#include <string_view>

// Gives the program this as its standard input, and keeps what it writes. Until endStreams().
void beginStreams(std::string_view input);

struct Written {
    std::string out;
    std::string err;
    bool whole = true; // false where it was too much to be kept
};

// What has been written since the beginning, or since the last call of this.
Written takeWritten();

// As takeWritten(), and gives the process its own streams back.
Written endStreams();
