#include "desktop/layout.h"

#include <algorithm>
#include <array>
#include <string>

namespace desktop {

namespace {

using pages::Control;
using pages::Kind;

enum class Place { Heading, Text, Progress, Wide, Side, Strip, Button, Head };

// What differs from where a control's kind alone would put it. The name is that of a control or of a whole array.
struct PlaceRule {
    std::string_view page;  // empty: on every page
    std::string_view name;
    Place place;
};
constexpr auto PlaceRules = std::to_array<PlaceRule>({
    {"", "Segnalazione", Place::Strip},
    {"", "Avanzamento", Place::Progress},
    {"Messaggio", "Segnalazione", Place::Text},
    {"SystemMessage", "Title", Place::Heading},
    {"SystemMessage", "Text", Place::Text},
    {"Infor", "lblTitle", Place::Heading},
});

// Which label, initial value and unit belong to a value: arrays pair index by index.
struct TwinRule {
    std::string_view page;
    std::string_view label;
    std::string_view initial;
    std::string_view value;
    std::string_view unit;
};
constexpr auto TwinRules = std::to_array<TwinRule>({
    {"Risoluz", "LabCana", "", "TipoRisol", ""},
});

// Figures of the engine that tell what an edit does.
struct LiveRule {
    std::string_view page;
    std::string_view label;
    std::string_view figure;
    std::string_view unit;
    bool above;
};
constexpr auto LiveRules = std::to_array<LiveRule>({
    {"MessaL1", "LabAuto", "DatiAuto", "UmAuto", true},
});

struct AxesRule {
    std::string_view page;
    std::string_view grid;
    std::string_view columns;
    std::string_view rows;
    std::string_view columnCaption;
    std::string_view rowCaption;
};
constexpr auto AxesRules = std::to_array<AxesRule>({
    {"MessaL1", "LambdaRicco", "Giri", "MAPV", "LabGiri", "LabMAPV"},
});

// Pages whose text is what they are for; one that asks in its message strip has a picture for the question.
struct MessageRule {
    std::string_view page;
    const char* picture;
};
constexpr std::array<MessageRule, 3> MessageRules{{
    {"Messaggio", ""},
    {"SystemMessage", ""},
    {"InEEPROM", "exclamation"},
}};

std::string_view BaseName(std::string_view name) {
    return name.substr(0, name.find('('));
}
std::string_view IndexOf(std::string_view name) {
    const std::size_t at = name.find('(');
    return at == std::string_view::npos ? std::string_view() : name.substr(at);
}

bool Matches(const PlaceRule& rule, const pages::Page& page, const Control& control) {
    const bool here = rule.page.empty() || rule.page == page.Name();
    return here && (rule.name == control.Name() || rule.name == BaseName(control.Name()));
}

// A rule of the page outweighs one of all pages.
const PlaceRule* RuleOf(const pages::Page& page, const Control& control) {
    const PlaceRule* found = nullptr;
    for (const PlaceRule& rule : PlaceRules) {
        if (Matches(rule, page, control) && (found == nullptr || !rule.page.empty())) found = &rule;
    }
    return found;
}

bool IsValue(const Control& control) {
    const Kind kind = control.GetKind();
    return kind == Kind::Field || kind == Kind::Combo;
}

bool IsCaption(const pages::Page& page, const Control& control) {
    return control.GetKind() == Kind::Label && control.Name().rfind("Lab", 0) == 0 && RuleOf(page, control) == nullptr;
}

Control* Member(const pages::Page& page, std::string_view array, std::string_view index) {
    if (array.empty()) return nullptr;
    return page.Find(std::string(array).append(index));
}

// The controls that have found their place.
class Placed {
  public:
    bool Has(const Control* control) const {
        return control == nullptr || std::find(taken_.begin(), taken_.end(), control) != taken_.end();
    }
    void Take(const Control* control) {
        if (control != nullptr) taken_.push_back(control);
    }
    void Take(const FieldRow& row) {
        for (const Control* control : {row.label, row.initial, row.value, row.unit}) Take(control);
    }

  private:
    std::vector<const Control*> taken_;
};

void PlaceLive(const pages::Page& page, PagePlan& plan, Placed& placed) {
    for (const LiveRule& rule : LiveRules) {
        if (rule.page != page.Name()) continue;
        plan.liveAbove = rule.above;
        for (Control* control : page.Controls()) {
            if (BaseName(control->Name()) != rule.figure) continue;
            const std::string_view index = IndexOf(control->Name());
            const LiveFigure live{Member(page, rule.label, index), control, Member(page, rule.unit, index)};
            for (const Control* part : {live.label, live.figure, live.unit}) placed.Take(part);
            plan.live.push_back(live);
        }
    }
}

void PlaceAxes(const pages::Page& page, PagePlan& plan, Placed& placed) {
    for (const AxesRule& rule : AxesRules) {
        if (rule.page != page.Name()) continue;
        Axes& axes = plan.axes;
        axes.grid = page.Find(rule.grid);
        axes.columnCaption = page.Find(rule.columnCaption);
        axes.rowCaption = page.Find(rule.rowCaption);
        plan.surface = true;
        for (Control* control : page.Controls()) {
            if (BaseName(control->Name()) == rule.columns) axes.columns.push_back(control);
            if (BaseName(control->Name()) == rule.rows) axes.rows.push_back(control);
        }
        for (const auto* part : {&axes.columns, &axes.rows}) {
            for (const Control* control : *part) placed.Take(control);
        }
        for (const Control* control : {axes.grid, axes.columnCaption, axes.rowCaption}) placed.Take(control);
    }
}

void PlaceByRules(const pages::Page& page, PagePlan& plan, Placed& placed) {
    for (Control* control : page.Controls()) {
        const PlaceRule* rule = RuleOf(page, *control);
        if (rule == nullptr) continue;
        placed.Take(control);
        switch (rule->place) {
            case Place::Heading:
                plan.headings.push_back(control);
                break;
            case Place::Text:
                plan.texts.push_back(control);
                break;
            case Place::Progress:
                plan.progress.push_back(control);
                break;
            case Place::Wide:
                plan.wide.push_back(control);
                break;
            case Place::Side:
                plan.side.push_back(control);
                break;
            case Place::Strip:
                plan.strip = control;
                break;
            case Place::Button:
                plan.buttons.push_back(control);
                break;
            case Place::Head:
                (plan.heads.initial == nullptr ? plan.heads.initial : plan.heads.value) = control;
                break;
        }
    }
}

FieldRow RowByRule(const pages::Page& page, Control& value) {
    for (const TwinRule& rule : TwinRules) {
        if (rule.page != page.Name() || rule.value != BaseName(value.Name())) continue;
        const std::string_view index = IndexOf(value.Name());
        return {Member(page, rule.label, index), Member(page, rule.initial, index), &value,
                Member(page, rule.unit, index)};
    }
    return {nullptr, nullptr, &value, nullptr};
}

void PlaceRows(const pages::Page& page, PagePlan& plan, Placed& placed) {
    for (Control* control : page.Controls()) {
        if (!IsValue(*control) || placed.Has(control)) continue;
        const FieldRow row = RowByRule(page, *control);
        // An initial value is a field too: it must not become a row of its own.
        placed.Take(row);
        plan.rows.push_back(row);
    }
    std::erase_if(plan.rows, [&](const FieldRow& row) {
        return std::any_of(plan.rows.begin(), plan.rows.end(),
                           [&](const FieldRow& other) { return other.initial == row.value; });
    });
}

// What no rule pairs: the captions of a page stand in the order of its values and lists.
void PairInOrder(const pages::Page& page, PagePlan& plan, Placed& placed) {
    std::vector<Control*> captions;
    for (Control* control : page.Controls()) {
        if (IsCaption(page, *control) && !placed.Has(control)) captions.push_back(control);
    }
    auto next = captions.begin();
    for (FieldRow& row : plan.rows) {
        if (row.label != nullptr || next == captions.end()) continue;
        row.label = *next++;
        placed.Take(row.label);
    }
    // A caption that is left stands above the list that follows it.
    for (; next != captions.end(); ++next) {
        plan.wide.push_back(*next);
        placed.Take(*next);
    }
}

void PlaceByKind(const pages::Page& page, PagePlan& plan, const Placed& placed) {
    for (Control* control : page.Controls()) {
        if (placed.Has(control)) continue;
        switch (control->GetKind()) {
            case Kind::Button:
                plan.buttons.push_back(control);
                break;
            case Kind::Label:
                plan.texts.push_back(control);
                break;
            case Kind::Picture:
                plan.pictures.push_back(control);
                break;
            case Kind::Lamp:
                plan.side.push_back(control);
                break;
            default:
                plan.wide.push_back(control);
        }
    }
}

}  // namespace

PagePlan PlanOf(const pages::Page& page) {
    PagePlan plan;
    Placed placed;
    for (const MessageRule& rule : MessageRules) {
        if (rule.page != page.Name()) continue;
        plan.message = true;
        plan.stripPicture = rule.picture;
    }
    PlaceByRules(page, plan, placed);
    PlaceLive(page, plan, placed);
    PlaceAxes(page, plan, placed);
    PlaceRows(page, plan, placed);
    PairInOrder(page, plan, placed);
    PlaceByKind(page, plan, placed);
    return plan;
}

}  // namespace desktop
