#pragma once

#include "desktop/look.h"
#include "pages/control.h"

namespace desktop {

// A view of the program's own that shows a control by itself.
class Shows {
  public:
    virtual ~Shows() = default;
    virtual void Show(const pages::Control& control, const Look& look) = 0;
    // What must be put right first keeps even Enter from going on.
    virtual bool HoldsHand() const { return false; }
};

}  // namespace desktop
