// The main of a fuzz target outside the fuzz build: runs the entry point once over every file
// named on the command line, or every file in a named folder, and fails when there was none.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

int main(int argc, char** argv) {
    if (LLVMFuzzerInitialize != nullptr)
        LLVMFuzzerInitialize(&argc, &argv);
    std::vector<std::filesystem::path> inputs;
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i]))
            inputs.emplace_back(argv[i]);
        else
            for (const auto& entry : std::filesystem::directory_iterator(argv[i]))
                if (entry.is_regular_file())
                    inputs.push_back(entry.path());
    }
    for (const auto& file : inputs) {
        std::ifstream in(file, std::ios::binary);
        const std::vector<uint8_t> bytes{std::istreambuf_iterator<char>(in), {}};
        // Named before it runs, so that an input that crashes is known.
        std::printf("%s\n", file.c_str());
        std::fflush(stdout);
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::printf("replayed %zu inputs\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}
