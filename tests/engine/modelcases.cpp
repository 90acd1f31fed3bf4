#include "engine/modelcases.h"

#include "support/places.h"

#include <charconv>
#include <fstream>
#include <sstream>
#include <stdexcept>

static double parse(const std::string& text)
{
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::invalid_argument("not a number: " + text);
    return value;
}

static std::vector<std::string> split(const std::string& line, char mark)
{
    std::vector<std::string> parts;
    std::istringstream stream(line);
    for (std::string part; std::getline(stream, part, mark);)
        parts.push_back(part);
    return parts;
}

double ModelCase::number(const std::string& column) const
{
    return parse(text(column));
}

int ModelCase::whole(const std::string& column) const
{
    return static_cast<int>(number(column));
}

std::vector<double> ModelCase::list(const std::string& column) const
{
    std::vector<double> values;
    for (const std::string& part : split(text(column), ';'))
        values.push_back(parse(part));
    return values;
}

static void appendcases(const std::string& path, std::vector<ModelCase>& cases)
{
    std::ifstream file(path);
    std::string line;
    if (!std::getline(file, line))
        return;
    const std::vector<std::string> header = split(line, ',');
    while (std::getline(file, line)) {
        const std::vector<std::string> parts = split(line, ',');
        ModelCase row;
        for (std::size_t i = 0; i < header.size() && i < parts.size(); ++i)
            row.columns[header[i]] = parts[i];
        cases.push_back(row);
    }
}

std::vector<ModelCase> readcases(const std::string& name)
{
    std::vector<ModelCase> cases;
    for (const char* folder : {"/tests/data/lr/", "/../shared/data/lr/"})
        appendcases(sourcefolder() + folder + name, cases);
    return cases;
}
