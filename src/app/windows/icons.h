#pragma once

/// Makes the program's drawings (":/icons/...") known; they lie in this library.
void useicons();
