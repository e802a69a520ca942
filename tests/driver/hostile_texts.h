// SPDX-License-Identifier: LicenseRef-Proprietary
// Files that nobody would write: noise, and good files with damage.
#ifndef SOREL_TESTS_DRIVER_HOSTILE_TEXTS_H
#define SOREL_TESTS_DRIVER_HOSTILE_TEXTS_H

#include <cstdint>
#include <fstream>
#include <random>
#include <string>
#include <utility>

namespace sorel_tests
{

// The same texts in every run.
class HostileTexts
{
public:
    explicit HostileTexts(std::string text) : good(std::move(text))
    {
    }

    std::string next()
    {
        switch (number++ % 3) {
        case 0:
            return noise();
        case 1:
            return damaged();
        default:
            return piecedTogether();
        }
    }

    // Puts the next one into that file.
    void writeNext(const std::string &path)
    {
        std::ofstream(path, std::ios::binary) << next();
    }

private:
    uint32_t random(std::size_t below)
    {
        return static_cast<uint32_t>(engine()) % static_cast<uint32_t>(below);
    }

    char byte()
    {
        return static_cast<char>(random(256));
    }

    std::string noise()
    {
        std::string text;
        for (uint32_t length = random(200); length > 0; --length)
            text += byte();
        return text;
    }

    // Some bytes changed, most to ones that such files have.
    std::string damaged()
    {
        std::string text = good;
        for (uint32_t count = 1 + random(4); count > 0; --count) {
            char &changed = text[random(text.size())];
            changed = random(4) != 0 ? good[random(good.size())] : byte();
        }
        return text;
    }

    std::string piecedTogether()
    {
        const uint32_t end = random(good.size());
        return good.substr(0, end) + good.substr(random(good.size()));
    }

    const std::string good;
    std::mt19937 engine{20261121};
    int number = 0;
};

} // namespace sorel_tests

#endif
