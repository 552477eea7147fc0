#include "tuning/page_cycle.h"

#include <algorithm>
#include <set>

#include "link/frames/build.h"
#include "link/transaction.h"
#include "tuning/page_figures.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

using pages::Reason;
using pages::Tone;
using shell::Text;

constexpr Text NotRead{"ERRORE_18", "ERRORI"};
constexpr Text NoAnswer{"ERRORE_3", "ERRORI"};
constexpr std::string_view ReadingKey = "SEGNALAZIONE_3";
constexpr int Percent = 100;

std::size_t FramesIn(const std::string& chain) {
    return static_cast<std::size_t>(std::count(chain.begin(), chain.end(), frames::Etx));
}

}  // namespace

PageCycle::PageCycle(Tuning& tuning, const DialogRow& dialog, PageParts parts)
    : tuning_(tuning), dialog_(dialog), parts_(parts) {
    PageFoot& foot = parts_.foot;
    foot.Esci.escapes = true;
    foot.Esci.onPress = [this] { Leave(); };
    foot.InMemor.onPress = [this] { Store(); };
    foot.Applica[0].onPress = [this] { ApplicaModificati(); };
    foot.Applica[1].onPress = [this] { ApplicaIniziali(); };
    parts_.head.Pagine.takesSameEntry = true;
    parts_.head.Pagine.onChange = [this] { Choose(); };
    parts_.editing.onTouched = [this] { Touched(); };
    parts_.page.BindKey("Esc", foot.Esci);
    parts_.page.onClose = [this] { Leave(); };
    AddStates();
    AddCommand();
}

eculink::Link& PageCycle::Link() const {
    return tuning_.memory.link;
}

void PageCycle::AddStates() {
    eculink::Catalogue& catalogue = Link().catalogue;
    const auto add = [this, &catalogue](const eculink::StateRow& row) {
        catalogue.Add(
            row, [this](const std::string& frame) { return Reply(frame); }, [this] { Refused(); },
            [this](int) { TimedOut(); });
    };
    add(dialog_.reading);
    // Two works of a dialog may have one state.
    std::set<int> states;
    for (const WorkRow& row : dialog_.works) {
        if (states.insert(row.state).second) add({row.state, dialog_.writeLetters, dialog_.writeTimeOut});
    }
}

// The menus open the dialog on one of its pages.
void PageCycle::AddCommand() {
    shell::Shell& shell = Link().shell;
    shell.stack.Register(parts_.page);
    shell.commands.Add(parts_.page.Name(), [this, &shell](const shell::Call& call) {
        shell.state.PaginaMessaP = call.argument;
        shell.stack.OpenPage(parts_.page, true);
        if (!call.title.empty()) parts_.page.SetTitle(call.title);
    });
}

const WorkRow& PageCycle::RowOf(Work work) const {
    return *std::find_if(dialog_.works.begin(), dialog_.works.end(),
                         [work](const WorkRow& row) { return row.work == work; });
}

void PageCycle::Tell(Tone tone, const Text& text) {
    parts_.foot.Segnalazione.Say(tone, Link().shell.TestoLingua(text));
}

void PageCycle::TellNotRead() {
    Tell(Tone::Failed, NotRead);
}

void PageCycle::LoadTexts() {
    const shell::Shell& shell = Link().shell;
    PageFoot& foot = parts_.foot;
    for (int i = 0; i < foot.Applica.Size(); ++i)
        foot.Applica[i].SetText(shell.TestoLingua(Text{"APPLICA.", "TASTI"}, i));
    foot.InMemor.SetText(shell.TestoLingua("PROGRAMMA.0", "TASTI"));
    foot.Esci.SetText(shell.TestoLingua("ESCI.0", "TASTI"));
    for (int i = 0; i < parts_.head.LabTxt.Size(); ++i)
        parts_.head.LabTxt[i].SetText(shell.TestoLingua({"LABTXT.", dialog_.section}, i));
}

void PageCycle::LoadHeadings() {
    const shell::Shell& shell = Link().shell;
    std::vector<std::string> headings;
    listed_.clear();
    for (std::size_t i = 0; i < Sets().size(); ++i) {
        const PageRow& row = *Sets()[i].row;
        if (row.newProgram && shell.state.FirmwareVecchio == shell::True) continue;
        listed_.push_back(static_cast<int>(i));
        headings.push_back(shell.TestoLingua(row.heading, dialog_.section));
    }
    parts_.head.Pagine.SetItems(std::move(headings));
}

void PageCycle::Show(int page) {
    page_ = std::clamp(page, 0, static_cast<int>(Sets().size()) - 1);
    const PageRow& row = *Sets()[static_cast<std::size_t>(page_)].row;
    Link().shell.state.PaginaMessaP = page_;
    LoadTexts();
    LoadHeadings();
    parts_.head.MP1.SetText(Link().shell.TestoLingua(row.heading, dialog_.section));
    parts_.foot.Segnalazione.SetText({});
    parts_.controls.Show(static_cast<std::size_t>(page_));
    ClearFigures(parts_.controls.Shown());
    parts_.controls.ShowUnits(tuning_.CurrentContext());
    parts_.live.Show(row.live);
    work_.reset();
    read_ = touched_ = tried_ = false;
    offered_ = 0;
    if (onShown) onShown();
}

void PageCycle::Open(int page) {
    withUnit_ = true;
    Show(page);
    StartReading();
    UpdateButtons();
}

void PageCycle::ShowKnown(int page) {
    withUnit_ = false;
    Show(page);
    FinishReading();
    UpdateButtons();
}

void PageCycle::ShowUnread(int page, const Text& why) {
    withUnit_ = false;
    Show(page);
    Tell(Tone::Failed, why);
    UpdateButtons();
}

void PageCycle::Forget() {
    work_.reset();
    writes_.clear();
    read_ = false;
    ForgetEdits();
}

void PageCycle::ForgetEdits() {
    parts_.editing.Forget();
    ClearFigures(parts_.controls.Shown());
}

// The selector: the page on the screen is left first. Chosen again it is read again only if it could not be read.
void PageCycle::Choose() {
    const int entry = parts_.head.Pagine.Index();
    if (entry >= 0 && static_cast<std::size_t>(entry) < listed_.size()) {
        const int page = listed_[static_cast<std::size_t>(entry)];
        if (page != page_ || !read_) LeaveFor(page);
    }
    UpdateButtons();
}

// A further edit offers the new values again.
void PageCycle::Touched() {
    touched_ = true;
    overtaken_ = Running();
    offered_ = 0;
    UpdateButtons();
}

bool PageCycle::MustRestore() const {
    if (!read_) return false;
    if (!dialog_.restoresEdits) return tried_;
    const std::vector<std::size_t>& records = parts_.controls.Shown().records;
    return std::any_of(records.begin(), records.end(), [this](std::size_t number) {
        const Record& record = tuning_.memoria[number];
        return Differ(record) || OnTrial(record);
    });
}

void PageCycle::LeaveFor(std::optional<int> page) {
    if (Running()) return;
    next_ = page;
    if (!MustRestore()) return GoOn();
    Start(RowOf(Work::Leaving));
}

void PageCycle::GoOn() {
    if (!next_) return Link().shell.stack.ClosePage(parts_.page);
    ForgetEdits();
    Open(*next_);
    const std::string title = shell::EntryTitle(Link().shell, parts_.page.Name(), page_);
    if (!title.empty()) parts_.page.SetTitle(title);
}

bool PageCycle::Begin(Work work, int state, std::string chain) {
    frames_ = FramesIn(chain);
    answered_ = 0;
    if (frames_ == 0 || !eculink::StartTransaction(Link(), state, std::move(chain))) return false;
    work_ = work;
    overtaken_ = false;
    ShowProgress();
    UpdateButtons();
    return true;
}

void PageCycle::StartReading() {
    writes_.clear();
    if (!Begin(Work::Reading, dialog_.reading.state, PageReads(*parts_.controls.Shown().row))) return TellNotRead();
    Tell(Tone::Progress, {ReadingKey, dialog_.section});
}

// Starts a chain of writes, from idle alone. False when nothing has been sent.
bool PageCycle::Start(const WorkRow& row) {
    if (Running() || Link().state.StatoCmd != eculink::Idle) return false;
    writes_ = PageWrites(tuning_, parts_.controls.Shown().records, row.slot, row.homes);
    std::string chain;
    for (const PageWrite& write : writes_) chain += write.Frame();
    if (row.traced) eculink::TracciaTx(Link(), chain);
    if (!Begin(row.work, row.state, std::move(chain))) return false;
    parts_.editing.ClearFlags();
    Tell(Tone::Progress, {row.running, dialog_.section});
    return true;
}

// From the first frame on the unit may hold new values.
void PageCycle::ApplicaModificati() {
    if (Start(RowOf(Work::TryingNew))) tried_ = true;
}

void PageCycle::ApplicaIniziali() {
    Start(RowOf(Work::TryingInitial));
}

void PageCycle::Store() {
    if (parts_.editing.CheckAll()) Start(RowOf(Work::Storing));
}

bool PageCycle::Reply(const std::string& frame) {
    if (!work_) return false;
    if (*work_ == Work::Reading) {
        if (!TakeCells(tuning_, FirstRead(Link().state.ComandoTx), frames::Payload(frame))) return false;
    } else if (answered_ < writes_.size()) {
        TakeWrite(writes_[answered_]);
    }
    ++answered_;
    if (eculink::ContinueChain(Link())) {
        ShowProgress();
    } else {
        Finish();
    }
    return true;
}

void PageCycle::TakeWrite(const PageWrite& write) {
    if (!write.permanent) {
        tuning_.memoria[write.record].tried = write.count;
        return;
    }
    const bool stored = *work_ == Work::Storing && dialog_.storesOneByOne;
    TakeWritten(tuning_, write, stored);
    if (!stored) return;
    SetLimits(tuning_);
    parts_.editing.ApplySpeed();
    parts_.editing.Show();
}

// The chain counts as running until its work has been done: a failure in it is told as a silence of the unit.
void PageCycle::Finish() {
    const Work work = *work_;
    switch (work) {
        case Work::Reading:
            FinishReading();
            break;
        case Work::Storing:
            FinishStoring();
            break;
        case Work::TryingNew:
        case Work::TryingInitial:
            FinishTrying(work);
            break;
        case Work::Leaving:
            tried_ = false;
            End();
            return GoOn();
    }
    End();
    if (work != Work::Reading) Tell(Tone::Done, {DoneKey(work), dialog_.section});
    UpdateButtons();
}

std::string_view PageCycle::DoneKey(Work work) const {
    const WorkRow& row = RowOf(work);
    const std::vector<std::size_t>& records = parts_.controls.Shown().records;
    const bool inPart = std::any_of(records.begin(), records.end(), [this](std::size_t number) {
        return ParameterRows[number].borrowsRAM && Differ(tuning_.memoria[number]);
    });
    if (inPart && !row.doneInPart.empty()) return row.doneInPart;
    const bool inMemory =
        std::any_of(writes_.begin(), writes_.end(), [](const PageWrite& write) { return write.permanent; });
    return inMemory && !row.doneInMemory.empty() ? row.doneInMemory : row.done;
}

// What has been edited meanwhile has not been tried.
void PageCycle::FinishTrying(Work work) {
    tried_ = work == Work::TryingNew;
    offered_ = tried_ && !overtaken_ ? 1 : 0;
}

void PageCycle::FinishReading() {
    SetLimits(tuning_);
    parts_.foot.Segnalazione.SetText({});
    parts_.editing.Show();
    FocusFirst();
    read_ = true;
}

// The hand goes to the first value that can be edited.
void PageCycle::FocusFirst() {
    for (const FieldControls& field : parts_.controls.Shown().fields) {
        if (!field.value->Locked()) return parts_.page.SetFocus(field.value);
    }
}

void PageCycle::FinishStoring() {
    if (!dialog_.storesOneByOne) {
        for (const PageWrite& write : writes_) TakeWritten(tuning_, write, write.permanent);
    }
    tried_ = false;
    offered_ = 0;
    parts_.editing.Show();
}

void PageCycle::Refused() {
    if (!work_) return;
    if (*work_ == Work::Reading) return ReadingFailed();
    const Text text = RowOf(*work_).refused;
    End();
    Tell(Tone::Refused, text);
    UpdateButtons();
}

void PageCycle::TimedOut() {
    if (!work_) return;
    if (*work_ == Work::Reading) return ReadingFailed();
    End();
    DoubtUnanswered();
    FlagUnanswered();
    Tell(Tone::Failed, NoAnswer);
    UpdateButtons();
}

// Nothing of a page that was read in part is shown.
void PageCycle::ReadingFailed() {
    End();
    ClearFigures(parts_.controls.Shown());
    TellNotRead();
    UpdateButtons();
}

// A frame without an answer may have reached the working copy, or not: the copy counts as the one that is not initial.
void PageCycle::DoubtUnanswered() {
    if (answered_ >= writes_.size()) return;
    const PageWrite& write = writes_[answered_];
    if (!write.permanent && write.count != tuning_.memoria[write.record].raw) TakeWrite(write);
}

// What was edited and may not have arrived; where that is nothing, the record that got no answer. The first of them
// ends up on the screen.
void PageCycle::FlagUnanswered() {
    const auto first = writes_.begin() + static_cast<std::ptrdiff_t>(std::min(answered_, writes_.size()));
    bool edited = false;
    for (auto write = writes_.end(); write != first;) {
        --write;
        if (!Differ(tuning_.memoria[write->record])) continue;
        parts_.editing.Flag(write->record);
        edited = true;
    }
    if (!edited && first != writes_.end()) parts_.editing.Flag(first->record);
}

// The chain is over, whatever came of it. The cells and neighbours that give limits may be others now.
void PageCycle::End() {
    work_.reset();
    SetLimits(tuning_);
    parts_.foot.Avanzamento.SetVisible(false);
}

void PageCycle::ShowProgress() {
    const std::size_t percent = frames_ == 0 ? 0 : answered_ * Percent / frames_;
    parts_.foot.Avanzamento.SetText(std::to_string(percent));
    parts_.foot.Avanzamento.SetVisible(true);
}

// Buttons and selector as the page on the screen and the chain allow.
void PageCycle::UpdateButtons() {
    PageFoot& foot = parts_.foot;
    const auto entry = std::find(listed_.begin(), listed_.end(), page_);
    parts_.head.Pagine.SetIndex(entry == listed_.end() ? -1 : static_cast<int>(entry - listed_.begin()));
    const Reason chain = Running() ? Reason::Transaction : Reason::None;
    const Reason work = Running() || read_ ? chain : Reason::ReadingFailed;
    const Reason trial = work == Reason::None && !touched_ ? Reason::Unchanged : work;
    // The hand that has tried one kind of values goes over to the other.
    pages::Button& offered = foot.Applica[offered_];
    const pages::Control* hand = parts_.page.Focus();
    offered.SetVisible(withUnit_);
    for (const auto& button : foot.Applica) {
        button->SetWhy(trial);
        if (button.get() == &offered) continue;
        button->SetVisible(false);
        if (hand == button.get() && withUnit_) parts_.page.SetFocus(&offered);
    }
    foot.InMemor.SetVisible(withUnit_);
    foot.InMemor.SetWhy(work);
    foot.Esci.SetWhy(chain);
    parts_.head.Pagine.SetVisible(withUnit_);
    parts_.head.Pagine.SetWhy(chain);
    foot.Avanzamento.SetVisible(Running());
    // What has been read can be edited while a later chain runs.
    const Reason edit = read_ ? Reason::None : work;
    parts_.editing.SetWhy(edit);
    if (onEditable) onEditable(edit);
}

}  // namespace tuning
