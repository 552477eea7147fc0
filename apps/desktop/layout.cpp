#include "desktop/layout.h"

#include <algorithm>
#include <string>

#include "desktop/layout_rules.h"

namespace desktop {

namespace {

using pages::Control;
using pages::Kind;

std::string_view BaseName(std::string_view name) {
    return name.substr(0, name.find('('));
}
std::string_view IndexOf(std::string_view name) {
    const std::size_t at = name.find('(');
    return at == std::string_view::npos ? std::string_view() : name.substr(at);
}

Control* Member(const pages::Page& page, std::string_view array, std::string_view index) {
    return array.empty() ? nullptr : page.Find(std::string(array).append(index));
}

// A rule of the page outweighs one of all pages.
const PlaceRule* RuleOf(const pages::Page& page, const Control& control) {
    const PlaceRule* found = nullptr;
    for (const PlaceRule& rule : PlaceRules()) {
        const bool here = rule.page.empty() || rule.page == page.Name();
        const bool named = rule.name == control.Name() || rule.name == BaseName(control.Name());
        if (here && named && (found == nullptr || !rule.page.empty())) found = &rule;
    }
    return found;
}

// The plan while it is being made: what has found its place is not placed again.
class Planner {
  public:
    explicit Planner(const pages::Page& page) : page_(page) {}

    PagePlan Plan() {
        PlaceMessage();
        PlaceTwinButtons();
        PlaceByRules();
        PlaceLive();
        PlaceAxes();
        PlaceRows();
        PairInOrder();
        PlaceByKind();
        return std::move(plan_);
    }

  private:
    bool Placed(const Control* control) const {
        return control == nullptr || std::find(taken_.begin(), taken_.end(), control) != taken_.end();
    }
    void Take(std::initializer_list<const Control*> controls) {
        for (const Control* control : controls) {
            if (control != nullptr) taken_.push_back(control);
        }
    }

    void PlaceMessage() {
        for (const MessageRule& rule : MessageRules()) {
            if (rule.page != page_.Name()) continue;
            plan_.message = true;
            plan_.stripPicture = rule.picture;
        }
    }

    void PlaceByRules() {
        for (Control* control : page_.Controls()) {
            const PlaceRule* rule = RuleOf(page_, *control);
            if (rule == nullptr) continue;
            Take({control});
            PlaceAt(rule->place, *control);
        }
    }
    void PlaceAt(Place place, Control& control) {
        switch (place) {
            case Place::Heading:
                return plan_.headings.push_back(&control);
            case Place::Selector:
                plan_.selector = &control;
                return;
            case Place::Head:
                (plan_.heads.initial == nullptr ? plan_.heads.initial : plan_.heads.value) = &control;
                return;
            case Place::Text:
                return plan_.texts.push_back(&control);
            case Place::Progress:
                return plan_.progress.push_back(&control);
            case Place::Tool:
                return plan_.tools.push_back(&control);
            case Place::Gauge:
                return plan_.gauge.push_back(&control);
            case Place::Strip:
                plan_.strip = &control;
                return;
        }
    }

    void PlaceLive() {
        for (const LiveRule& rule : LiveRules()) {
            if (rule.page != page_.Name()) continue;
            plan_.liveAbove = rule.above;
            for (Control* control : page_.Controls()) {
                if (BaseName(control->Name()) != rule.figure) continue;
                const std::string_view index = IndexOf(control->Name());
                plan_.live.push_back({Member(page_, rule.label, index), control, Member(page_, rule.unit, index)});
                Take({plan_.live.back().label, control, plan_.live.back().unit});
            }
        }
    }

    void PlaceAxes() {
        for (const AxesRule& rule : AxesRules()) {
            if (rule.page != page_.Name()) continue;
            Axes& axes = plan_.axes;
            axes.grid = page_.Find(rule.grid);
            axes.columnCaption = page_.Find(rule.columnCaption);
            axes.rowCaption = page_.Find(rule.rowCaption);
            plan_.surface = true;
            Take({axes.grid, axes.columnCaption, axes.rowCaption});
            for (Control* control : page_.Controls()) {
                const std::string_view name = BaseName(control->Name());
                if (name != rule.columns && name != rule.rows) continue;
                (name == rule.columns ? axes.columns : axes.rows).push_back(control);
                Take({control});
            }
        }
    }

    // A button and its twin for the initial values choose what is shown.
    void PlaceTwinButtons() {
        for (Control* control : page_.Controls()) {
            if (control->GetKind() != Kind::Button || Placed(control)) continue;
            Control* twin = page_.Find(control->Name() + std::string(TwinEnding));
            if (twin == nullptr) continue;
            plan_.pairs.insert(plan_.pairs.end(), {control, twin});
            Take({control, twin});
        }
    }

    // Fields and lists in rows; a table with a twin for its initial values likewise.
    void PlaceRows() {
        for (Control* control : page_.Controls()) {
            const bool table = control->GetKind() == Kind::Grid && control->beside.initial != nullptr;
            const bool value = control->GetKind() == Kind::Field || control->GetKind() == Kind::Combo;
            if ((!value && !table) || Placed(control) || IsInitial(*control)) continue;
            const FieldRow row{control->beside.label, control->beside.initial, control, control->beside.unit,
                               ActionOf(*control)};
            Take({row.label, row.initial, row.value, row.unit, row.action});
            (table ? plan_.tables : plan_.rows).push_back(row);
        }
    }
    bool IsInitial(const Control& control) const {
        const auto& all = page_.Controls();
        return std::any_of(all.begin(), all.end(),
                           [&](const Control* other) { return other->beside.initial == &control; });
    }
    Control* ActionOf(const Control& value) const {
        for (const ActionRule& rule : ActionRules()) {
            if (rule.page == page_.Name() && rule.value == BaseName(value.Name()))
                return Member(page_, rule.action, IndexOf(value.Name()));
        }
        return nullptr;
    }

    // Captions that no value names stand in the order of the values without one; what is left names the lists.
    void PairInOrder() {
        std::vector<Control*> captions;
        for (Control* control : page_.Controls()) {
            if (control->GetKind() == Kind::Label && control->Name().rfind("Lab", 0) == 0 && !Placed(control))
                captions.push_back(control);
        }
        auto next = captions.begin();
        for (FieldRow& row : plan_.rows) {
            if (row.label != nullptr || next == captions.end()) continue;
            row.label = *next++;
            Take({row.label});
        }
        for (; next != captions.end(); ++next) {
            plan_.wide.push_back(*next);
            Take({*next});
        }
    }

    void PlaceByKind() {
        for (Control* control : page_.Controls()) {
            if (Placed(control)) continue;
            switch (control->GetKind()) {
                case Kind::Button:
                    plan_.buttons.push_back(control);
                    break;
                case Kind::Label:
                    plan_.texts.push_back(control);
                    break;
                case Kind::Picture:
                    plan_.pictures.push_back(control);
                    break;
                case Kind::Lamp:
                    plan_.side.push_back(control);
                    break;
                default:
                    plan_.wide.push_back(control);
            }
        }
    }

    const pages::Page& page_;
    PagePlan plan_;
    std::vector<const Control*> taken_;
};

}  // namespace

PagePlan PlanOf(const pages::Page& page) {
    return Planner(page).Plan();
}

}  // namespace desktop
