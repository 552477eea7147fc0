#pragma once

#include "tuning/live_panel.h"
#include "tuning/page_controls.h"
#include "tuning/page_cycle.h"
#include "tuning/page_editing.h"

namespace tuning {

struct Tuning;

// The pages that trim the unit while the engine runs.
struct MessaP : pages::Page {
    explicit MessaP(Tuning& owner);

    PageHead head{*this};
    pages::Button LeggoTPS{*this, "LeggoTPS"};  // above the rows, as the buttons of the tables
    PageControls controls;
    pages::Label B_Lam{*this, "B_Lam"};  // where the engine runs, and the thresholds by which it is controlled
    LivePanel live;
    PageFoot foot{*this};
    PageEditing editing;
    PageCycle cycle;

  protected:
    void Opening() override;
    void Closed() override;

  private:
    // What goes with the tables or the list of parameters: the engine's zone, the button of the throttle.
    void FollowView();
    // What the fitter sees of the figures besides the figures: name of the load axis, the button of the throttle.
    void FollowFigures();
    // The zone of the lambda map in which the engine runs, and the thresholds of the one pointed at.
    void FollowEngine();
    void ShowEngine(int column, int row);
    void ShowPointed(int column, int row);
    void TakeThrottle();
    bool TakesThrottle(const FieldControls& field) const;
    // The field that takes the live throttle: where the focus comes from, or the first one; null when none is on the
    // screen.
    const FieldControls* ThrottleField() const;

    Tuning& tuning_;
};

}  // namespace tuning
