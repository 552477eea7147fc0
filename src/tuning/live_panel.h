#pragma once

#include <functional>
#include <memory>
#include <span>

#include "pages/page.h"
#include "platform/timer.h"
#include "tuning/page_rows.h"

namespace tuning {

struct Tuning;

// The live channels that tell the effect of a page, beside its fields: name, figure and unit, in the unit's own values
// whatever view the instruments show.
class LivePanel {
  public:
    LivePanel(pages::Page& page, Tuning& tuning);

    std::function<void()> onTick;  // after each look at the channels; while an exchange runs nobody looks

    // Shows these channels; as many as there are labels.
    void Show(std::span<const LiveChannel> channels);
    // Follows the engine from now on, or no longer.
    void Follow(bool on);

  private:
    static constexpr int Most = 6;

    void Tick();
    void Look();

    Tuning& tuning_;
    pages::Array<pages::Label> labAuto_;
    pages::Array<pages::Label> datiAuto_;
    pages::Array<pages::Label> umAuto_;
    std::span<const LiveChannel> channels_;
    std::unique_ptr<platform::Timer> timer_;
};

}  // namespace tuning
