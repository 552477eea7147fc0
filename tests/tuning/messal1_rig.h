#pragma once

#include <string>
#include <utility>
#include <vector>

#include "support/simulated.h"

namespace tuning_test {

// A unit that has been recognised, and the editor of its base map, opened as a fitter does. Every frame sent is kept
// with the state in which it was sent, without STX and ETX.
struct BaseMapEditor : support::Simulated {
    using Frames = std::vector<std::string>;

    explicit BaseMapEditor(const std::vector<std::string>& before = {}) {
        for (const std::string& line : before) Sim(line);
        if (!Connect()) throw std::runtime_error("the unit was not recognised");
        program.link.trace = [this](eculink::Direction direction, std::string_view frame) {
            if (direction != eculink::Direction::Sent) return;
            states.push_back(program.link.state.StatoCmd);
            sent.emplace_back(frame.substr(1, frame.size() - 2));
        };
    }

    tuning::MessaL1& Page() { return program.tuning.messaL1; }
    pages::PageStack& Stack() { return program.shell.stack; }
    int State() const { return program.link.state.StatoCmd; }
    bool Idle() const { return State() == eculink::Idle; }
    bool Finish() {
        return RunUntil([this] { return Idle(); }, 60000);
    }
    void Open() {
        if (!shell::ChooseMenu(program.shell, shell::MenuId::MenuPunto, MenuEntry).ok || !Finish())
            throw std::runtime_error("the editor did not open");
    }
    // Opened, in the edit mode, with nothing sent yet.
    void OpenForEditing() {
        Open();
        Press(Page().Modifica);
        Forget();
    }
    void Press(pages::Control& button) {
        if (!Stack().Press(button).ok) throw std::runtime_error("refused: " + button.Name());
    }
    void Enter(pages::Control& field, const std::string& text) {
        if (!Stack().Type(field, text).ok) throw std::runtime_error("refused: " + field.Name());
        Stack().Leave(field);
    }
    void EnterCell(int column, int row, const std::string& text) {
        if (!Stack().EditCell(Page().LambdaRicco, row + 1, column + 1, text).ok)
            throw std::runtime_error("refused: a cell");
    }
    std::string Cell(int column, int row) {
        return Page().LambdaRicco.GetCells()[static_cast<std::size_t>(row + 1)][static_cast<std::size_t>(column + 1)];
    }
    std::string Shown() { return Page().Segnalazione.Text(); }
    pages::Tone Tone() { return Page().Segnalazione.GetTone(); }
    int Beeps() const { return program.shell.state.beeps; }
    int Stored(int address) { return unit.Cells().Byte(sim::Area::Esterna, address); }
    int Live(int address) { return unit.Cells().Byte(sim::Area::Working, address); }
    void Forget() {
        states.clear();
        sent.clear();
    }

    static constexpr int MenuEntry = 14;
    std::vector<int> states;
    Frames sent;
};

}  // namespace tuning_test
