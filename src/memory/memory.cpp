#include "memory/memory.h"

#include "memory/recognition.h"

namespace memory {

Memory::Memory(eculink::Link& owner) : link(owner) {
    AddFlowStates(*this);
    AddRecognition(*this);
    link.shell.stack.Register(leggoIn);
    link.shell.AddDialog(inEEPROM);
}

}  // namespace memory
