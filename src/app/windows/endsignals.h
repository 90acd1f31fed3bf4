#pragma once

/// Lets the system's requests to end (SIGTERM, SIGHUP, SIGINT) end the program like the closing of
/// its main window, without a question: `hooks.writerecovery` keeps what is unsaved, a running
/// operation is stopped, open dialogs are given up.
void endonsignals();

/// True once such a request has come.
bool endingquietly();
