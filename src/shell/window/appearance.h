#pragma once

// Font and colours of all windows: a Chinese font where the system's has none, and colours in which what is locked
// can still be read. A dark or high-contrast desktop keeps its own.

void SetAppearance();
