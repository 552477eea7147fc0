#pragma once

#include <QString>

#include "desktop/theme.h"
#include "desktop/words.h"
#include "pages/reason.h"
#include "shell/language.h"

namespace desktop {

// What every view needs beside its control: colours and sentences.
struct Look {
    const Theme& theme;
    const shell::Language& language;

    QString Text(std::string_view key, std::string_view section) const { return Words(language.Text(key, section)); }
    // Why something does nothing, as a sentence; empty for no reason.
    QString Why(pages::Reason reason) const {
        return reason == pages::Reason::None ? QString() : Text(pages::ReasonKey(reason), "MOTIVI");
    }
};

}  // namespace desktop
