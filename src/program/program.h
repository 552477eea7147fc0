#pragma once

#include "link/link.h"
#include "memory/memory.h"
#include "platform/host.h"
#include "shell/shell.h"
#include "tuning/tuning.h"

namespace program {

// The whole program without a window: one object graph, made in main and made afresh by every test.
struct Program {
    // The host must outlive the program. Nothing is read or opened before Start.
    Program(const platform::Host& host, shell::Options options);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    shell::Shell shell;
    eculink::Link link{shell};
    memory::Memory memory{link};
    tuning::Tuning tuning{memory};
};

// Adds to the catalogue the states of pages that this version does not have, so that the catalogue is whole.
void AddFutureStates(eculink::Catalogue& catalogue);

}  // namespace program
