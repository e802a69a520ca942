// SPDX-License-Identifier: LicenseRef-Proprietary
// Texts as template arguments, so that every message about a function is one constant.
#pragma once

#include <cstddef>

template <std::size_t size>
struct FixedString {
    char text[size] = {};

    constexpr FixedString() = default;

    constexpr FixedString(const char (&characters)[size])
    {
        for (std::size_t i = 0; i < size; ++i) {
            text[i] = characters[i];
        }
    }
};

template <std::size_t left, std::size_t right>
constexpr FixedString<left + right - 1> operator+(const FixedString<left> &first,
                                                  const FixedString<right> &second)
{
    FixedString<left + right - 1> joined;
    for (std::size_t i = 0; i < left - 1; ++i) {
        joined.text[i] = first.text[i];
    }
    for (std::size_t i = 0; i < right; ++i) {
        joined.text[left - 1 + i] = second.text[i];
    }
    return joined;
}
