#pragma once

/// The busy pointer for as long as it lives. Guards nest: the normal pointer returns with the end
/// of the last one, also when an error ends it.
class Busy
{
public:
    Busy();
    ~Busy();
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
};
