// SPDX-License-Identifier: LicenseRef-Proprietary
// How a call of the interface and its result are written, wherever that is said. Of a pointer they
// say what it leads to, never its value.
#ifndef SOREL_TRACE_CALL_TEXT_H
#define SOREL_TRACE_CALL_TEXT_H

#include "line.h"
#include "names.h"
#include "sorel.h"

namespace sorel
{

// How much is written of what can be long, and how numbers are.
struct Style {
    std::size_t longestText; // bytes of a text
    uint32_t mostWords;      // of an array that is listed; of a longer one their number is said
    bool hexadecimal = false;
};

// Register addresses and words are written in hexadecimal.
inline Style styleOf(const char *function, Style style)
{
    style.hexadecimal = std::string_view(function).starts_with("radioSpi");
    return style;
}

// The result of a function that has none: in another driver's header there may be such.
struct Nothing {
};

// Whether a parameter is a place where the function stores what it finds. In this interface such
// parameters come last.
template <class Parameter>
constexpr bool isResult()
{
    using Value = std::remove_pointer_t<Parameter>;
    return std::is_pointer_v<Parameter> && !std::is_const_v<Value> &&
           (std::is_arithmetic_v<Value> || std::is_pointer_v<Value>);
}

inline bool isSuccess(RadioReturn status)
{
    return status == RADIO_ESUCCESS;
}

// Readings have no status, and no places to store in.
template <class Reading>
bool isSuccess(const Reading &)
{
    return true;
}

template <class Value>
void putValue(Line &line, const Style &style, Value value)
{
    if constexpr (std::is_same_v<Value, Nothing>) {
        line.put("nothing");
    } else if constexpr (std::is_enum_v<Value>) {
        const std::string_view name = nameOf(value);
        if (name.empty())
            line.putInteger(static_cast<std::underlying_type_t<Value>>(value));
        else
            line.put(name);
    } else if constexpr (std::is_floating_point_v<Value>) {
        line.putFraction(static_cast<double>(value));
    } else if constexpr (std::is_integral_v<Value>) {
        if (style.hexadecimal && sizeof value <= sizeof(uint32_t))
            line.putHexadecimal(static_cast<uint32_t>(value));
        else
            line.putInteger(value);
    } else if (!value) {
        line.put("null");
    } else if constexpr (std::is_same_v<Value, const char *>) {
        line.putQuoted(value, style.longestText);
    } else if constexpr (std::is_same_v<Value, FILE *>) {
        line.put("a file");
    } else if constexpr (std::is_same_v<Value, RadioContext *>) {
        line.put("a context");
    } else {
        // Not walked: callers may write into the list of driver names.
        line.put(std::is_same_v<Value, char **> ? "a list" : "a pointer");
    }
}

void putWords(Line &line, const Style &style, const uint32_t *words, uint64_t count);

// The arguments of one call, put one after the other. The context is not shown.
class ArgumentList
{
public:
    ArgumentList(Line &where, const Style &how) : line(where), style(how)
    {
    }

    // Puts what is known before the call.
    template <class Argument>
    void putGiven(Argument argument)
    {
        if constexpr (std::is_same_v<Argument, RadioContext *> || isResult<Argument>()) {
            return;
        } else if constexpr (std::is_same_v<Argument, const uint32_t *>) {
            words = argument;
            hasWords = true;
        } else {
            separate();
            if constexpr (std::is_integral_v<Argument>)
                putWordsBefore(argument);
            putValue(line, style, argument);
        }
    }

    // Puts what is known after it.
    template <class Argument>
    void putFound(Argument argument, bool isFound)
    {
        if constexpr (isResult<Argument>()) {
            line.put(", ");
            if (!argument)
                line.put("null");
            else if (!isFound)
                line.put("out");
            else
                putValue(line, style, *argument);
        }
    }

private:
    void separate()
    {
        if (!isFirst)
            line.put(", ");
        isFirst = false;
    }

    // An array comes before the number of its words.
    template <class Count>
    void putWordsBefore(Count count)
    {
        if (!hasWords)
            return;
        putWords(line, style, words, static_cast<uint64_t>(count));
        line.put(", ");
        hasWords = false;
    }

    Line &line;
    const Style &style;
    bool isFirst = true;
    bool hasWords = false;
    const uint32_t *words = nullptr;
};

// Puts a call as far as it is known before it.
template <class... Arguments>
void putCall(Line &line, const Style &style, const char *function, Arguments... arguments)
{
    line.put(function);
    line.put('(');
    ArgumentList list(line, style);
    (list.putGiven(arguments), ...);
    if constexpr (!(isResult<Arguments>() || ...))
        line.put(')');
}

// Puts what has become known of it since, but for its result.
template <class... Arguments>
void putOutcome(Line &line, const Style &style, [[maybe_unused]] bool isFound,
                Arguments... arguments)
{
    ArgumentList list(line, style);
    (list.putFound(arguments, isFound), ...);
    if constexpr ((isResult<Arguments>() || ...))
        line.put(')');
    line.put(" = ");
}

} // namespace sorel

#endif
