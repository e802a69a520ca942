// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/streams.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/types.h>

namespace
{

constexpr std::size_t mostKept = std::size_t{1} << 20;

std::string_view unread;
Written written;

ssize_t readInput(void *, char *buffer, std::size_t size)
{
    const std::size_t count = std::min(size, unread.size());
    std::copy_n(unread.begin(), count, buffer);
    unread.remove_prefix(count);
    return static_cast<ssize_t>(count);
}

ssize_t keep(void *text, const char *buffer, std::size_t size)
{
    auto &kept = *static_cast<std::string *>(text);
    if (kept.size() + size <= mostKept) {
        kept.append(buffer, size);
    } else {
        written.whole = false;
    }
    return static_cast<ssize_t>(size);
}

struct Streams {
    std::FILE *in;
    std::FILE *out;
    std::FILE *err;

    void takeTheirPlace() const
    {
        stdin = in;
        stdout = out;
        stderr = err;
    }
};

// All memory is had at the beginning: what is allocated while a run is watched is the run's.
std::FILE *open(void *cookie, const char *mode, cookie_io_functions_t functions, char *buffer)
{
    std::FILE *const file = fopencookie(cookie, mode, functions);
    if (file == nullptr || std::setvbuf(file, buffer, _IOFBF, BUFSIZ) != 0) {
        std::perror("fopencookie");
        std::abort();
    }
    return file;
}

const Streams &ours()
{
    static char buffers[3][BUFSIZ];
    static const Streams streams = {
        open(nullptr, "r", {readInput, nullptr, nullptr, nullptr}, buffers[0]),
        open(&written.out, "w", {nullptr, keep, nullptr, nullptr}, buffers[1]),
        open(&written.err, "w", {nullptr, keep, nullptr, nullptr}, buffers[2]),
    };
    return streams;
}

const Streams theirs = {stdin, stdout, stderr};

void clearWritten()
{
    for (std::string *const text : {&written.out, &written.err}) {
        text->clear();
        text->reserve(mostKept);
    }
    written.whole = true;
}

} // namespace

void beginStreams(std::string_view input)
{
    const Streams &streams = ours();
    unread = input;
    std::clearerr(streams.in);
    clearWritten();
    streams.takeTheirPlace();
}

Written takeWritten()
{
    std::fflush(stdout);
    std::fflush(stderr);
    const Written taken = written;
    clearWritten();
    return taken;
}

Written endStreams()
{
    const Written taken = takeWritten();
    unread = {};
    // Takes what is still buffered.
    while (std::getc(stdin) != EOF) {
    }
    theirs.takeTheirPlace();
    return taken;
}
