// SPDX-License-Identifier: LicenseRef-Proprietary
// Reading a file as a whole: calibration data, an initialisation script, a scenario.
#include "files.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace sorel
{

namespace
{

constexpr std::size_t largestFile = 1 << 20;

class Descriptor
{
public:
    explicit Descriptor(const char *path)
        : number(open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY))
    {
    }
    ~Descriptor()
    {
        if (number >= 0)
            close(number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    const int number;
};

} // namespace

Outcome readFile(const char *path, std::string &text)
{
    const Descriptor file(path);
    if (file.number < 0)
        return refused(RADIO_EINVAL, "the file cannot be opened");
    struct stat status;
    if (fstat(file.number, &status) != 0 || !S_ISREG(status.st_mode))
        return refused(RADIO_EINVAL, "not a regular file");

    char block[4096];
    for (;;) {
        const ssize_t count = read(file.number, block, sizeof block);
        if (count == 0)
            return done();
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return refused(RADIO_EINVAL, "the file cannot be read");
        text.append(block, static_cast<std::size_t>(count));
        if (text.size() > largestFile)
            return refused(RADIO_EINVAL, "the file is larger than 1 MiB");
    }
}

} // namespace sorel
