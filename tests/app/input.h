// SPDX-License-Identifier: LicenseRef-Proprietary
// What the line reader reads.
#pragma once

#include <cstdio>
#include <string>

// Standard input holds a text, zero bytes and all.
class Input
{
public:
    explicit Input(const std::string &text) : file(std::tmpfile())
    {
        std::fwrite(text.data(), 1, text.size(), file);
        std::rewind(file);
        stdin = file;
    }

    ~Input()
    {
        stdin = before;
        std::fclose(file);
    }

    Input(const Input &) = delete;
    Input &operator=(const Input &) = delete;

private:
    FILE *before = stdin;
    FILE *file;
};
