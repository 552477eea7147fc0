#pragma once

#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "link/link.h"
#include "platform/real/real_files.h"
#include "platform/virtual/host.h"
#include "program/program.h"
#include "program/start.h"
#include "support/temporary_folder.h"

namespace support {

// A virtual machine with a folder of its own and nobody on the other end of the line: a test writes what the unit would
// send, and reads what the program has sent. The program is made by Start, so that files and options can be set first.
struct Machine {
    Machine() {
        options.folder = folder.Path();
        options.shipped = MARLOVENT_DATA;
    }

    bool Start() {
        program = std::make_unique<program::Program>(host.Get(), options);
        return program::Start(*program);
    }
    // A new start of the program in the same folder.
    bool Restart() {
        program.reset();
        return Start();
    }

    shell::Shell& Shell() { return program->shell; }
    eculink::Link& Link() { return program->link; }
    eculink::State& State() { return program->link.state; }

    void Run(std::int64_t milliseconds) { host.world.RunFor(milliseconds); }
    // One look at the receive buffer: at most one frame is handed on.
    void Tick() { Run(eculink::ProcessingInterval); }
    // The unit sends; what has arrived stands in the receive buffer afterwards.
    void Receive(std::string_view bytes) {
        host.line.Far().Write(bytes);
        Run(0);
    }
    // The unit sends one frame and the program takes it.
    void Take(std::string_view frame) {
        Receive(frame);
        Tick();
    }
    // What the program has sent since the last call.
    std::string Sent() {
        std::string sent = host.line.Sent();
        host.line.ForgetSent();
        return sent;
    }
    // As after a recognition: live frames go all the way.
    void BecomeReady() { State().CentralinaDaRiconoscere = shell::False; }

    void WriteFile(const std::string& name, std::string_view content) {
        std::ofstream(folder.Path() / name, std::ios::binary) << content;
    }
    std::optional<std::string> FileContent(const std::string& name) {
        std::ifstream in(folder.Path() / name, std::ios::binary);
        if (!in) return std::nullopt;
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    // Both languages, for a folder that a test has put something into: such a one is not filled.
    void AddLanguages() {
        for (const char* name : {"ITALIANO.LNG", "INGLESE.LNG"}) {
            std::filesystem::copy_file(options.shipped / name, folder.Path() / name);
        }
    }
    std::string Text(const char* key, const char* section) { return Shell().TestoLingua(key, section); }
    bool IsOpen(const char* page) {
        const pages::Page* found = Shell().stack.Find(page);
        return found != nullptr && found->IsOpen();
    }

    TemporaryFolder folder;
    shell::Options options;
    platform::real::RealFiles files;
    platform::virt::VirtualHost host{files};
    std::unique_ptr<program::Program> program;
};

}  // namespace support
