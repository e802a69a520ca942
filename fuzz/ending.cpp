// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/ending.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

#ifdef __has_feature
#if __has_feature(address_sanitizer)
#include <sanitizer/allocator_interface.h>
#define TELLS_ALLOCATIONS
#endif
#endif

namespace
{

std::jmp_buf way_out;
bool running = false;
Ending ending;

[[noreturn]] void leave(Ending::Way way)
{
    running = false;
    ending.way = way;
    std::longjmp(way_out, 1);
}

bool catchesExit = false;

// The C library has taken the handler off its list and holds no lock when it calls it, so that
// exit() can be left like any other function. It calls exit() itself where nothing put before its
// own is called.
void leaveExit(int status, void *)
{
    catchesExit = false;
    if (running) {
        ending.status = status;
        leave(Ending::exited);
    }
}

#ifdef TELLS_ALLOCATIONS
constexpr std::size_t mostBlocks = 10000;
std::array<const volatile void *, mostBlocks> blocks;
std::size_t blockCount = 0;
bool watching = false;

void noteMalloc(const volatile void *block, std::size_t)
{
    if (watching && blockCount < mostBlocks) {
        blocks[blockCount++] = block;
    }
}

void noteFree(const volatile void *block)
{
    if (watching) {
        const auto end = blocks.begin() + blockCount;
        if (const auto found = std::find(blocks.begin(), end, block); found != end) {
            *found = blocks[--blockCount];
        }
    }
}
#endif

} // namespace

// In place of the C library's.
extern "C" [[noreturn]] void __assert_fail(const char *expression, const char *file, unsigned line,
                                           const char *function) noexcept
{
    if (!running) {
        std::fprintf(stderr, "%s:%u: %s: %s\n", file, line, function, expression);
        std::abort();
    }
    ending.assertion =
        std::string(file) + ":" + std::to_string(line) + ": " + function + ": " + expression;
    leave(Ending::asserted);
}

Ending runToItsEnd(const std::function<void()> &run)
{
    ending = {};
    if (!catchesExit) {
        catchesExit = on_exit(leaveExit, nullptr) == 0;
    }
    if (setjmp(way_out) == 0) {
        running = true;
        run();
        running = false;
    }
    return ending;
}

void abandonRun()
{
    leave(Ending::abandoned);
}

#ifdef TELLS_ALLOCATIONS
Leftovers::Leftovers()
{
    static const int installed = __sanitizer_install_malloc_and_free_hooks(noteMalloc, noteFree);
    blockCount = 0;
    watching = installed != 0;
}

Leftovers::~Leftovers()
{
    watching = false;
    for (std::size_t i = 0; i < blockCount; ++i) {
        std::free(const_cast<void *>(blocks[i]));
    }
}
#else
Leftovers::Leftovers() = default;
Leftovers::~Leftovers() = default;
#endif

void failTarget(const std::string &what)
{
    // Straight to the descriptor: the streams may be the program's.
    const std::string line = "wrong: " + what + "\n";
    static_cast<void>(!write(STDERR_FILENO, line.data(), line.size()));
    std::abort();
}
