#include "network/recovery.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fstream>
#include <sstream>
#include <unistd.h>

static constexpr std::string_view firstpart = "net-";
static constexpr std::string_view lastpart = ".net";

/// When a process began, in the system's own count; 0 where it doesn't say.
static std::uint64_t startof(long process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/stat");
    std::string line;
    std::getline(status, line);
    // Behind the name, which may hold anything, stand fields; the start is the 20th of them.
    const std::size_t name = line.rfind(')');
    if (name == std::string::npos)
        return 0;
    std::istringstream fields(line.substr(name + 1));
    constexpr int before = 19;
    std::string skipped;
    for (int i = 0; i < before; ++i)
        fields >> skipped;
    std::uint64_t start = 0;
    fields >> start;
    return start;
}

/// The machine's name with the characters that a file name may hold.
static std::string machinename()
{
    std::array<char, 256> text{};
    ::gethostname(text.data(), text.size() - 1);
    std::string name(text.data());
    for (char& c : name)
        if (c == '/' || c == '\0')
            c = '_';
    return name;
}

RecoveryOwner thisprocess()
{
    const long process = ::getpid();
    return {machinename(), process, startof(process)};
}

bool isalive(const RecoveryOwner& owner)
{
    if (owner.machine != machinename())
        return true;
    if (::kill(static_cast<pid_t>(owner.process), 0) != 0 && errno == ESRCH)
        return false;
    const std::uint64_t start = startof(owner.process);
    return start == 0 || start == owner.start; // else its number went to another one
}

std::string recoveryname(const RecoveryOwner& owner)
{
    return std::string(firstpart) + owner.machine + "-" + std::to_string(owner.process) + "-" +
           std::to_string(owner.start) + std::string(lastpart);
}

/// Takes the number behind the last hyphen off a text.
template <typename Number> static bool takenumber(std::string_view& text, Number& number)
{
    const std::size_t hyphen = text.rfind('-');
    if (hyphen == std::string_view::npos)
        return false;
    const std::string_view digits = text.substr(hyphen + 1);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    text = text.substr(0, hyphen);
    return error == std::errc() && end == digits.data() + digits.size();
}

std::optional<RecoveryOwner> recoveryowner(std::string_view name)
{
    if (!name.starts_with(firstpart) || !name.ends_with(lastpart) ||
        name.size() < firstpart.size() + lastpart.size())
        return std::nullopt;
    name.remove_prefix(firstpart.size());
    name.remove_suffix(lastpart.size());
    RecoveryOwner owner;
    if (!takenumber(name, owner.start) || !takenumber(name, owner.process) || owner.process <= 0)
        return std::nullopt;
    owner.machine = name;
    return owner;
}
