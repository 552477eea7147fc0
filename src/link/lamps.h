#pragma once

namespace eculink {

struct Link;

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
