#include "memory/inspector_file.h"

#include <string>

#include "memory/image.h"
#include "memory/memory.h"

namespace memory {

bool BuildInspectorFile(Memory& memory) {
    shell::Shell& shell = memory.link.shell;
    platform::Files& files = shell.host.files;
    const platform::Path target = shell.FileInFolder(InspectorFile);
    if (files.Exists(target)) return true;
    std::string lines;
    for (const char* area : {ExternalFile, InternalFile}) {
        const auto content = files.Read(shell.FileInFolder(area));
        if (!content) return false;
        lines += WithFileLineEnds(*content);
    }
    return files.Write(target, lines);
}

}  // namespace memory
