#pragma once

#include <string>
#include <vector>

#include "support/simulated.h"
#include "tuning/parameter_names.h"

namespace tuning_test {

// A unit that has been recognised, and a tuning dialog, opened as a fitter does. Every frame sent is kept without STX
// and ETX.
struct PageRig : support::Simulated {
    using Frames = std::vector<std::string>;

    explicit PageRig(const char* dialog, const std::vector<std::string>& before = {}) : name(dialog) {
        for (const std::string& line : before) Sim(line);
        if (!Connect()) throw std::runtime_error("the unit was not recognised");
        program.link.trace = [this](eculink::Direction direction, std::string_view frame) {
            if (direction != eculink::Direction::Sent) return;
            sent.emplace_back(frame.substr(1, frame.size() - 2));
            states.push_back(State());
        };
    }

    pages::PageStack& Stack() { return program.shell.stack; }
    pages::Page& Page() { return *Stack().Find(name); }
    pages::Control& Control(const std::string& control) {
        pages::Control* found = Page().Find(control);
        if (found == nullptr) throw std::runtime_error("no control " + control);
        return *found;
    }
    int State() const { return program.link.state.StatoCmd; }
    bool Finish() {
        return RunUntil([this] { return State() == eculink::Idle; }, 60000);
    }
    void StartOpening(int page) {
        const shell::Commands::Run* run = program.shell.commands.Find(name);
        if (run == nullptr) throw std::runtime_error("no command");
        (*run)({name, page, "title"});
    }
    void Open(int page) {
        StartOpening(page);
        if (!Finish()) throw std::runtime_error("the page was not read");
        Forget();
    }
    pages::Outcome Press(const std::string& button) { return Stack().Press(Control(button)); }
    // Presses and lets the chain run; what has been sent.
    Frames Chain(const std::string& button) {
        Forget();
        if (!Press(button).ok) throw std::runtime_error("refused: " + button);
        if (!Finish()) throw std::runtime_error("no end: " + button);
        return sent;
    }
    void Enter(const std::string& field, const std::string& text) {
        if (!Stack().Type(Control(field), text).ok) throw std::runtime_error("refused: " + field);
        Stack().Leave(Control(field));
    }
    void Choose(const std::string& list, int entry) {
        if (!Stack().Select(Control(list), {entry}).ok) throw std::runtime_error("refused: " + list);
    }
    void EnterCell(const std::string& grid, int row, int column, const std::string& text) {
        if (!Stack().EditCell(Control(grid), row, column, text).ok) throw std::runtime_error("refused: " + grid);
    }
    tuning::Record& Record(const std::string& record) {
        return program.tuning.memoria[tuning::FindRecord(record).value().number];
    }
    std::string Dato(const std::string& record, std::size_t slot) {
        return std::string(platform::Trim(Record(record).Dato[slot]));
    }
    std::string Field(const std::string& control) { return Control(control).Text(); }
    std::string Shown() { return Field("Segnalazione"); }
    pages::Tone Tone() { return Control("Segnalazione").GetTone(); }
    int Beeps() const { return program.shell.state.beeps; }
    int Interna(int address) { return unit.Cells().Byte(sim::Area::Interna, address); }
    int Word(int address) { return unit.Cells().Word(sim::Area::Interna, address); }
    int Live(int address) { return unit.Cells().Word(sim::Area::Working, address); }
    void Forget() {
        sent.clear();
        states.clear();
    }

    const char* name;
    Frames sent;
    std::vector<int> states;
};

}  // namespace tuning_test
