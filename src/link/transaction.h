#pragma once

#include <string>
#include <string_view>

namespace eculink {

struct Link;

// Starts an exchange: sets the state, the hourglass and the time limit, drops what is queued in the port and sends the
// first frame of the chain. False, and nothing happens, when a transaction runs already.
bool StartTransaction(Link& link, int state, std::string chain);
// Sends a frame within the exchange that runs, in the state given: block flows, which build each frame afresh.
void SendFrame(Link& link, int state, std::string frame);
// After a positive reply: takes the sent frame off the chain and sends the next one. False when none is left; the
// exchange is then over.
bool ContinueChain(Link& link);
// The exchange is over: hourglass away, idle, stream watchdog on.
void EndTransaction(Link& link);
// The same, but the watchdog waits for the next live frame.
void EndWithoutWatchdog(Link& link);
// A refusal: hourglass away, idle, the watchdog as it was when the stream was alive.
void EndRefused(Link& link);
// A frame without a state: straight to the port; its reply is ignored.
void SendAlone(Link& link, const std::string& frame);

// Hands a reply to the state that waits for it; a stray one is dropped and the transaction goes on waiting.
void DispatchReply(Link& link, const std::string& frame);
// No reply within the limit.
void CommandTimedOut(Link& link);
// Whether the silence that is being told is a failure inside the handler of a reply.
bool FailedInside(const Link& link);
// No accepted live frame for 4 s.
void StreamLost(Link& link);
// No unit's program is known; menus as for a new one.
void ForgetVersion(Link& link);
// Closes every page but the main window and the instruments, the topmost first. The system's own message box is no
// page: what it says has not been read yet.
void ChiudiPagine(Link& link);

// Writes the frames of a chain, one a line, to TXMESS.TXT, in place of the chain before.
void TracciaTx(Link& link, std::string_view text);

}  // namespace eculink
