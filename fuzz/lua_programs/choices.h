// SPDX-License-Identifier: LicenseRef-Proprietary
// An input, as the choices that a program is made by. When they are used up, all further ones are
// 0.
#pragma once

#include <cstddef>
#include <cstdint>

class Choices
{
public:
    Choices(const std::uint8_t *data, std::size_t size) : next_(data), end_(data + size)
    {
    }

    bool left() const
    {
        return next_ != end_;
    }

    std::size_t byte()
    {
        return next_ != end_ ? *next_++ : 0;
    }

    // Less than count, which is not 0.
    std::size_t below(std::size_t count)
    {
        const std::size_t low = byte();
        return (count > 256 ? low + 256 * byte() : low) % count;
    }

private:
    const std::uint8_t *next_;
    const std::uint8_t *end_;
};
