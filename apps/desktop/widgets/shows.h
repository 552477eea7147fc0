#pragma once

#include "desktop/look.h"
#include "pages/control.h"

namespace desktop {

// A view of the program's own that shows a control by itself.
class Shows {
  public:
    virtual ~Shows() = default;
    virtual void Show(const pages::Control& control, const Look& look) = 0;
    // Enter goes on within the view, where it can; false: to the next control.
    virtual bool GoesOn() { return false; }
};

}  // namespace desktop
