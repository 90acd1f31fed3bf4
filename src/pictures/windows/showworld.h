#pragma once

/// Shows the world map ("Mappemonde"), with the cursor on it. There is one: an open one comes to
/// the front, out of its icon where it was one.
void showworld();
