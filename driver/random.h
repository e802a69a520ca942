// SPDX-License-Identifier: LicenseRef-Proprietary
// Random numbers in integers, so that they are the same on every machine: SplitMix64 (Steele, Lea
// and Flood, "Fast splittable pseudorandom number generators", 2014). Its state is one word, which
// a copy of a board takes along.
#ifndef SOREL_DRIVER_RANDOM_H
#define SOREL_DRIVER_RANDOM_H

#include <cstdint>

namespace sorel
{

// Spreads the bits of a number evenly: numbers that differ in one bit give unrelated ones.
constexpr uint64_t mixed(uint64_t number)
{
    number = (number ^ (number >> 30)) * 0xbf58476d1ce4e5b9;
    number = (number ^ (number >> 27)) * 0x94d049bb133111eb;
    return number ^ (number >> 31);
}

struct Random {
    uint64_t state; // the seed, at first
};

constexpr uint64_t next(Random &random)
{
    random.state += 0x9e3779b97f4a7c15;
    return mixed(random.state);
}

} // namespace sorel

#endif
