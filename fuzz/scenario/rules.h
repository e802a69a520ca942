// SPDX-License-Identifier: LicenseRef-Proprietary
// Which scenario files have to be refused, and which must not be: from the tables of the driver's
// documentation, by themselves.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

enum ValueKind : std::size_t {
    integerValue,
    floatValue,
    text,
    boolean,
    instant,
    list,
    table,
    valueKinds
};

struct KeyMet {
    std::size_t row; // of keyRows()
    ValueKind kind;
};

struct Judgement {
    bool isToml = false;
    bool mustBeRefused = false;
    bool mustBeTaken = false;
    bool followsRealTime = false;
    std::vector<KeyMet> keys;
};

// The rows of the table of cells: each key, "unknown key" and "an address".
std::vector<std::string> keyRows();
std::size_t unknownKeyRow();

Judgement judge(const std::string &scenario);
