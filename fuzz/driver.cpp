// Runs a fuzz entry without a fuzzing engine: every seed as it stands, then a fixed number of
// mutations of the seeds from a fixed random sequence, so that a failure repeats.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

using Input = std::vector<std::uint8_t>;

static std::vector<Input> readseeds(const char* folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    std::vector<Input> seeds;
    for (const auto& path : files) {
        std::ifstream file(path, std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return seeds;
}

static void mutate(Input& input, std::mt19937& random)
{
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    const std::size_t changes = 1 + below(8);
    for (std::size_t i = 0; i < changes && !input.empty(); ++i) {
        const std::size_t at = below(input.size());
        switch (below(5)) {
        case 0:
            input[at] = static_cast<std::uint8_t>(random());
            break;
        case 1:
            input[at] ^= static_cast<std::uint8_t>(1U << below(8));
            break;
        case 2: // the values at which lengths and counts go wrong
            for (std::size_t k = at; k < std::min(at + 4, input.size()); ++k)
                input[k] = (random() & 1U) != 0 ? 0xFF : 0x7F;
            break;
        case 3:
            input.resize(at);
            break;
        default:
            input.insert(input.begin() + static_cast<std::ptrdiff_t>(at), 1 + below(16),
                         static_cast<std::uint8_t>(random()));
        }
    }
}

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s SEEDS [MUTATIONS]\n", argv[0]);
        return 2;
    }
    const std::vector<Input> seeds = readseeds(argv[1]);
    const int mutations = argc > 2 ? std::atoi(argv[2]) : 3000;
    if (seeds.empty()) {
        std::fprintf(stderr, "%s holds no seeds\n", argv[1]);
        return 1;
    }
    for (const Input& seed : seeds)
        LLVMFuzzerTestOneInput(seed.data(), seed.size());
    std::mt19937 random(20260101);
    for (int i = 0; i < mutations; ++i) {
        Input input = seeds[static_cast<std::size_t>(i) % seeds.size()];
        mutate(input, random);
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    std::printf("%zu seeds, %d mutations\n", seeds.size(), mutations);
    return 0;
}
