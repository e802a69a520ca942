// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tests/failing_memory/failing_memory.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <iterator>

extern "C" {

// What the linker calls the C library's own, and those that it has called in their place.
void *__real_malloc(std::size_t size);
void *__real_calloc(std::size_t count, std::size_t size);
void __real_free(void *block);
void *__wrap_malloc(std::size_t size);
void *__wrap_calloc(std::size_t count, std::size_t size);
void __wrap_free(void *block);

} // extern "C"

namespace
{

bool counting = false;
long counted = 0;
long failing = 0;
Allocation failed = Allocation::none;

std::size_t luaBytes = 0;
void *blocks[100] = {};

bool fails(Allocation kind)
{
    if (!counting) {
        return false;
    }
    ++counted;
    if (counted != failing) {
        return false;
    }
    failed = kind;
    errno = ENOMEM;
    return true;
}

[[noreturn]] void die(const char *why)
{
    std::fprintf(stderr, "failing memory: %s\n", why);
    std::abort();
}

// The place of a block, or a free one for a null block.
void **placeOf(void *block)
{
    void **const place = std::find(std::begin(blocks), std::end(blocks), block);
    return place != std::end(blocks) ? place : nullptr;
}

void *take(void *block)
{
    if (block != nullptr) {
        void **const place = placeOf(nullptr);
        if (place == nullptr) {
            die("more blocks than there is room for");
        }
        *place = block;
    }
    return block;
}

// A block of a Lua state stands behind its size, so that what Lua says of that can be checked.
union Header {
    std::size_t size;
    std::max_align_t alignment;
};

Header *headerOf(void *block)
{
    return block != nullptr ? static_cast<Header *>(block) - 1 : nullptr;
}

void *allocateForLua(void *, void *block, std::size_t oldSize, std::size_t newSize)
{
    Header *const old = headerOf(block);
    if (old != nullptr && old->size != oldSize) {
        die("Lua names another size than the block has");
    }
    if (newSize == 0) {
        luaBytes -= oldSize;
        __real_free(old);
        return nullptr;
    }
    if (fails(Allocation::ofLua)) {
        return nullptr;
    }
    // Always another block, as realloc() may give one; a pointer into the old one shows.
    auto *const header = static_cast<Header *>(__real_malloc(sizeof(Header) + newSize));
    if (header == nullptr) {
        die("the machine has no memory");
    }
    header->size = newSize;
    luaBytes += newSize;
    if (old != nullptr) {
        std::copy_n(static_cast<char *>(block), std::min(oldSize, newSize),
                    reinterpret_cast<char *>(header + 1));
        std::fill_n(static_cast<char *>(block), oldSize, '\xa5');
        luaBytes -= oldSize;
        __real_free(old);
    }
    return header + 1;
}

} // namespace

void *__wrap_malloc(std::size_t size)
{
    return fails(Allocation::byMalloc) ? nullptr : take(__real_malloc(size));
}

void *__wrap_calloc(std::size_t count, std::size_t size)
{
    return fails(Allocation::byCalloc) ? nullptr : take(__real_calloc(count, size));
}

void __wrap_free(void *block)
{
    if (void **const place = block != nullptr ? placeOf(block) : nullptr; place != nullptr) {
        *place = nullptr;
    } else if (counting && block != nullptr) {
        die("freed what was not taken");
    }
    __real_free(block);
}

void failAllocation(long number)
{
    counting = true;
    counted = 0;
    failing = number;
    failed = Allocation::none;
}

Allocation stopFailing()
{
    counting = false;
    return failed;
}

void pauseFailing()
{
    counting = false;
}

void resumeFailing()
{
    counting = true;
}

void resetMemory()
{
    luaBytes = 0;
    std::fill(std::begin(blocks), std::end(blocks), nullptr);
}

std::size_t bytesOfLua()
{
    return luaBytes;
}

long blocksTaken()
{
    return std::count_if(std::begin(blocks), std::end(blocks),
                         [](const void *block) { return block != nullptr; });
}

lua_State *newStateOfFailingMemory()
{
    return lua_newstate(allocateForLua, nullptr);
}
