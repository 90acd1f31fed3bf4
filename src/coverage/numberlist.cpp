#include "coverage/numberlist.h"

#include <algorithm>
#include <charconv>
#include <cmath>

static constexpr std::string_view separators(", \t\r\n\0", 6);

bool NumberList::next(double& value)
{
    rest.remove_prefix(std::min(rest.find_first_not_of(separators), rest.size()));
    std::string_view item = rest.substr(0, rest.find_first_of(separators));
    if (item.starts_with('+'))
        item.remove_prefix(1);
    double number = 0;
    const char* end = item.data() + item.size();
    const auto [stop, error] = std::from_chars(item.data(), end, number);
    if (error != std::errc() || stop != end || !std::isfinite(number)) {
        rest = {};
        return false;
    }
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    value = number;
    return true;
}
