// SPDX-License-Identifier: LicenseRef-Proprietary
// What the inputs have met, in tables: a row for each entry point or feature, a column for each
// kind of value. A cell that stays empty is a hole in the target or in its corpus, and fails the
// run.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

class Cells
{
public:
    // Tables are made in the same order, with the same rows and columns, in every process of a
    // target, and live as long as it: where the environment names a file in FUZZ_CELLS, the counts
    // are kept there, for all processes together.
    Cells(std::string title, std::vector<std::string> rows, std::vector<std::string> columns);
    Cells(const Cells &) = delete;
    Cells &operator=(const Cells &) = delete;

    // For a cell that no input can meet.
    void leaveOut(std::size_t row, std::size_t column);

    void count(std::size_t row, std::size_t column);

    // Prints the table to standard output. Returns how many cells are empty.
    std::size_t print() const;

    // How many cells there are, but for those left out.
    std::size_t size() const;

private:
    std::size_t printWhole() const;
    std::size_t printRows() const; // of a table with many columns

    std::string title_;
    std::vector<std::string> rows_;
    std::vector<std::string> columns_;
    std::vector<bool> leftOut_;
    std::size_t first_;
};

// Prints all tables, and then "cells: NUMBER, NUMBER empty". Returns whether none is empty.
bool printCells();
