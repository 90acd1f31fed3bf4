#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <fmt/format.h>
#include <limits>

/// The digits of a pattern: where they begin, and how many stand before and behind the point.
struct PatternDigits {
    std::size_t first = 0;
    std::size_t whole = 0;
    std::size_t decimals = 0;
    std::size_t end = 0;
};

static std::size_t countzeros(std::string_view text, std::size_t from)
{
    return std::min(text.find_first_not_of('0', from), text.size()) - from;
}

static PatternDigits finddigits(std::string_view pattern)
{
    PatternDigits digits;
    digits.first = std::min({pattern.find('0'), pattern.find(".0"), pattern.size()});
    digits.whole = countzeros(pattern, digits.first);
    digits.end = digits.first + digits.whole;
    if (pattern.substr(digits.end).starts_with(".0")) {
        digits.decimals = countzeros(pattern, digits.end + 1);
        digits.end += 1 + digits.decimals;
    }
    return digits;
}

std::string formatnumber(std::string_view pattern, double value)
{
    const PatternDigits digits = finddigits(pattern);
    std::string number;
    if (std::isnan(value)) {
        number = "nan";
    } else if (std::isinf(value)) {
        number = "inf";
    } else {
        number = fmt::format("{:.{}f}", std::fabs(value), digits.decimals);
        if (digits.whole == 0 && number.starts_with("0."))
            number.erase(0, 1);
        const std::size_t whole = std::min(number.find('.'), number.size());
        if (whole < digits.whole)
            number.insert(0, digits.whole - whole, '0');
    }
    if (value < 0)
        number.insert(0, 1, '-');
    std::string text(pattern.substr(0, digits.first));
    text += number;
    text += pattern.substr(digits.end);
    return text;
}

/// Places the point into shortest digits: "d.ddde+xx" becomes plain decimal text.
static std::string plaindecimal(std::string_view scientific, int exponent)
{
    std::string digits;
    for (const char c : scientific.substr(0, scientific.find('e')))
        if (c != '.')
            digits += c;
    if (exponent < 0)
        return "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= whole)
        return digits + std::string(whole - digits.size(), '0');
    return digits.substr(0, whole) + "." + digits.substr(whole);
}

template <typename T> static std::string shortestnumber(T value)
{
    constexpr int leastexponent = -7; // beyond these, plain text is mostly zeros
    constexpr int mostexponent = 15;
    if (std::isnan(value))
        return "nan";
    const std::string sign = value < 0 ? "-" : "";
    if (std::isinf(value))
        return sign + "inf";
    if (value == 0)
        return "0";
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                            std::fabs(value), std::chars_format::scientific);
    const std::string_view scientific(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const char* digits = buffer.data() + scientific.find('e') + 1;
    int exponent = 0;
    std::from_chars(*digits == '+' ? digits + 1 : digits, end, exponent);
    if (exponent < leastexponent || exponent > mostexponent)
        return sign + std::string(scientific);
    return sign + plaindecimal(scientific, exponent);
}

std::string generalnumber(float value)
{
    return shortestnumber(value);
}

std::string generalnumber(double value)
{
    return shortestnumber(value);
}

static bool isdigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Value of a number that has no double: 0 or the largest one. It is small where its exponent is
/// negative, or where it has no digits before the point.
static double outofrange(std::string_view number)
{
    const std::size_t e = number.find_first_of("eE");
    const bool small = e == std::string_view::npos
                           ? number.find_first_not_of('0') == number.find('.')
                           : number.substr(e + 1).starts_with('-');
    return small ? 0 : std::numeric_limits<double>::max();
}

double leadingnumber(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    double sign = 1;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        sign = text.front() == '-' ? -1 : 1;
        text.remove_prefix(1);
    }
    // Only digits may follow, or a point with digits: words such as "inf" are no numbers here.
    const std::string_view behindpoint = text.starts_with('.') ? text.substr(1) : text;
    if (behindpoint.empty() || !isdigit(behindpoint.front()))
        return 0;
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        value = outofrange({text.data(), static_cast<std::size_t>(result.ptr - text.data())});
    return value == 0 ? 0 : sign * value;
}

double typednumber(std::string_view text)
{
    std::string pointed(text);
    const std::size_t mark = pointed.find_first_of(".,");
    if (mark != std::string::npos)
        pointed[mark] = '.';
    return leadingnumber(pointed);
}

std::string trimmed(std::string_view text)
{
    constexpr std::string_view blanks(" \t\0\r\n", 5);
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

/// Second byte, in lower case, of a two-byte UTF-8 letter that Windows-1252 has.
static char lowersecond(char lead, char second)
{
    const auto a = static_cast<std::uint8_t>(lead);
    const auto b = static_cast<std::uint8_t>(second);
    if (a == 0xC3 && b >= 0x80 && b <= 0x9E && b != 0x97) // À to Þ, without the sign ×
        return static_cast<char>(b + 0x20);
    if (a == 0xC5 && (b == 0x92 || b == 0xA0 || b == 0xBD)) // Œ, Š, Ž
        return static_cast<char>(b + 1);
    return second;
}

/// Second byte, in upper case, of such a letter.
static char uppersecond(char lead, char second)
{
    const auto a = static_cast<std::uint8_t>(lead);
    const auto b = static_cast<std::uint8_t>(second);
    if (a == 0xC3 && b >= 0xA0 && b <= 0xBE && b != 0xB7) // à to þ, without the sign ÷
        return static_cast<char>(b - 0x20);
    if (a == 0xC5 && (b == 0x93 || b == 0xA1 || b == 0xBE)) // œ, š, ž
        return static_cast<char>(b - 1);
    return second;
}

std::string lowercase(std::string_view text)
{
    std::string lower(text);
    for (std::size_t i = 0; i < lower.size(); ++i) {
        if (lower[i] >= 'A' && lower[i] <= 'Z') {
            lower[i] = static_cast<char>(lower[i] + ('a' - 'A'));
        } else if (lower[i] == '\xC5' && i + 1 < lower.size() && lower[i + 1] == '\xB8') {
            lower.replace(i, 2, "\xC3\xBF"); // Ÿ has its small letter in another block
        } else if (i > 0) {
            lower[i] = lowersecond(lower[i - 1], lower[i]);
        }
    }
    return lower;
}

std::string uppercase(std::string_view text)
{
    std::string upper(text);
    for (std::size_t i = 0; i < upper.size(); ++i) {
        if (upper[i] >= 'a' && upper[i] <= 'z') {
            upper[i] = static_cast<char>(upper[i] - ('a' - 'A'));
        } else if (upper[i] == '\xC3' && i + 1 < upper.size() && upper[i + 1] == '\xBF') {
            upper.replace(i, 2, "\xC5\xB8"); // ÿ has its capital in another block
        } else if (i > 0) {
            upper[i] = uppersecond(upper[i - 1], upper[i]);
        }
    }
    return upper;
}

bool sametext(std::string_view a, std::string_view b)
{
    return lowercase(a) == lowercase(b);
}

FieldCheck checkfield(double lo, double hi, std::string_view text)
{
    const double number = typednumber(text);
    const bool inbounds = lo <= number && number <= hi;
    return {smin(smax(number, lo), hi), inbounds};
}
