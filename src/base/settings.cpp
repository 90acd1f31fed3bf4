#include "base/settings.h"

#include "base/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <type_traits>

static SettingsStore memorystore()
{
    const auto values = std::make_shared<std::map<std::string, std::string>>();
    SettingsStore store;
    store.get = [values](std::string_view key, std::string& value) {
        const auto found = values->find(lowercase(key));
        if (found == values->end())
            return false;
        value = found->second;
        return true;
    };
    store.set = [values](std::string_view key, const std::string& value) {
        (*values)[lowercase(key)] = value;
    };
    return store;
}

SettingsStore settingsstore = memorystore();

void resetsettings()
{
    settingsstore = memorystore();
}

static std::optional<std::string> storedtext(std::string_view key)
{
    std::string text;
    return settingsstore.get(key, text) ? std::optional(text) : std::nullopt;
}

std::string getsetting(std::string_view key, const std::string& otherwise)
{
    return storedtext(key).value_or(otherwise);
}

/// The number that a text is, as a whole; none when it is anything else.
static std::optional<double> wholenumber(const std::string& stored)
{
    std::string text = trimmed(stored);
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.erase(0, 1);
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size() ||
        !std::isfinite(value))
        return std::nullopt;
    return value;
}

template <typename T> static std::optional<T> converted(const std::string& text)
{
    const std::optional<double> number = wholenumber(text);
    if (!number)
        return std::nullopt;
    constexpr auto least = static_cast<double>(std::numeric_limits<T>::lowest());
    constexpr auto most = static_cast<double>(std::numeric_limits<T>::max());
    const double value = std::is_integral_v<T> ? roundtoeven(*number) : *number;
    if (value < least || value > most)
        return std::nullopt;
    return static_cast<T>(value);
}

template <> std::optional<bool> converted<bool>(const std::string& text)
{
    const std::string word = trimmed(text);
    if (sametext(word, "true") || sametext(word, "false"))
        return sametext(word, "true");
    const std::optional<double> number = wholenumber(text);
    return number ? std::optional(*number != 0) : std::nullopt;
}

template <typename T> static void readas(std::string_view key, T otherwise, T& value)
{
    const std::optional<std::string> text = storedtext(key);
    if (!text)
        value = otherwise;
    else
        value = converted<T>(*text).value_or(value);
}

void readsetting(std::string_view key, bool otherwise, bool& value)
{
    readas(key, otherwise, value);
}

void readsetting(std::string_view key, std::int16_t otherwise, std::int16_t& value)
{
    readas(key, otherwise, value);
}

void readsetting(std::string_view key, std::int32_t otherwise, std::int32_t& value)
{
    readas(key, otherwise, value);
}

void readsetting(std::string_view key, float otherwise, float& value)
{
    readas(key, otherwise, value);
}

void readsetting(std::string_view key, const std::string& otherwise, std::string& value)
{
    value = getsetting(key, otherwise);
}

void writesetting(std::string_view key, const std::string& value)
{
    settingsstore.set(key, value);
}

void writesetting(std::string_view key, const char* value)
{
    settingsstore.set(key, value);
}

void writesetting(std::string_view key, bool value)
{
    settingsstore.set(key, value ? "True" : "False");
}

void writesetting(std::string_view key, std::int32_t value)
{
    settingsstore.set(key, std::to_string(value));
}

void writesetting(std::string_view key, float value)
{
    settingsstore.set(key, generalnumber(value));
}
