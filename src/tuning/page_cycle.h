#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "link/link.h"
#include "tuning/live_panel.h"
#include "tuning/page_editing.h"
#include "tuning/page_frames.h"

namespace tuning {

// What a chain of a dialog does.
enum class Work : std::uint8_t { Reading, TryingNew, TryingInitial, Storing, Leaving };

// A chain of writes of a dialog: its transaction state, which figures go where, and the words for it.
struct WorkRow {
    Work work;
    int state;
    std::size_t slot;  // figures as read (0) or as edited (1)
    Homes homes;
    bool traced;
    std::string_view running;  // keys of the dialog's section; may be empty
    std::string_view done;
    shell::Text refused;
    std::string_view doneInMemory = {};  // where the trial of some parameter is in the memory; empty: as `done`
    std::string_view doneInPart = {};    // where an edited parameter takes no part in a trial; empty: as `done`
};

// A dialog of tuning pages: everything in which the two differ but their pages.
struct DialogRow {
    std::string_view section;
    eculink::StateRow reading;
    std::string_view writeLetters;
    eculink::TimeOut writeTimeOut;
    std::array<WorkRow, 4> works;
    // Leaving puts the initial values back whenever a figure or a working copy differs from them; otherwise only when
    // the new values were the last tried.
    bool restoresEdits;
    // A record's initial value follows each stored cell; otherwise all of them at the end.
    bool storesOneByOne;
};

// Heading and page selector, and the heads of the two columns.
struct PageHead {
    explicit PageHead(pages::Page& owner) : MP1(owner, "MP1"), Pagine(owner, "Pagine"), LabTxt(owner, "LabTxt", 2) {}

    pages::Label MP1;
    pages::Combo Pagine;
    pages::Array<pages::Label> LabTxt;
};

// Message strip and buttons.
struct PageFoot {
    explicit PageFoot(pages::Page& owner)
        : Segnalazione(owner, "Segnalazione"),
          Avanzamento(owner, "Avanzamento"),
          Applica(owner, "Applica", 2),
          InMemor(owner, "InMemor"),
          Esci(owner, "Esci") {}

    pages::Label Segnalazione;
    pages::Label Avanzamento;  // how far a chain is, in percent; hidden while none runs
    pages::Array<pages::Button> Applica;
    pages::Button InMemor;
    pages::Button Esci;
};

// The parts of a dialog that the cycle works on.
struct PageParts {
    pages::Page& page;
    PageHead& head;
    PageControls& controls;
    LivePanel& live;
    PageFoot& foot;
    PageEditing& editing;
};

// The cycle of a tuning page: read, edit, try out, store, leave. One chain at a time, each frame answered before the
// next goes out.
class PageCycle {
  public:
    PageCycle(Tuning& tuning, const DialogRow& dialog, PageParts parts);

    std::function<void()> onShown;                  // a page has been put on the screen
    std::function<void(pages::Reason)> onEditable;  // why its values cannot be edited now; None: they can

    // Puts a page on the screen and reads it from the unit.
    void Open(int page);
    // Puts a page on the screen whose records are known already.
    void ShowKnown(int page);
    // Puts a page on the screen whose records cannot be had; the message says why.
    void ShowUnread(int page, const shell::Text& why);
    // Leaves the page; initial values go back to the unit first when it may run with others.
    void Leave() { LeaveFor(std::nullopt); }
    // The page has been closed by whatever road.
    void Forget();

    bool Running() const { return work_.has_value(); }
    bool Read() const { return read_; }
    // The number of the page on the screen.
    int Page() const { return page_; }
    void Tell(pages::Tone tone, const shell::Text& text);
    // What the page wanted from the unit cannot be had.
    void TellNotRead();

  private:
    void AddStates();
    void AddCommand();
    void LoadTexts();
    void LoadHeadings();
    void Show(int page);
    void LeaveFor(std::optional<int> page);
    void GoOn();
    void Choose();
    void Touched();

    void StartReading();
    void ApplicaModificati();
    void ApplicaIniziali();
    void Store();
    bool Start(const WorkRow& row);
    bool Begin(Work work, int state, std::string chain);

    bool Reply(const std::string& frame);
    void TakeWrite(const PageWrite& write);
    void Finish();
    void FinishTrying(Work work);
    void FinishReading();
    void FinishStoring();
    void FocusFirst();
    void Refused();
    void TimedOut();
    void ReadingFailed();
    void FlagUnanswered();
    void DoubtUnanswered();
    void ForgetEdits();
    void End();

    const WorkRow& RowOf(Work work) const;
    std::string_view DoneKey(Work work) const;
    const std::vector<PageSet>& Sets() const { return parts_.controls.All(); }
    bool MustRestore() const;
    void UpdateButtons();
    void ShowProgress();
    eculink::Link& Link() const;

    Tuning& tuning_;
    const DialogRow& dialog_;
    PageParts parts_;
    std::vector<int> listed_;  // pages by the entries of the selector
    int page_ = 0;
    std::optional<Work> work_;  // the chain that runs
    bool withUnit_ = true;      // the page works on the unit; otherwise it shows what is known without it
    bool read_ = false;
    bool touched_ = false;     // something has been typed or chosen since the page was read
    bool tried_ = false;       // the edited values were the last that were tried, and have not been stored
    bool overtaken_ = false;   // something has been edited since the chain that runs began
    int offered_ = 0;          // which Applica is offered
    std::optional<int> next_;  // page to open once this one has been left; none: the dialog closes
    std::vector<PageWrite> writes_;
    std::size_t frames_ = 0;  // of the chain
    std::size_t answered_ = 0;
};

}  // namespace tuning
