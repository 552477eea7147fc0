#include "console/commands.h"

#include <algorithm>
#include <array>
#include <limits>

#include "console/page_json.h"
#include "console/record_json.h"
#include "console/state_json.h"
#include "console/waits.h"
#include "pages/stack.h"
#include "platform/text.h"
#include "program/program.h"
#include "sim/unit.h"
#include "tuning/cell_names.h"

namespace console {

namespace {

using pages::Control;
using pages::Outcome;
using pages::Page;
using pages::PageStack;
using pages::Reason;

constexpr long long LargestIndex = std::numeric_limits<int>::max();

// The sentence of a refusal in the fitter's language; its key where the language lacks it.
std::string Sentence(const shell::Shell& shell, Reason why) {
    const std::string_view key = pages::ReasonKey(why);
    const std::string& text = shell.TestoLingua(key, "MOTIVI");
    return text.empty() ? std::string(key) : text;
}

// An input that an illegal figure holds back is the page's to answer: it has beeped, told the limits and kept the hand.
Json Answer(const Context& context, const Outcome& outcome) {
    if (outcome.why == Reason::ValueRefused) {
        Json held = Done();
        held["held"] = Text(Sentence(context.program.shell, outcome.why));
        return held;
    }
    return outcome.ok ? Done() : Failure(Sentence(context.program.shell, outcome.why));
}

PageStack& StackOf(Context& context) {
    return context.program.shell.stack;
}

// Runs `action` on the page named first. A closed page is as good as none: nobody can see it.
template <class Action>
Json WithPage(Context& context, const std::string& name, Action action) {
    Page* page = StackOf(context).Find(name);
    if (page == nullptr) return Failure("There is no page " + name + ".");
    if (!page->IsOpen()) return Answer(context, Outcome::Refused(Reason::Closed));
    return action(*page);
}

template <class Action>
Json WithControl(Context& context, const Words& words, Action action) {
    return WithPage(context, words[0], [&](Page& page) -> Json {
        Control* control = page.Find(words[1]);
        if (control == nullptr) return Failure("The page " + words[0] + " has no control " + words[1] + ".");
        return action(*control);
    });
}

// The same for what may also be a cell of a table under the name of its figure.
template <class OnControl, class OnCell>
Json WithFigure(Context& context, const Words& words, OnControl onControl, OnCell onCell) {
    const Page* page = StackOf(context).Find(words[0]);
    if (page != nullptr && page->Find(words[1]) == nullptr && page->IsOpen()) {
        if (const auto cell = tuning::CellNamed(context.program.tuning, *page, words[1])) return onCell(*cell);
    }
    return WithControl(context, words, onControl);
}

Json BadNumber(const std::string& word) {
    return Failure("\"" + word + "\" is no whole number.");
}

// Reads.

Json State(Context& context, const Words&) {
    return OfState(context.program);
}

Json Pages(Context& context, const Words&) {
    Json out = Done();
    out["pages"] = OfStack(StackOf(context));
    return out;
}

Json Show(Context& context, const Words& words) {
    return WithPage(context, words[0], [&](Page& page) {
        Json out = Done();
        out.update(OfPage(page));
        if (&page == &context.program.shell.main) AddMainWindow(context.program.shell, out);
        return out;
    });
}

Json Get(Context& context, const Words& words) {
    Json out = Done();
    const auto show = [&out](const Json& properties) {
        out.update(properties);
        return out;
    };
    return WithFigure(
        context, words, [&](Control& control) { return show(OfControl(control)); },
        [&](const tuning::NamedCell& cell) { return show(OfCell(*cell.grid, cell.place)); });
}

Json Channels(Context& context, const Words&) {
    return OfChannels(context.program);
}

Json RecordOf(Context& context, const Words& words) {
    return OfRecord(context.program.tuning, words[0]);
}

Json TextOf(Context& context, const Words& words) {
    Json out = Done();
    out["text"] = Text(context.program.shell.TestoLingua(words[0], words[1]));
    return out;
}

// Inputs.

Json Press(Context& context, const Words& words) {
    return WithControl(context, words, [&](Control& c) { return Answer(context, StackOf(context).Press(c)); });
}

Json WithText(Json answer, const Control& control) {
    if (answer["ok"] == true) answer["text"] = Text(control.Text());
    return answer;
}

Json WithFocus(Json answer, const Control& control) {
    if (answer["ok"] != true) return answer;
    answer["text"] = Text(control.Text());
    const Control* focus = control.Owner().Focus();
    answer["focus"] = focus == nullptr ? Json() : Json(focus->Name());
    return answer;
}

// A cell that holds the hand has the focus under the name of its figure.
Json WithCell(Json answer, const std::string& name, const tuning::NamedCell& cell) {
    if (answer["ok"] != true) return answer;
    answer["text"] = OfCell(*cell.grid, cell.place)["text"];
    const Control* focus = cell.grid->Owner().Focus();
    const bool held = focus == cell.grid && cell.grid->FocusCell() == cell.place;
    answer["focus"] = held ? Json(name) : focus == nullptr ? Json() : Json(focus->Name());
    return answer;
}

Json TypeIntoCell(Context& context, const std::string& name, const tuning::NamedCell& cell, const std::string& text) {
    const auto [row, column] = cell.place;
    return WithCell(Answer(context, StackOf(context).EditCell(*cell.grid, row, column, text)), name, cell);
}

// Goes on as Enter does, unless a figure is refused, this one or the one that holds the hand.
Json EnterIntoCell(Context& context, const std::string& name, const tuning::NamedCell& cell, const std::string& text) {
    Json typed = TypeIntoCell(context, name, cell, text);
    const bool stays = typed.contains("held") || OfCell(*cell.grid, cell.place).contains("refused");
    if (typed["ok"] != true || stays) return typed;
    StackOf(context).Key(cell.grid->Owner(), "Enter");
    return WithCell(Done(), name, cell);
}

Json Type(Context& context, const Words& words) {
    return WithFigure(
        context, words,
        [&](Control& control) { return WithText(Answer(context, StackOf(context).Type(control, words[2])), control); },
        [&](const tuning::NamedCell& cell) { return TypeIntoCell(context, words[1], cell, words[2]); });
}

Json Leave(Context& context, const Words& words) {
    return WithFigure(
        context, words,
        [&](Control& control) { return WithFocus(Answer(context, StackOf(context).Leave(control)), control); },
        [&](const tuning::NamedCell& cell) {
            return WithCell(Answer(context, StackOf(context).Leave(*cell.grid)), words[1], cell);
        });
}

Json Enter(Context& context, const Words& words) {
    return WithFigure(
        context, words,
        [&](Control& control) {
            const Outcome typed = StackOf(context).Type(control, words[2]);
            if (!typed.ok) return WithFocus(Answer(context, typed), control);
            return WithFocus(Answer(context, StackOf(context).Leave(control)), control);
        },
        [&](const tuning::NamedCell& cell) { return EnterIntoCell(context, words[1], cell, words[2]); });
}

// "3" or "0,2,5".
std::optional<std::vector<int>> Indices(std::string_view text) {
    std::vector<int> out;
    while (true) {
        const std::size_t comma = std::min(text.find(','), text.size());
        const auto index = WholeNumber(text.substr(0, comma), LargestIndex);
        if (!index) return std::nullopt;
        out.push_back(static_cast<int>(*index));
        if (comma == text.size()) return out;
        text.remove_prefix(comma + 1);
    }
}

Json Select(Context& context, const Words& words) {
    return WithControl(context, words, [&](Control& control) {
        auto indices = Indices(words[2]);
        if (!indices) return BadNumber(words[2]);
        // In a table the hand goes to a cell, which edits nothing.
        if (control.GetKind() == pages::Kind::Grid && indices->size() == 2)
            return Answer(context, StackOf(context).PointAtCell(control, indices->front(), indices->back()));
        return Answer(context, StackOf(context).Select(control, std::move(*indices)));
    });
}

Json Cell(Context& context, const Words& words) {
    return WithControl(context, words, [&](Control& grid) {
        const auto row = WholeNumber(words[2], LargestIndex);
        const auto column = WholeNumber(words[3], LargestIndex);
        if (!row) return BadNumber(words[2]);
        if (!column) return BadNumber(words[3]);
        const auto r = static_cast<int>(*row);
        const auto c = static_cast<int>(*column);
        Json answer = Answer(context, StackOf(context).EditCell(grid, r, c, words[4]));
        if (answer["ok"] == true) answer["text"] = OfCell(grid, {r, c})["text"];
        return answer;
    });
}

Json DoubleClick(Context& context, const Words& words) {
    return WithControl(context, words, [&](Control& c) { return Answer(context, StackOf(context).DoubleClick(c)); });
}

Json Key(Context& context, const Words& words) {
    return WithPage(context, words[0],
                    [&](Page& page) { return Answer(context, StackOf(context).Key(page, words[1])); });
}

Json Menu(Context& context, const Words& words) {
    const shell::MenuRow* menu = shell::FindMenu(words[0]);
    if (menu == nullptr) return Failure("There is no menu " + words[0] + ".");
    const auto index = WholeNumber(words[1], LargestIndex);
    if (!index) return BadNumber(words[1]);
    return Answer(context, shell::ChooseMenu(context.program.shell, menu->id, static_cast<int>(*index)));
}

Json Tool(Context& context, const Words& words) {
    return Answer(context, shell::PressTool(context.program.shell, words[0]));
}

Json Close(Context& context, const Words& words) {
    return WithPage(context, words[0], [&](Page& page) { return Answer(context, StackOf(context).Close(page)); });
}

// The simulated unit.

struct ToJson {
    Json operator()(std::int64_t number) const { return number; }
    Json operator()(const std::string& text) const { return Text(text); }
    Json operator()(const std::vector<std::string>& texts) const {
        Json out = Json::array();
        for (const std::string& text : texts) out.push_back(Text(text));
        return out;
    }
};

Json Sim(Context& context, const Words& words) {
    if (context.unit == nullptr) return Failure("There is no simulated unit: the program runs without --simulate.");
    // The unit's language quotes as the console's does; a whole line in quotes is that line.
    const std::optional<Words> quoted = SplitWords(words[0]);
    const sim::Answer answer = context.unit->Line(quoted && quoted->size() == 1 ? quoted->front() : words[0]);
    if (!answer.ok) return Failure(answer.error);
    Json out = Done();
    for (const auto& [key, value] : answer.values) out[key] = std::visit(ToJson{}, value);
    return out;
}

Json Quit(Context& context, const Words&) {
    context.quit = true;
    return Done();
}

constexpr auto AllCommands = std::to_array<Command>({
    {"state", "", 0, 0, State},
    {"pages", "", 0, 0, Pages},
    {"show", "PAGE", 1, 1, Show},
    {"get", "PAGE CONTROL", 2, 2, Get},
    {"press", "PAGE CONTROL", 2, 2, Press},
    {"type", "PAGE CONTROL TEXT", 3, 3, Type},
    {"leave", "PAGE CONTROL", 2, 2, Leave},
    {"enter", "PAGE CONTROL TEXT", 3, 3, Enter},
    {"select", "PAGE CONTROL INDEX[,INDEX...]", 3, 3, Select},
    {"cell", "PAGE GRID ROW COL TEXT", 5, 5, Cell},
    {"doubleclick", "PAGE CONTROL", 2, 2, DoubleClick},
    {"key", "PAGE KEY", 2, 2, Key},
    {"menu", "MENU INDEX", 2, 2, Menu},
    {"tool", "KEY", 1, 1, Tool},
    {"close", "PAGE", 1, 1, Close},
    {"channels", "", 0, 0, Channels},
    {"record", "NAME", 1, 1, RecordOf},
    {"text", "KEY SECTION", 2, 2, TextOf},
    {"sim", "LINE", 1, 1, Sim, true},
    {"run", "MS", 1, 1, RunFor},
    {"wait", "NAME VALUE MS | page PAGE open|closed MS", 3, 4, WaitFor},
    {"quit", "", 0, 0, Quit},
});

}  // namespace

const Command* FindCommand(std::string_view name) {
    const auto found =
        std::find_if(AllCommands.begin(), AllCommands.end(), [name](const Command& row) { return row.name == name; });
    return found == AllCommands.end() ? nullptr : &*found;
}

}  // namespace console
