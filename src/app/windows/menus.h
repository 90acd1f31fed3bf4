#pragma once

#include <span>

/// What must hold for a menu entry to be enabled: all of its bits.
namespace needs
{
inline constexpr unsigned nothing = 0;
inline constexpr unsigned idle = 1;    ///< no operation under way
inline constexpr unsigned running = 2; ///< an operation under way
inline constexpr unsigned child = 4;   ///< some child window is open
inline constexpr unsigned picture = 8; ///< the active child is a picture
inline constexpr unsigned undo = 16;   ///< something can be taken back
inline constexpr unsigned redo = 32;   ///< something that was taken back can be done again
} // namespace needs

/// One line of the menus. The order of the table is the order on the screen; an entry belongs to
/// the last one of a lower level.
struct MenuEntry {
    int level;           ///< 0: in the menu bar
    const char* name;    ///< of the action or menu; empty: a separator
    const char* text;    ///< French caption with its shortcut letter
    const char* keys;    ///< keyboard shortcut, or empty
    void (*procedure)(); ///< nullptr: a menu, or an entry that stays disabled
    unsigned needs;
    bool checkable = false;
};

/// All menus of the main window.
std::span<const MenuEntry> menutable();

/// True when the entry opens a menu: the next one lies a level below it.
bool ismenu(const MenuEntry& entry);
