#pragma once

#include <stdexcept>
#include <string>

/// Work that cannot be done: one line on standard error, exit status 1.
class Failure : public std::runtime_error
{
public:
    Failure(const std::string& what, const std::string& why) : std::runtime_error(what + ": " + why)
    {
    }
};

/// Arguments that make no sense: one line on standard error, exit status 2.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
