// SPDX-License-Identifier: MIT
// Stands in for libFuzzer's main: runs a fuzzer once over each file of the folders named.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::size_t replay(const std::filesystem::path& folder) {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++count;
    }
    return count;
}

} // namespace

int main(int argc, char** argv) {
    std::size_t count = 0;
    for (int n = 1; n < argc; ++n)
        count += replay(argv[n]);
    std::printf("%zu inputs replayed\n", count);
    return count > 0 ? 0 : 1; // a corpus that went missing isn't a success
}
