#pragma once

namespace eculink {

struct Link;

inline constexpr int UnknownPosition = 3;  // of the switch; the cells in front of it are the known ones

// Reception lamps of the main window.
void MarkGoodFrame(Link& link);
void MarkBadFrame(Link& link);
void MarkLost(Link& link);

// Decodes the four status digits of the last frame; each acts only when it has changed.
void LampadeStato(Link& link);
// One step of the animations.
void AnimateRow(Link& link);
void AnimateCentre(Link& link);

}  // namespace eculink
