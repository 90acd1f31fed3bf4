#pragma once

/// Connects the calls from the logic with the main window, the boxes and the event loop.
void fillhooks();
