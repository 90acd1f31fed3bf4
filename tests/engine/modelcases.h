#pragma once

#include <map>
#include <string>
#include <vector>

/// One row of a table of reference cases, by column name.
struct ModelCase {
    std::map<std::string, std::string> columns;

    const std::string& text(const std::string& column) const { return columns.at(column); }
    double number(const std::string& column) const;
    int whole(const std::string& column) const;
    /// A column of numbers parted by semicolons.
    std::vector<double> list(const std::string& column) const;
};

/// Rows of a table of the propagation model's reference cases: those of the project, then the whole
/// set of them where it lies beside the project.
std::vector<ModelCase> readcases(const std::string& name);
