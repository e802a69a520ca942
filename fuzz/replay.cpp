// SPDX-License-Identifier: LicenseRef-Proprietary
// Runs a fuzz target on files, in place of libFuzzer: those named and those of the folders named,
// in the order of their names. Fails where a cell stays empty.
#include "fuzz/cells.h"
#include "fuzz/target.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace
{

namespace fs = std::filesystem;

std::vector<fs::path> listInputs(int argc, char **argv)
{
    std::vector<fs::path> inputs;
    for (int i = 1; i < argc; ++i) {
        if (fs::is_directory(argv[i])) {
            const std::size_t known = inputs.size();
            for (const fs::directory_entry &entry : fs::directory_iterator(argv[i])) {
                inputs.push_back(entry.path());
            }
            std::sort(inputs.begin() + static_cast<std::ptrdiff_t>(known), inputs.end());
        } else if (fs::exists(argv[i])) {
            inputs.emplace_back(argv[i]);
        }
    }
    return inputs;
}

void run(const fs::path &input)
{
    std::ifstream file(input, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    // A block of exactly the size: reading beyond the input is found by tools that find such.
    const std::vector<std::uint8_t> block(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(block.data(), block.size());
}

} // namespace

int main(int argc, char **argv)
{
    prepareTarget();
    const std::vector<fs::path> inputs = listInputs(argc, argv);
    for (const fs::path &input : inputs) {
        // Said before, so that the last line names the input that ends the process.
        std::printf("%s\n", input.c_str());
        std::fflush(stdout);
        run(input);
    }
    std::printf("%zu inputs\n\n", inputs.size());
    return printCells() ? EXIT_SUCCESS : EXIT_FAILURE;
}
