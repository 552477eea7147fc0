#pragma once

#include <functional>

#include "tuning/live_panel.h"
#include "tuning/page_controls.h"
#include "tuning/page_cycle.h"
#include "tuning/page_editing.h"
#include "tuning/tank_panel.h"

namespace tuning {

struct Tuning;

// The calibration step in which the settings are a part of a first acquisition.
inline constexpr int SettingsPhase = 6;

// The settings of the installation. During a first acquisition its first three pages follow each other and go into the
// base map; the unit is not touched.
struct Imposta : pages::Page {
    explicit Imposta(Tuning& owner);

    PageHead head{*this};
    PageControls controls;
    TankPanel tank;
    LivePanel live;
    PageFoot foot{*this};
    pages::Button Avanti{*this, "Avanti"};
    pages::Button Annulla{*this, "Annulla"};
    PageEditing editing;
    PageCycle cycle;

    // What follows the step; filled by the room that owns the acquisition.
    std::function<void()> onStepDone;
    std::function<void()> onStepLeft;

  protected:
    void Opening() override;
    void Closed() override;

  private:
    void OpenStep(int page);
    void Next();
    void LeaveStep();

    Tuning& tuning_;
    bool step_ = false;
};

// Opens the settings as a step of the first acquisition, on their first page.
void OpenSettingsStep(Tuning& tuning);

}  // namespace tuning
