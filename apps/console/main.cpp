#include <cstdio>
#include <string>
#include <vector>

#include "common/options.h"
#include "common/setup.h"
#include "console/virtual_console.h"
#ifdef MARLOVENT_WITH_QT
#include "console/real_console.h"
#endif

int main(int argc, char** argv) {
    using common::FrontEnd;
    const common::Reading reading =
        common::ReadCommandLine(FrontEnd::Console, std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
    if (!reading.line) return common::Tell(reading);
    const platform::Path executable = common::ExecutableFolder(argc > 0 ? argv[0] : nullptr);
    if (reading.line->virtualTime) return console::RunOnVirtualTime(*reading.line, executable);
#ifdef MARLOVENT_WITH_QT
    return console::RunInRealTime(argc, argv, *reading.line, executable);
#else
    return common::Complain(FrontEnd::Console,
                            "built without Qt it knows no real time: use --simulate with --virtual-time");
#endif
}
