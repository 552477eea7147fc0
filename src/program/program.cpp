#include "program/program.h"

namespace program {

Program::Program(const platform::Host& host, shell::Options options) : shell(host, std::move(options)) {
    AddFutureStates(link.catalogue);
}

}  // namespace program
