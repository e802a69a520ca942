// SPDX-License-Identifier: LicenseRef-Proprietary
// The trace: one line for each call of the interface. What is known of a call is written before it
// runs, so that the call in which a process ends is the last in its trace.
#ifndef SOREL_TRACE_TRACE_H
#define SOREL_TRACE_TRACE_H

#include "call_text.h"
#include "destination.h"

#include <vector>

namespace sorel
{

// Contexts by the order in which radioOpen() has answered with them in this process.
class ContextNumbers
{
public:
    // The number of an open context; 0 for any other pointer.
    unsigned of(const RadioContext *context) const;

    // That of the context opened last.
    unsigned last() const
    {
        return count;
    }

    // Throws std::bad_alloc.
    void opened(const RadioContext *context);
    void closed(const RadioContext *context);

private:
    struct Numbered {
        const RadioContext *context;
        unsigned number;
    };
    std::vector<Numbered> open;
    unsigned count = 0;
};

class Trace
{
public:
    // Begins the trace at the path that the variable of that name has given. Of arrays it lists up
    // to that many words.
    void start(const char *variable, const char *path, uint32_t mostWords);

    // False before start(), where the path could not be opened, and after a write error.
    bool isOn() const
    {
        return output.isOpen();
    }

    // From now on lines begin with this simulated time, in nanoseconds.
    void setTime(int64_t nanoseconds)
    {
        time = nanoseconds;
    }

    // Makes a call, and writes it down as that of function with those arguments.
    template <class Call, class... Arguments>
    auto record(const char *function, Call call, Arguments... arguments);

private:
    void putTime(Line &line) const;

    void putResult(Line &line, const Style &, RadioContext *context);
    template <class Result>
    void putResult(Line &line, const Style &style, Result result)
    {
        putValue(line, style, result);
    }

    // Marks a call on another context than the one opened last.
    void putMark(Line &line, const char *function, RadioContext *context) const;
    template <class Argument>
    void putMark(Line &, const char *, const Argument &) const
    {
    }

    template <class Result, class Argument>
    void noteClosed(const char *function, const Result &result, Argument argument);

    DescriptorOutput output;
    const char *variableName = nullptr;
    Style whole = {};  // what is said of everything
    int64_t time = -1; // negative: lines have no time
    ContextNumbers contexts;
};

template <class Result, class Argument>
void Trace::noteClosed(const char *function, const Result &result, Argument argument)
{
    if constexpr (std::is_same_v<Argument, RadioContext *>)
        if (std::string_view(function) == "radioClose" && isSuccess(result))
            contexts.closed(argument);
}

template <class Call, class... Arguments>
auto Trace::record(const char *function, Call call, Arguments... arguments)
{
    const Style callStyle = styleOf(function, whole);
    {
        Line line(output);
        putTime(line);
        putCall(line, callStyle, function, arguments...);
    }
    const auto result = call();
    {
        Line line(output);
        putOutcome(line, callStyle, isSuccess(result), arguments...);
        putResult(line, callStyle, result);
        (putMark(line, function, arguments), ...);
        line.put('\n');
    }
    (noteClosed(function, result, arguments), ...);
    return result;
}

} // namespace sorel

#endif
