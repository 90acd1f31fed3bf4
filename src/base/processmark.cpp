#include "base/processmark.h"

#include <atomic>
#include <charconv>
#include <cstdint>
#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <unistd.h>

/// First line of a small file of the system; empty where there is none.
static std::string firstline(const char* path)
{
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

/// Eight digits that stand for a text (the 32-bit FNV-1a hash).
static std::string digest(std::string_view text)
{
    std::uint32_t hash = 2166136261U;
    for (const char c : text)
        hash = (hash ^ static_cast<std::uint8_t>(c)) * 16777619U;
    return fmt::format("{:08x}", hash);
}

/// The machine by its identity and its name: several may share a folder.
static const std::string& machine()
{
    static const std::string mark = [] {
        char name[256] = {};
        ::gethostname(name, sizeof name - 1);
        return digest(firstline("/etc/machine-id") + "/" + name);
    }();
    return mark;
}

static const std::string& machinestart()
{
    static const std::string mark = digest(firstline("/proc/sys/kernel/random/boot_id"));
    return mark;
}

/// When a process began, in ticks since the start of the machine; nothing for one that has ended.
/// Numbers of processes come back, the pair of number and start does not.
static std::optional<std::uint64_t> processstart(std::string_view number)
{
    std::ifstream file(fmt::format("/proc/{}/stat", number));
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::size_t name = text.rfind(')'); // a name may hold blanks and brackets
    if (name == std::string::npos)
        return std::nullopt;
    std::istringstream fields(text.substr(name + 1));
    std::string state;
    fields >> state;
    constexpr int between = 18; // fields between the state and the start
    std::string skipped;
    for (int i = 0; i < between; ++i)
        fields >> skipped;
    std::uint64_t start = 0;
    if (!(fields >> start) || state == "Z")
        return std::nullopt;
    return start;
}

static std::string thisprocess()
{
    const std::string number = std::to_string(::getpid());
    return number + "." + std::to_string(processstart(number).value_or(0));
}

std::string processmark()
{
    static std::atomic<int> counter = 0;
    return machine() + "-" + machinestart() + "-" + thisprocess() + "-" + std::to_string(++counter);
}

/// Takes the part of a text before a separator off it; the rest where there is none.
static std::string_view takepart(std::string_view& text, char separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

static std::optional<std::uint64_t> wholenumber(std::string_view text)
{
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole ? std::optional(number) : std::nullopt;
}

bool markofdead(std::string_view mark)
{
    const std::string_view where = takepart(mark, '-');
    const std::string_view since = takepart(mark, '-');
    const std::string_view number = takepart(mark, '.');
    const auto start = wholenumber(takepart(mark, '-'));
    if (where != machine() || !wholenumber(number) || !start || !wholenumber(mark))
        return false;
    return since != machinestart() || processstart(number) != start;
}
