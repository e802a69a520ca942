// SPDX-License-Identifier: LicenseRef-Proprietary
// Calls of every function with any arguments, valid and invalid, from a seed.
#ifndef SOREL_TESTS_DRIVER_ANY_CALL_H
#define SOREL_TESTS_DRIVER_ANY_CALL_H

#include "radio_test.h"

#include <random>

namespace sorel_tests
{

constexpr int functionCount = 46;

class AnyCallTest : public RadioTest
{
protected:
    uint32_t randomNumber()
    {
        return static_cast<uint32_t>(engine());
    }

    // A value of any type: often a boundary, sometimes anything.
    template <class Value>
    Value any()
    {
        return static_cast<Value>(anyWord());
    }

    uint32_t anyWord();
    const char *anyText();

    // Null, or words that really are there.
    const uint32_t *anyWords(uint32_t &count);

    // The open one as a rule.
    RadioContext *anyContext();

    // Calls the function of that number, 0 to functionCount - 1, with any arguments. One without a
    // status answers RADIO_ESUCCESS. Now and then the context is closed and opened anew.
    RadioReturn call(int function, RadioContext *c);

    std::mt19937 engine{4711};
    RadioContext *closed = nullptr; // one that was open
};

} // namespace sorel_tests

#endif
