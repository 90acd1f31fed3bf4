#pragma once

/// Fills the list of station icons: each "*.ico" of the program's folders, by name, then each in
/// their subfolder "icon". A station's icon number is a position in this list.
void fillstationicons();
