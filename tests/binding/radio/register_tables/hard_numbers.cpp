// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tests/binding/radio/register_tables/hard_numbers.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>

namespace
{

// So many of the smallest steps away from value.
double stepped(double value, std::ptrdiff_t steps)
{
    const double end = steps < 0 ? -std::numeric_limits<double>::infinity()
                                 : std::numeric_limits<double>::infinity();
    for (; steps != 0; steps += steps < 0 ? 1 : -1) {
        value = std::nextafter(value, end);
    }
    return value;
}

} // namespace

HardNumbers::HardNumbers()
{
    edges = {0,
             std::numeric_limits<double>::infinity(),
             std::numeric_limits<double>::max(),
             std::numeric_limits<double>::min(),
             std::numeric_limits<double>::quiet_NaN(),
             4294967295.0,
             4294967297.0,
             9999999999.9999,
             99999999999999.0,
             99999999999999.5};
    for (int exponent = -320; exponent <= 308; ++exponent) {
        edges.push_back(std::pow(10, exponent));
    }
    // More often, where it matters most.
    for (int times = 0; times < 50; ++times) {
        for (int exponent = -6; exponent <= 16; ++exponent) {
            edges.push_back(std::pow(10, exponent));
        }
        for (int exponent = 0; exponent <= 64; ++exponent) {
            edges.push_back(std::ldexp(1, exponent));
        }
    }
}

double HardNumbers::next()
{
    double (HardNumbers::*const kinds[])() = {
        &HardNumbers::nearAnEdge,       &HardNumbers::besideAWhole,   &HardNumbers::ofDecimalDigits,
        &HardNumbers::tooLargeForAWord, &HardNumbers::ofAnyMagnitude, &HardNumbers::ofAnyBits};
    const double value = (this->*kinds[below(std::size(kinds))])();
    return below(3) == 0 ? -value : value;
}

double HardNumbers::nearAnEdge()
{
    return stepped(edges[below(edges.size())], static_cast<std::ptrdiff_t>(below(33)) - 16);
}

// A whole number with a fraction that is near one where rounding the text may carry.
double HardNumbers::besideAWhole()
{
    constexpr double fractions[] = {0,      0.00005, 0.0001,  0.0005, 0.001,    0.5,
                                    0.9,    0.99,    0.999,   0.9994, 0.9995,   0.9999,
                                    0.9999, 0.99994, 0.99995, 0.9999, 0.999999, 0.99999999999995};
    const double fraction = fractions[below(std::size(fractions))];
    const std::size_t way = below(4);
    if (way == 0) {
        return whole() + fraction + upTo(1e-4);
    }
    return stepped(way == 1 ? whole() - fraction : whole() + fraction,
                   static_cast<std::ptrdiff_t>(below(9)) - 4);
}

// As a script writes it, with up to 17 digits, so that halves and nines come where 14 end.
double HardNumbers::ofDecimalDigits()
{
    std::uint64_t digits = 0;
    for (std::size_t count = 1 + below(17); count > 0; --count) {
        const std::size_t way = below(4);
        digits = digits * 10 + (way == 0 ? 9 : way == 1 && count == 1 ? 5 : below(10));
    }
    return static_cast<double>(digits) / std::pow(10, static_cast<double>(below(20)));
}

double HardNumbers::tooLargeForAWord()
{
    return below(2) == 0 ? std::exp(std::log(4e9) + upTo(std::log(2e14 / 4e9)))
                         : 1e14 - upTo(below(2) == 0 ? 2 : 20);
}

double HardNumbers::ofAnyMagnitude()
{
    return std::ldexp(1 + upTo(1), static_cast<int>(below(120)) - 60);
}

double HardNumbers::ofAnyBits()
{
    const std::uint64_t bits = random();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

double HardNumbers::whole()
{
    return static_cast<double>(random() >> 31 >> below(34));
}

std::size_t HardNumbers::below(std::size_t limit)
{
    return static_cast<std::size_t>(random() % limit);
}

double HardNumbers::upTo(double limit)
{
    return static_cast<double>(random() >> 11) * 0x1p-53 * limit;
}
