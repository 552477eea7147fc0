#include "desktop/hands.h"

namespace desktop {

using pages::Outcome;
using pages::Reason;

bool Hands::Done(const Outcome& outcome) {
    if (!outcome.ok && refused) refused(outcome.why);
    if (after) after();
    return outcome.ok;
}

// A character that the field does not take is dropped without a word, as it always was.
bool Hands::Edit(pages::Control& control, std::string_view text) {
    const Outcome outcome = stack_.Edit(control, text);
    if (outcome.why != Reason::KeyDoesNothing) return Done(outcome);
    if (after) after();
    return false;
}

bool Hands::Key(pages::Page& page, std::string_view key) {
    const Outcome outcome = stack_.Key(page, key);
    if (outcome.why == Reason::KeyDoesNothing) return false;
    // What a busy page or one below a question is asked by key is refused, and that is an answer.
    Done(outcome);
    return true;
}

}  // namespace desktop
