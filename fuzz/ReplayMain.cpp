// Runs a fuzz target over given files and folders, so that found inputs can be replayed without a fuzzer.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesBelow(const fs::path& given)
{
    if (!fs::is_directory(given))
        return {given};
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(given)) {
        if (entry.is_regular_file())
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool replay(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "cannot open %s\n", file.c_str());
        return false;
    }
    // Named before the run, so that the last line tells which input a crash came from.
    std::printf("%s\n", file.c_str());
    std::fflush(stdout);
    const std::string content{std::istreambuf_iterator<char>(in), {}};
    // A copy of exactly the right size lets the address sanitizer see a read past the end.
    const std::vector<std::uint8_t> bytes(content.begin(), content.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    std::size_t count = 0;
    bool good = true;
    for (int i = 1; i < argc; ++i) {
        for (const auto& file : filesBelow(argv[i])) {
            good = replay(file) && good;
            ++count;
        }
    }
    std::printf("%zu inputs replayed\n", count);
    return good && count > 0 ? 0 : 1;
}
