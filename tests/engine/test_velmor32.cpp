// The engine's shared library as a program outside meets it.

#include "engine/itm/lr.h"
#include "support/places.h"

#include <array>
#include <cmath>
#include <cstring>
#include <dlfcn.h>
#include <elf.h>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <vector>

/// Names that a 64-bit shared object defines for others.
static std::set<std::string> exports(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    const auto at = [&bytes](auto& record, std::size_t offset) {
        ASSERT_LE(offset + sizeof record, bytes.size());
        std::memcpy(&record, bytes.data() + offset, sizeof record);
    };
    Elf64_Ehdr header{};
    at(header, 0);
    std::set<std::string> names;
    for (int i = 0; i < header.e_shnum; ++i) {
        Elf64_Shdr section{};
        at(section, header.e_shoff + static_cast<std::size_t>(i) * sizeof section);
        if (section.sh_type != SHT_DYNSYM)
            continue;
        Elf64_Shdr strings{};
        at(strings, header.e_shoff + section.sh_link * sizeof strings);
        for (std::size_t k = 0; k < section.sh_size / sizeof(Elf64_Sym); ++k) {
            Elf64_Sym symbol{};
            at(symbol, section.sh_offset + k * sizeof symbol);
            if (symbol.st_shndx != SHN_UNDEF)
                names.insert(bytes.data() + strings.sh_offset + symbol.st_name);
        }
    }
    return names;
}

static std::string library()
{
    return buildfolder() + "/lib/libvelmor32.so";
}

TEST(Velmor32, ExportsTheEntryPointAndNothingElse)
{
    EXPECT_EQ(exports(library()), std::set<std::string>{"LR"});
}

TEST(Velmor32, AnswersAProgramThatLoadsIt)
{
    void* opened = dlopen(library().c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(opened, nullptr) << dlerror();
    const auto lr =
        reinterpret_cast<void (*)(const double*, double*, LRRecord*)>(dlsym(opened, "LR"));
    ASSERT_NE(lr, nullptr);
    std::array<double, lrblocksize> prof{};
    std::array<double, lrblocksize> losses{};
    prof[1] = 10;
    prof[2] = 1000;
    LRRecord rec{};
    rec.freq = 100;
    rec.ns = 301;
    rec.eps = 15;
    rec.sgm = 0.005;
    rec.clim = 5;
    rec.h1 = rec.h2 = 10;
    rec.ptime = rec.ploc = rec.psit = 50;
    lr(prof.data(), losses.data(), &rec);
    EXPECT_NEAR(+rec.lfree, 32.45 + 40 + 20, 1e-9); // 100 MHz, 10 km
    EXPECT_EQ(losses[13], +rec.loss);
    EXPECT_GT(losses[12], 0);
    dlclose(opened);
}
