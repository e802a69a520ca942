// SPDX-License-Identifier: LicenseRef-Proprietary
// Decibels and what they stand for.
#ifndef SOREL_DRIVER_DECIBEL_H
#define SOREL_DRIVER_DECIBEL_H

#include <cmath>

namespace sorel
{

inline double ratio(double decibels)
{
    return std::pow(10.0, decibels * 0.1);
}

inline double milliwatts(double dBm)
{
    return ratio(dBm);
}

inline double dBmOf(double milliwatts)
{
    return 10.0 * std::log10(milliwatts);
}

} // namespace sorel

#endif
