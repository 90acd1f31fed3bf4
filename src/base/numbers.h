#pragma once

#include <cmath>
#include <string>
#include <string_view>

/// The smaller of two values; on a tie the second.
template <typename T> constexpr T smin(T a, T b)
{
    return a < b ? a : b;
}

/// The larger of two values; on a tie the second.
template <typename T> constexpr T smax(T a, T b)
{
    return a > b ? a : b;
}

/// Nearest whole number, ties to even: rounding in the mode to nearest, which the program starts in
/// and never leaves.
inline double roundtoeven(double value)
{
    return std::nearbyint(value);
}

/// Number as text by a pattern of zeros, at most one point, and literal text around them:
/// "0.0 km", "000.00000", "00'". Zeros before the point are the least digits of the whole part,
/// zeros behind it the exact decimals. A negative number has its minus in front of the digits.
/// A tie goes to even of the exact binary value. The decimal separator is always a point.
///   Errors: NaN and infinities give "nan" / "inf" in place of the digits.
std::string formatnumber(std::string_view pattern, double value);

/// General notation: the fewest digits that read back the same single; "0.146", "-12", "1e+20".
std::string generalnumber(float value);
/// General notation: the fewest digits that read back the same double.
std::string generalnumber(double value);

/// The leading number of a text: blanks, a sign, digits, a point, an exponent. 0 where there is
/// none. This is how files and numeric settings are read.
double leadingnumber(std::string_view text);

/// The same of what a user typed, where a comma stands for the decimal point.
double typednumber(std::string_view text);

/// Text without blanks at either end (blank, tab, NUL, CR, LF).
std::string trimmed(std::string_view text);

/// Lower case of a UTF-8 text: ASCII and the letters of Windows-1252.
std::string lowercase(std::string_view text);

/// Upper case of a UTF-8 text: ASCII and the letters of Windows-1252.
std::string uppercase(std::string_view text);

/// True for two texts that differ at most in the case of their letters.
bool sametext(std::string_view a, std::string_view b);

/// The rule of every numeric dialog field.
struct FieldCheck {
    double value;  ///< the number held within the bounds
    bool inbounds; ///< false: the field shows its text in red
};

/// Reads a field's text as a typed number (text that is none counts as 0) and holds it within lo
/// and hi.
FieldCheck checkfield(double lo, double hi, std::string_view text);
