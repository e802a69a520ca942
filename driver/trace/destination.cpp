// SPDX-License-Identifier: LicenseRef-Proprietary
// Files that environment variables name, for what a library says of itself.
#include "destination.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace sorel
{

namespace
{

// A descriptor that is none of the standard ones. Where the process runs without one of these, a
// file that took its number would get what is meant for it.
int aboveTheStandardOnes(int descriptor)
{
    if (descriptor < 0 || descriptor > STDERR_FILENO)
        return descriptor;
    const int higher = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int error = errno;
    close(descriptor);
    errno = error;
    return higher;
}

} // namespace

const char *setting(const char *variable)
{
    const char *const value = std::getenv(variable);
    return value && *value ? value : nullptr;
}

void complain(const char *variable, std::initializer_list<const char *> texts)
{
    std::fprintf(stderr, "libsorel: %s: ", variable);
    for (const char *text : texts)
        std::fputs(text, stderr);
    std::fputc('\n', stderr);
}

int openDestination(const char *variable, const char *path)
{
    if (std::strcmp(path, "-") == 0)
        return STDERR_FILENO;
    const int descriptor =
        aboveTheStandardOnes(open(path, O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0666));
    if (descriptor < 0)
        complain(variable, {"cannot open '", path, "': ", std::strerror(errno)});
    return descriptor;
}

void DescriptorOutput::write(std::string_view bytes)
{
    const int before = errno;
    while (isOpen() && !bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            complain(name, {"cannot write: ", std::strerror(errno)});
            descriptor = -1;
        }
    }
    errno = before; // what the driver has left for its caller
}

} // namespace sorel
