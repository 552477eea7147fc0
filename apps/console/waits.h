#pragma once

#include "console/commands.h"

namespace console {

// The commands that let time pass. They set the wait of the context; its answer comes when it is over.
Json RunFor(Context& context, const Words& arguments);   // MS
Json WaitFor(Context& context, const Words& arguments);  // NAME VALUE MS, or page PAGE open|closed MS

// What a wait has come to; nothing while it goes on.
std::optional<Json> Outcome(const Wait& wait, std::int64_t nowMicros, bool ended);

}  // namespace console
