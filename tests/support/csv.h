#pragma once

#include <fstream>
#include <string>
#include <vector>

/// Rows of a comma separated file without quotes, less its header line; empty where there is none.
inline std::vector<std::vector<std::string>> readcsv(const std::string& path)
{
    std::vector<std::vector<std::string>> rows;
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::vector<std::string> fields(1);
        for (const char c : line) {
            if (c == ',')
                fields.emplace_back();
            else if (c != '\r')
                fields.back() += c;
        }
        rows.push_back(fields);
    }
    return rows;
}
