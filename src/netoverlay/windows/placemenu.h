#pragma once

/// Gives the picture windows that are made from now on a menu for the right button where no station
/// and no selection lies: a station is placed there, or the cursor moved there. After
/// `connectstationmouse`, as stations come first.
void connectplacemenu();
