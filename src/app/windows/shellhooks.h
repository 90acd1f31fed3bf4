#pragma once

/// Connects the calls from the logic with the main window, the boxes and the event loop.
void fillhooks();

/// Handles pending events, and rests a moment: the body of a loop that only waits.
void pumpslowly();
