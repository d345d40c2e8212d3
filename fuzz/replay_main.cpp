// Stands in for the fuzzer: runs a target over the cases in the folders and files that are named.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace fs = std::filesystem;

int main(int argc, char** argv)
{
    std::vector<fs::path> cases;
    for (int i = 1; i < argc; ++i) {
        if (fs::is_directory(argv[i]))
            std::copy(fs::directory_iterator(argv[i]), {}, std::back_inserter(cases));
        else
            cases.emplace_back(argv[i]);
    }
    std::sort(cases.begin(), cases.end());
    for (const fs::path& path : cases) {
        std::ifstream file(path, std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        std::fprintf(stderr, "%s\n", path.string().c_str());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    std::printf("%zu cases replayed\n", cases.size());
    return cases.empty() ? 1 : 0;
}
