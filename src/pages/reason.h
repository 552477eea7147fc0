#pragma once

#include <string_view>

namespace pages {

// Why an input does nothing: shown as tool tip, in the status line and as the console's refusal.
enum class Reason {
    None,
    NoUnit,          // no unit connected, or its image is not held
    Transaction,     // a command to the unit is running
    Calibration,     // a calibration step is running
    Recording,       // a recording is open
    NoRecording,     // none is open
    NothingChosen,   // no entry chosen
    Unchanged,       // nothing changed yet
    NotAvailable,    // the entry's page does not exist in this version
    PageDisabled,    // the page is busy
    PageCovered,     // another page waits for an answer
    Hidden,          // not shown now
    Locked,          // cannot be edited
    LongOperation,   // menus are off around a long operation
    ViewInForce,     // this view is shown already
    FixedSpeed,      // the chosen speed fixes the figure
    NoSensor,        // a pressure while no sensor has been acquired
    ReadingFailed,   // the page could not be read from the unit
    BlankUnit,       // the unit is blank
    Closed,          // the page is not open
    WrongKind,       // the control does not take this input
    NoSuchButton,    // no toolbar button of that name
    EmptyChart,      // no channel is on the chart
    NoSuchEntry,     // index outside the list
    KeyDoesNothing,  // the key has no meaning here
    OldProgram,      // the unit's program is too old
    ValueRefused,    // the field in which the focus stands holds a refused value
};

// The key of the reason's sentence in the language section MOTIVI; empty for None.
std::string_view ReasonKey(Reason reason);

// What became of an input: done, or refused with the reason and without any effect.
struct Outcome {
    bool ok = true;
    Reason why = Reason::None;

    static Outcome Done() { return {}; }
    static Outcome Refused(Reason reason) { return {false, reason}; }
};

}  // namespace pages
