// SPDX-License-Identifier: LicenseRef-Proprietary
// Decibels and what they stand for.
#ifndef SOREL_DRIVER_DECIBEL_H
#define SOREL_DRIVER_DECIBEL_H

#include <cmath>

namespace sorel
{

// ln 10 / 10. exp() and log() take half the time of pow() and log10().
constexpr double lnPerDecibel = 0.23025850929940457;

inline double ratio(double decibels)
{
    return std::exp(decibels * lnPerDecibel);
}

// A ratio with its decibels, for one that is asked for over and over with the same: exp() takes
// longer than all that a call does besides.
struct KeptRatio {
    double decibels = 0;
    double value = 1;
};

inline double ratio(KeptRatio &kept, double decibels)
{
    if (kept.decibels != decibels)
        kept = {decibels, ratio(decibels)};
    return kept.value;
}

inline double milliwatts(double dBm)
{
    return ratio(dBm);
}

inline double dBmOf(double milliwatts)
{
    return std::log(milliwatts) / lnPerDecibel;
}

} // namespace sorel

#endif
