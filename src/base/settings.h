#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// The per-user settings store: text values under the keys of the section "Settings". The desktop
/// program puts an INI file behind it; the default keeps the values in memory. Keys are compared
/// without regard to case.
struct SettingsStore {
    std::function<bool(std::string_view key, std::string& value)> get;
    std::function<void(std::string_view key, const std::string& value)> set;
    /// Puts what was set out of memory, where there is a file.
    std::function<void()> flush = [] {};
};
extern SettingsStore settingsstore;
/// A fresh store in memory.
void resetsettings();

std::string getsetting(std::string_view key, const std::string& otherwise);
/// Strict readings: text that does not convert leaves the variable at its previous value; an absent
/// key gives the default.
void readsetting(std::string_view key, bool otherwise, bool& value);
void readsetting(std::string_view key, std::int16_t otherwise, std::int16_t& value);
void readsetting(std::string_view key, std::int32_t otherwise, std::int32_t& value);
void readsetting(std::string_view key, float otherwise, float& value);
void readsetting(std::string_view key, const std::string& otherwise, std::string& value);

void writesetting(std::string_view key, const std::string& value);
void writesetting(std::string_view key, const char* value);
void writesetting(std::string_view key, bool value);
void writesetting(std::string_view key, std::int32_t value);
void writesetting(std::string_view key, float value);

/// Window units, in which places and sizes are stored, in a device-independent pixel.
inline constexpr std::int32_t unitsperpixel = 8;
