#pragma once

/// Asks for everything unsaved and closes all secondary windows and pictures, before a new or
/// another network is taken and at the program's end.
///   cancel  true when the user wants to stay
void CleanNet(bool& cancel);
