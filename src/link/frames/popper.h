#pragma once

#include <string>

namespace frames {

// Takes the next frame out of received text; false when it holds no complete one. What stands in front of the frame is
// dropped. Only what stands behind the last STX of a frame counts: one that was broken off in the middle is skipped.
bool TakeFrame(std::string& text, std::string& frame);

// Keeps text that holds no whole frame from growing for ever: beyond 1 MiB what began last may still become a frame and
// stays, cut to 4 KiB; text in which no frame begins is dropped.
void BoundText(std::string& text);

}  // namespace frames
