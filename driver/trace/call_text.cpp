// SPDX-License-Identifier: LicenseRef-Proprietary
// How a call of the interface and its result are written, wherever that is said.
#include "call_text.h"

namespace sorel
{

void putWords(Line &line, const Style &style, const uint32_t *words, uint64_t count)
{
    if (!words) {
        line.put("null");
        return;
    }
    line.put('[');
    if (count > style.mostWords) {
        line.putInteger(count);
        line.put(" words");
    } else {
        for (uint64_t i = 0; i < count; ++i) {
            if (i > 0)
                line.put(", ");
            line.putInteger(words[i]);
        }
    }
    line.put(']');
}

} // namespace sorel
