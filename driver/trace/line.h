// SPDX-License-Identifier: LicenseRef-Proprietary
// Lines of text on their way out, without memory from the heap and without the locale.
#ifndef SOREL_TRACE_LINE_H
#define SOREL_TRACE_LINE_H

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace sorel
{

// Where lines go.
class Output
{
public:
    virtual void write(std::string_view bytes) = 0;

protected:
    ~Output() = default;
};

// Part of a line or lines. It is written out in one piece when the object ends, earlier in pieces
// where it is long.
class Line
{
public:
    explicit Line(Output &where) : output(where)
    {
    }

    Line(const Line &) = delete;
    Line &operator=(const Line &) = delete;

    ~Line()
    {
        writeOut();
    }

    void put(char character);
    void put(std::string_view text);
    void put(const char *text)
    {
        put(std::string_view(text));
    }

    // An integer: decimal, or its 32 bits in hexadecimal.
    template <class Integer>
    void putInteger(Integer value)
    {
        static_assert(std::is_integral_v<Integer>);
        char digits[24];
        put({digits, std::to_chars(digits, digits + sizeof digits, value).ptr});
    }
    void putHexadecimal(uint32_t value);

    // A fraction, rounded to two decimals.
    void putFraction(double value);

    // A text between quotes, what is not printable escaped; of a longer one only that many bytes,
    // and dots behind the quotes.
    void putQuoted(const char *text, std::size_t longest);

    // Nanoseconds as seconds, cut to microseconds.
    void putSeconds(int64_t nanoseconds);

private:
    void putByte(unsigned char byte);
    void writeOut();

    Output &output;
    std::size_t used = 0;
    char buffer[1024];
};

} // namespace sorel

#endif
