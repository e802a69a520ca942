// SPDX-License-Identifier: LicenseRef-Proprietary
// The trace: one line for each call of the interface.
#include "trace.h"

#include <algorithm>
#include <new>

namespace sorel
{

namespace
{

// Whether a null context means something to a function.
bool takesNoContext(std::string_view function)
{
    return function == "radioGetPlatformName" || function == "radioVersion" ||
           function == "radioGetDriverNames";
}

} // namespace

unsigned ContextNumbers::of(const RadioContext *context) const
{
    for (const Numbered &numbered : open)
        if (numbered.context == context)
            return numbered.number;
    return 0;
}

void ContextNumbers::opened(const RadioContext *context)
{
    closed(context); // should a driver hand out again what it could not close
    open.push_back({context, ++count});
}

void ContextNumbers::closed(const RadioContext *context)
{
    std::erase_if(open, [&](const Numbered &numbered) { return numbered.context == context; });
}

void Trace::start(const char *variable, const char *path, uint32_t mostWords)
{
    whole = {SIZE_MAX, mostWords};
    variableName = variable;
    output.start(openDestination(variable, path), variable);
}

void Trace::putTime(Line &line) const
{
    if (time < 0)
        return;
    line.put('[');
    line.putSeconds(time);
    line.put("] ");
}

void Trace::putResult(Line &line, const Style &, RadioContext *context)
{
    if (!context) {
        line.put("null");
        return;
    }
    try {
        contexts.opened(context);
    } catch (const std::bad_alloc &) {
        complain(variableName, {"no memory left for the numbers of contexts"});
        output.start(-1, variableName);
    }
    line.put("context ");
    line.putInteger(contexts.last());
}

void Trace::putMark(Line &line, const char *function, RadioContext *context) const
{
    const unsigned number = contexts.of(context);
    if (number != 0 && number == contexts.last())
        return;
    if (number != 0) {
        line.put(" on context ");
        line.putInteger(number);
    } else if (context) {
        line.put(" on no open context");
    } else if (!takesNoContext(function)) {
        line.put(" on a null context");
    }
}

} // namespace sorel
