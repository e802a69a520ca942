// SPDX-License-Identifier: LicenseRef-Proprietary
// Files that environment variables name, for what a library says of itself.
#ifndef SOREL_TRACE_DESTINATION_H
#define SOREL_TRACE_DESTINATION_H

#include "line.h"

#include <initializer_list>

namespace sorel
{

// The value of an environment variable; null where it is not set, or empty.
const char *setting(const char *variable);

// Says these texts, one after the other, in a line of their own on standard error, behind the names
// of the library and the variable.
void complain(const char *variable, std::initializer_list<const char *> texts);

// Opens the file that a variable names by that path, emptied, for writing at its end. Returns its
// descriptor; standard error's for "-". Where it cannot be opened it says so, and returns -1.
int openDestination(const char *variable, const char *path);

// Writes to a descriptor at once. After an error it has said so, once, and writes nothing more.
class DescriptorOutput : public Output
{
public:
    // Messages name the variable.
    void start(int where, const char *variable)
    {
        descriptor = where;
        name = variable;
    }

    bool isOpen() const
    {
        return descriptor >= 0;
    }

    void write(std::string_view bytes) override;

private:
    int descriptor = -1;
    const char *name = nullptr;
};

} // namespace sorel

#endif
