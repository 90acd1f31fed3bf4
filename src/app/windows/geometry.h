#pragma once

#include <cstdint>

class frmMain;

/// Where the main window opens, in device-independent pixels.
struct WindowPlace {
    int left_px, top_px, width_px, height_px;
    bool maximised;
};

/// The place of the last run; the default place, maximised, when none is stored or it does not fit
/// the screen.
WindowPlace storedplace();

/// Stores the window's place in window units, and zeros for one that is maximised or minimised.
void storeplace(const frmMain& window);
