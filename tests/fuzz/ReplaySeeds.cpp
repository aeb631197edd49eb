// Feeds the seeds of a fuzz target to it once, each whole and cut at many places, so that every
// build of the tests shows that the target still builds and its properties hold.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

/// A long seed is cut at this many places, evenly spread.
constexpr std::size_t CutsPerSeed = 200;

std::string ReadAll(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Feed(const std::string& bytes) {
    // A copy of its own, so that a reader that looks behind its end is seen; never a null one.
    const auto data = std::make_unique<std::uint8_t[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), data.get());
    LLVMFuzzerTestOneInput(data.get(), bytes.size());
}

} // namespace

/// Takes the folder of the seeds; fails where it holds none. A broken property ends the program.
int main(int argc, char** argv) {
    std::size_t seeds = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argc > 1 ? argv[1] : ".")) {
        const std::string bytes = ReadAll(entry.path());
        std::printf("%s\n", entry.path().filename().c_str());
        const std::size_t step = std::max<std::size_t>(bytes.size() / CutsPerSeed, 1);
        for (std::size_t size = 0; size < bytes.size(); size += step)
            Feed(bytes.substr(0, size));
        Feed(bytes);
        ++seeds;
    }
    return seeds > 0 ? 0 : 1;
}
