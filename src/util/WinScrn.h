#pragma once

// Screen geometry questions.
namespace WinScrn {
// True when the rectangle lies wholly within the main screen's available area (the screen less
// menu bar and dock). Note the order of the arguments: top, left, height, width.
bool IsWithinMainScreenTLBR(int top, int left, int height, int width);
} // namespace WinScrn
