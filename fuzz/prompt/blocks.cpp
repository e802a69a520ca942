// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/prompt/blocks.h"

#include <cstdlib>
#include <vector>

namespace
{

constexpr std::size_t mostMemory = std::size_t{32} << 20;

std::unordered_set<void *> &shellBlocks()
{
    static std::unordered_set<void *> blocks;
    return blocks;
}

} // namespace

// In place of the calls in this program; the libraries have their own.
extern "C" {

void *__real_malloc(std::size_t size);
void *__real_calloc(std::size_t count, std::size_t size);
void __real_free(void *block);

void *__wrap_malloc(std::size_t size)
{
    void *const block = __real_malloc(size);
    shellBlocks().insert(block);
    return block;
}

void *__wrap_calloc(std::size_t count, std::size_t size)
{
    void *const block = __real_calloc(count, size);
    shellBlocks().insert(block);
    return block;
}

void __wrap_free(void *block)
{
    shellBlocks().erase(block);
    __real_free(block);
}
}

Blocks::~Blocks()
{
    for (void *const block : blocks_) {
        __real_free(block);
    }
}

void *Blocks::change(void *block, std::size_t oldSize, std::size_t newSize)
{
    if (newSize == 0) {
        blocks_.erase(block);
        __real_free(block);
        used_ -= oldSize;
        return nullptr;
    }
    if (used_ - oldSize + newSize > mostMemory) {
        return nullptr;
    }
    blocks_.erase(block);
    void *const changed = std::realloc(block, newSize);
    blocks_.insert(changed);
    used_ += newSize - oldSize;
    return changed;
}

void *allocateBlock(void *blocks, void *block, std::size_t oldSize, std::size_t newSize)
{
    return static_cast<Blocks *>(blocks)->change(block, oldSize, newSize);
}

void releaseShellBlocks()
{
    for (void *const block : shellBlocks()) {
        __real_free(block);
    }
}

void forgetShellBlocks()
{
    shellBlocks().clear();
}
