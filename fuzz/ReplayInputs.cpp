// Runs a fuzz target over saved inputs, outside the fuzzer: every file in the folders named on the
// command line, so that seeds and past findings stay tests in every build.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> inputFiles(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_directory(folder)) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.is_regular_file()) {
                files.push_back(entry.path());
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<std::uint8_t> readInput(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return { std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>() };
}

} // namespace

int main(int argc, char* argv[])
{
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const std::filesystem::path& file : inputFiles(argv[i])) {
            const std::vector<std::uint8_t> input = readInput(file);
            std::printf("%s\n", file.filename().c_str());
            LLVMFuzzerTestOneInput(input.data(), input.size());
            ++replayed;
        }
    }
    // A folder that went missing would otherwise pass without testing anything.
    if (replayed == 0) {
        std::fprintf(stderr, "no inputs found\n");
        return 1;
    }
    std::printf("%d inputs replayed\n", replayed);
    return 0;
}
