#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <utility>
#include <vector>

struct MapGrid;
struct NetworkTables;

/// What a run of the program left.
struct Outcome {
    int status = -1; ///< exit status; -1 when it was killed
    std::string out;
    std::string err;

    /// Lines of key=value.
    std::map<std::string, std::string> values() const;
    /// Rows of CSV behind the header line, which must be this one.
    std::vector<std::vector<std::string>> rows(const std::string& header) const;
};

/// A test with a folder of its own, in which the program runs with no other files about.
class CliTest : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// Runs velmora-cli with these arguments in the test's folder. A file ".in" there is its
    /// standard input.
    Outcome run(const std::vector<std::string>& arguments,
                const std::vector<std::pair<std::string, std::string>>& environment = {}) const;
    /// Runs it and sends it a signal after a while. True when that ended it, false when it was
    /// done.
    bool interrupted(const std::vector<std::string>& arguments, int signal, int after_us) const;
    /// Runs it and expects it to fail: the status, nothing on standard output, one line on standard
    /// error that begins as it must.
    std::string failure(int status, const std::vector<std::string>& arguments) const;
    /// Runs it and expects success without a word on standard error.
    Outcome success(const std::vector<std::string>& arguments) const;

    void write(const std::string& name, const std::string& bytes) const;
    void write(const std::string& name, const MapGrid& map) const;
    void write(const std::string& name, const NetworkTables& tables, const std::string& map) const;

    std::filesystem::path folder;

private:
    int start(const std::vector<std::string>& arguments,
              const std::vector<std::pair<std::string, std::string>>& environment = {}) const;
};
