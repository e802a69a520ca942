// SPDX-License-Identifier: LicenseRef-Proprietary
// The formulas of driver/README.md as the tests need them, and statistics of readings.
#ifndef SOREL_TESTS_DRIVER_MODEL_H
#define SOREL_TESTS_DRIVER_MODEL_H

#include <cmath>
#include <initializer_list>
#include <vector>

namespace sorel_tests
{

// Powers in dBm, added up as powers.
inline double sum(std::initializer_list<double> powers)
{
    double total = 0;
    for (const double power : powers)
        total += std::pow(10, power / 10);
    return 10 * std::log10(total);
}

// Thermal noise at 290 K in a bandwidth in Hz, in dBm.
inline double thermalNoise(double bandwidth)
{
    return -173.98 + 10 * std::log10(bandwidth);
}

// Noise of a receive converter of that many bits in its channel, in dBm at the antenna connector.
inline double quantisationNoise(int bits, double bandwidth, double sampleRate, double gain)
{
    return -(6.02 * bits + 1.76) + 10 * std::log10(bandwidth / sampleRate) - gain;
}

// What one RTWP reading averages over, in seconds: in the 2G mode, which alone is that narrow, a
// time slot.
inline double averagingTime(double bandwidth)
{
    return bandwidth > 0.2e6 ? 1e-4 : 576.9e-6;
}

// Standard deviation of one RTWP reading in dB.
inline double readingSpread(double bandwidth)
{
    return 4.34 / std::sqrt(bandwidth * averagingTime(bandwidth));
}

// How far the mean of that many readings may lie from the model, in dB: four standard errors.
inline double meanTolerance(double bandwidth, std::size_t readings)
{
    return 4 * readingSpread(bandwidth) / std::sqrt(static_cast<double>(readings));
}

inline double mean(const std::vector<double> &values)
{
    double total = 0;
    for (const double value : values)
        total += value;
    return total / static_cast<double>(values.size());
}

inline double standardDeviation(const std::vector<double> &values)
{
    const double middle = mean(values);
    double squares = 0;
    for (const double value : values)
        squares += (value - middle) * (value - middle);
    return std::sqrt(squares / static_cast<double>(values.size() - 1));
}

// Occupied bandwidth and sample rate of LTE 20 MHz, which most tests use.
constexpr double lte20 = 18e6;
constexpr double lte20Rate = 30.72e6;

} // namespace sorel_tests

#endif
