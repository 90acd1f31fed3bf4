#pragma once

#include <string_view>

/// Reads the numbers of a text one after the other; commas, blanks and line ends separate them.
class NumberList
{
public:
    explicit NumberList(std::string_view text) : rest(text) {}

    /// The next number. False at the end and at anything that is no finite decimal number; every
    /// later call gives false then, too.
    bool next(double& value);

private:
    std::string_view rest;
};
