// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/cells.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

using Counter = std::atomic<std::uint64_t>;

constexpr std::size_t mostCells = std::size_t{1} << 17;
constexpr std::size_t mostColumnsPrinted = 20;

std::size_t usedCells = 0;
std::vector<const Cells *> tables;

[[noreturn]] void giveUp(const char *reason)
{
    std::perror(reason);
    std::abort();
}

Counter *mapCounters()
{
    constexpr std::size_t length = mostCells * sizeof(Counter);
    int file = -1;
    int flags = MAP_SHARED | MAP_ANONYMOUS;
    if (const char *const path = std::getenv("FUZZ_CELLS")) {
        file = open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        if (file == -1 || ftruncate(file, length) != 0) {
            giveUp(path);
        }
        flags = MAP_SHARED;
    }
    void *const counters = mmap(nullptr, length, PROT_READ | PROT_WRITE, flags, file, 0);
    if (counters == MAP_FAILED) {
        giveUp("mmap");
    }
    if (file != -1) {
        close(file);
    }
    return static_cast<Counter *>(counters);
}

Counter &counter(std::size_t cell)
{
    static Counter *const counters = mapCounters();
    return counters[cell];
}

} // namespace

Cells::Cells(std::string title, std::vector<std::string> rows, std::vector<std::string> columns)
    : title_(std::move(title)), rows_(std::move(rows)), columns_(std::move(columns)),
      leftOut_(rows_.size() * columns_.size()), first_(usedCells)
{
    usedCells += leftOut_.size();
    if (usedCells > mostCells) {
        giveUp("too many cells");
    }
    counter(first_); // their file is opened before an input runs that could be in the way
    tables.push_back(this);
}

void Cells::leaveOut(std::size_t row, std::size_t column)
{
    leftOut_.at(row * columns_.size() + column) = true;
}

void Cells::count(std::size_t row, std::size_t column)
{
    if (row >= rows_.size() || column >= columns_.size()) {
        giveUp("no such cell");
    }
    counter(first_ + row * columns_.size() + column).fetch_add(1, std::memory_order_relaxed);
}

std::size_t Cells::size() const
{
    return static_cast<std::size_t>(std::count(leftOut_.begin(), leftOut_.end(), false));
}

std::size_t Cells::print() const
{
    return columns_.size() > mostColumnsPrinted ? printRows() : printWhole();
}

// Of each row, how many of its cells were met, and the names of those that were not.
std::size_t Cells::printRows() const
{
    std::printf("%s, and how many kinds of value each has met\n", title_.c_str());
    std::size_t allEmpty = 0;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        std::size_t all = 0;
        std::size_t empty = 0;
        std::string missing;
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            const std::size_t cell = row * columns_.size() + column;
            all += leftOut_[cell] ? 0 : 1;
            if (!leftOut_[cell] && counter(first_ + cell) == 0) {
                ++empty;
                missing += (missing.empty() ? "  EMPTY: " : ", ") + columns_[column];
            }
        }
        std::printf("%3zu of %zu  %s%s\n", all - empty, all, rows_[row].c_str(), missing.c_str());
        allEmpty += empty;
    }
    std::puts("");
    return allEmpty;
}

std::size_t Cells::printWhole() const
{
    std::size_t label = title_.size();
    for (const std::string &row : rows_) {
        label = std::max(label, row.size());
    }
    std::printf("%-*s", static_cast<int>(label), title_.c_str());
    for (const std::string &column : columns_) {
        std::printf("  %9s", column.c_str());
    }
    std::size_t empty = 0;
    for (std::size_t cell = 0; cell < leftOut_.size(); ++cell) {
        const std::size_t column = cell % columns_.size();
        if (column == 0) {
            std::printf("\n%-*s", static_cast<int>(label), rows_[cell / columns_.size()].c_str());
        }
        const std::uint64_t count = counter(first_ + cell);
        std::string text = std::to_string(count);
        if (count == 0) {
            text = leftOut_[cell] ? "-" : "EMPTY";
            empty += leftOut_[cell] ? 0 : 1;
        }
        std::printf("  %*s", static_cast<int>(std::max<std::size_t>(9, columns_[column].size())),
                    text.c_str());
    }
    std::puts("\n");
    return empty;
}

bool printCells()
{
    std::size_t cells = 0;
    std::size_t empty = 0;
    for (const Cells *const table : tables) {
        cells += table->size();
        empty += table->print();
    }
    std::printf("cells: %zu, %zu empty\n", cells, empty);
    return empty == 0;
}
