#pragma once

namespace program {

struct Program;

// Runs the start-up order. False when the program must not go on: it then ends as soon as the message on the screen has
// been answered.
bool Start(Program& program);

}  // namespace program
