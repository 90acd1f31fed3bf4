#include "cli/process.h"

#include "network/netfile.h"
#include "support/places.h"
#include "terrain/mapfile.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
const std::string program = buildfolder() + "/bin/velmora-cli";

std::string contentof(const std::filesystem::path& path)
{
    if (!std::filesystem::is_regular_file(path))
        return {}; // a device has no end
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// In the child: standard output and error into files, then the program.
[[noreturn]] void become(const std::filesystem::path& folder, std::vector<char*> arguments,
                         const std::vector<std::pair<std::string, std::string>>& environment)
{
    for (const auto& [stream, name] : {std::pair(1, ".out"), {2, ".err"}}) {
        const int file = open((folder / name).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(file, stream);
    }
    if (const int input = open((folder / ".in").c_str(), O_RDONLY); input >= 0)
        dup2(input, 0);
    if (chdir(folder.c_str()) != 0)
        _exit(126);
    setenv("VELMORA_HOME", folder.c_str(), 1);
    for (const auto& [name, value] : environment)
        setenv(name.c_str(), value.c_str(), 1);
    execv(program.c_str(), arguments.data());
    _exit(127);
}

std::vector<std::string> split(const std::string& line, char separator)
{
    std::vector<std::string> fields(1);
    for (const char c : line)
        if (c == separator)
            fields.emplace_back();
        else
            fields.back() += c;
    return fields;
}
} // namespace

std::map<std::string, std::string> Outcome::values() const
{
    std::map<std::string, std::string> found;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t equals = line.find('=');
        EXPECT_NE(equals, std::string::npos) << line;
        EXPECT_TRUE(found.emplace(line.substr(0, equals), line.substr(equals + 1)).second)
            << "twice: " << line;
    }
    return found;
}

std::vector<std::vector<std::string>> Outcome::rows(const std::string& header) const
{
    std::vector<std::vector<std::string>> found;
    std::istringstream lines(out);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, header);
    while (std::getline(lines, line)) {
        found.push_back(split(line, ','));
        EXPECT_EQ(found.back().size(), split(header, ',').size()) << line;
    }
    EXPECT_EQ(out.find('\r'), std::string::npos);
    return found;
}

void CliTest::SetUp()
{
    std::string name = (std::filesystem::temp_directory_path() / "velmora-cli-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder = name;
}

void CliTest::TearDown()
{
    std::error_code error;
    std::filesystem::remove_all(folder, error);
}

/// Number of the process.
int CliTest::start(const std::vector<std::string>& arguments,
                   const std::vector<std::pair<std::string, std::string>>& environment) const
{
    std::vector<std::string> texts = arguments;
    texts.insert(texts.begin(), "velmora-cli");
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0)
        become(folder, pointers, environment);
    return child;
}

bool CliTest::interrupted(const std::vector<std::string>& arguments, int signal, int after_us) const
{
    const int child = start(arguments);
    usleep(static_cast<useconds_t>(after_us));
    kill(child, signal);
    int state = 0;
    waitpid(child, &state, 0);
    return WIFSIGNALED(state);
}

Outcome CliTest::run(const std::vector<std::string>& arguments,
                     const std::vector<std::pair<std::string, std::string>>& environment) const
{
    const int child = start(arguments, environment);
    int state = 0;
    waitpid(child, &state, 0);
    return {WIFEXITED(state) ? WEXITSTATUS(state) : -1, contentof(folder / ".out"),
            contentof(folder / ".err")};
}

std::string CliTest::failure(int status, const std::vector<std::string>& arguments) const
{
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, status) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with("velmora-cli: ")) << outcome.err;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with('\n'));
    return outcome.err;
}

Outcome CliTest::success(const std::vector<std::string>& arguments) const
{
    Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(outcome.out.empty() || outcome.out.ends_with('\n'));
    return outcome;
}

void CliTest::write(const std::string& name, const std::string& bytes) const
{
    std::ofstream file(folder / name, std::ios::binary);
    file << bytes;
    ASSERT_TRUE(file.flush().good());
}

void CliTest::write(const std::string& name, const MapGrid& map) const
{
    const auto* samples = reinterpret_cast<const char*>(map.samples.data());
    write(name, mapheader(map) + std::string(samples, map.samples.size() * sizeof(std::int16_t)));
}

void CliTest::write(const std::string& name, const NetworkTables& tables,
                    const std::string& map) const
{
    write(name, netbytes(tables, map, {}));
}
