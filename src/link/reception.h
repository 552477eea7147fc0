#pragma once

#include <string>

namespace eculink {

struct Link;

// Opens the port as the settings say; 0 on success. A failure beeps, shows the system's message box and leaves the port
// shut.
int ApriPorta(Link& link);
// Opens a port that failed, without a word, once nothing bars it any more: its device was absent, forbidden or held by
// another program, and now is not. A port that failed for no such reason stays shut.
void OpenAgain(Link& link);
// The port's event: what has arrived joins the receive buffer.
void Received(Link& link);
// Takes at most one frame out of the buffer and hands it on.
void EstraiFrame(Link& link);
// A live frame, whole, STX and ETX included.
void FrameDati(Link& link, const std::string& frame);

// The superseding of live frames: with more than this waiting, a slow computer skips to the newest.
inline constexpr std::size_t StaleLimit = 240;

}  // namespace eculink
