// SPDX-License-Identifier: LicenseRef-Proprietary
// Numbers of which the digits that Lua prints are hard to foretell, always the same ones in the
// same order.
#pragma once

#include <cstddef>
#include <random>
#include <vector>

class HardNumbers
{
public:
    HardNumbers();

    double next();

private:
    double nearAnEdge();
    double besideAWhole();
    double ofDecimalDigits();
    double tooLargeForAWord();
    double ofAnyMagnitude();
    double ofAnyBits();
    double whole();
    std::size_t below(std::size_t limit);
    double upTo(double limit);

    std::mt19937_64 random{20240501};
    std::vector<double> edges; // where the form of the text or the word changes
};
