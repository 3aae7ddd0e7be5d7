// Gives every file of folders to a fuzzer's function, without a fuzzer: replay_NAME FOLDER...
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

int main(int count, char** arguments) {
    int files = 0;
    for (int i = 1; i < count; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
            std::ifstream in(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(in), {}};
            // Shown only after a failure.
            std::printf("%s\n", entry.path().c_str());
            std::fflush(stdout);
            // A copy that ends with its allocation, so that a read beyond the end is noticed.
            const std::vector<unsigned char> exact(bytes.begin(), bytes.end());
            LLVMFuzzerTestOneInput(exact.data(), exact.size());
            ++files;
        }
    }
    std::printf("%d files\n", files);
    return files > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
