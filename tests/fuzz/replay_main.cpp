// Runs a fuzz target on each file that is named, or lies in a folder that is named.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "tests/fuzz/fuzz_machine.h"

namespace {

std::vector<std::filesystem::path> inputsIn(int argc, char **argv) {
    std::vector<std::filesystem::path> inputs;
    for (int i = 1; i < argc; ++i) {
        if (std::filesystem::is_directory(argv[i])) {
            for (const auto &entry : std::filesystem::directory_iterator(argv[i])) {
                inputs.push_back(entry.path());
            }
        } else {
            inputs.emplace_back(argv[i]);
        }
    }
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

} // namespace

int main(int argc, char **argv) {
    const std::vector<std::filesystem::path> inputs = inputsIn(argc, argv);
    for (const auto &input : inputs) {
        std::ifstream file(input, std::ios::binary);
        if (!file) {
            std::fprintf(stderr, "%s: cannot be read\n", input.c_str());
            return 1;
        }
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        // Said before it is run, so that the last one named is the one that crashed.
        std::printf("%s\n", input.filename().c_str());
        std::fflush(stdout);
        // A block of just this size lets the address sanitizer see a read beyond it.
        const std::vector<uint8_t> exact(bytes.begin(), bytes.end());
        LLVMFuzzerTestOneInput(exact.data(), exact.size());
    }
    std::printf("zantlog-tests: %zu passed, 0 failed, 0 skipped\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}
