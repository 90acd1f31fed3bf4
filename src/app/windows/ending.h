#pragma once

class frmMain;

/// The main window is asked to close. The first request during an operation stops it; otherwise the
/// user is asked, the settings are stored, and unsaved work is offered for saving. True when the
/// window may close; it is then hidden.
bool queryending(frmMain& window);
