#include "shell/message.h"

#include <array>

#include "shell/shell.h"

namespace shell {

namespace {

using ButtonOf = pages::Button Messaggio::*;

struct ButtonRow {
    ButtonOf button;
    std::string_view key;  // of the section TASTI
    Answer answer;
};

constexpr std::array<ButtonRow, 7> Buttons{{
    {&Messaggio::TastoOK, "OK.0", Answer::Ok},
    {&Messaggio::TastoCancel, "ANNULLA.0", Answer::Cancel},
    {&Messaggio::TastoAbort, "INTERROMPI.0", Answer::Abort},
    {&Messaggio::TastoRetry, "RIPROVA.0", Answer::Retry},
    {&Messaggio::TastoIgnore, "IGNORA.0", Answer::Ignore},
    {&Messaggio::TastoYes, "SI.0", Answer::Yes},
    {&Messaggio::TastoNo, "NO.0", Answer::No},
}};

constexpr int ButtonMask = 15;
constexpr int PictureMask = 240;

struct StyleRow {
    int style;
    std::array<ButtonOf, 3> buttons;
    int safe;  // place of the button that Esc presses; a question with a yes also gives it the focus
};

constexpr std::array<StyleRow, 6> Styles{{
    {ButtonsOk, {&Messaggio::TastoOK, nullptr, nullptr}, 0},
    {ButtonsOkCancel, {&Messaggio::TastoOK, &Messaggio::TastoCancel, nullptr}, 1},
    {ButtonsAbortRetryIgnore, {&Messaggio::TastoAbort, &Messaggio::TastoRetry, &Messaggio::TastoIgnore}, 0},
    {ButtonsYesNoCancel, {&Messaggio::TastoYes, &Messaggio::TastoNo, &Messaggio::TastoCancel}, 2},
    {ButtonsYesNo, {&Messaggio::TastoYes, &Messaggio::TastoNo, nullptr}, 1},
    {ButtonsRetryCancel, {&Messaggio::TastoRetry, &Messaggio::TastoCancel, nullptr}, 1},
}};

constexpr std::array<int, 4> Pictures{PictureStop, PictureQuestion, PictureExclamation, PictureInformation};

const StyleRow& FindStyle(int style) {
    for (const StyleRow& row : Styles) {
        if (row.style == (style & ButtonMask)) return row;
    }
    return Styles.front();
}

int PictureIndex(int style) {
    for (std::size_t i = 0; i < Pictures.size(); ++i) {
        if (Pictures[i] == (style & PictureMask)) return static_cast<int>(i);
    }
    return -1;
}

}  // namespace

Messaggio::Messaggio(Shell& owner) : Page("Messaggio"), shell_(owner) {
    for (const ButtonRow& row : Buttons) {
        (this->*row.button).onPress = [this, answer = row.answer] { Reply(answer); };
    }
    BindKey("Esc", TastoCancel);
    BindKey("Esc", TastoNo);
    BindKey("Esc", TastoAbort);
    BindKey("Esc", TastoOK);
    onClose = [this] { ReplyByEscape(); };
}

void Messaggio::Ask(Request request) {
    waiting_.push_back(std::move(request));
    if (waiting_.size() == 1) Show();
}

void Messaggio::Show() {
    const Request& request = waiting_.front();
    shell_.stack.OpenPage(*this, true);
    SetTitle(request.title);
    Segnalazione.SetText(request.text);
    Immagine.SetIndex(PictureIndex(request.style));
    for (const ButtonRow& row : Buttons) {
        (this->*row.button).SetText(shell_.TestoLingua(row.key, "TASTI"));
        (this->*row.button).SetVisible(false);
    }
    const StyleRow& style = FindStyle(request.style);
    shown_.clear();
    for (const ButtonOf button : style.buttons) {
        if (button == nullptr) continue;
        (this->*button).SetVisible(true);
        shown_.push_back(&(this->*button));
    }
    for (pages::Button* button : shown_) PutLast(*button);  // Tab goes as the eye does
    SetFocus(shown_.at(static_cast<std::size_t>(style.safe)));
}

void Messaggio::Reply(Answer answer) {
    if (waiting_.empty()) return;
    // The page is closed before the answer is told: whoever asked may open another one.
    std::deque<Request> rest;
    rest.swap(waiting_);
    const Then then = std::move(rest.front().then);
    rest.pop_front();
    shell_.stack.ClosePage(*this);
    waiting_ = std::move(rest);
    if (!waiting_.empty()) Show();
    if (then) then(answer);
}

void Messaggio::ReplyByEscape() {
    const StyleRow& style = FindStyle(waiting_.empty() ? 0 : waiting_.front().style);
    for (const ButtonRow& row : Buttons) {
        if (row.button == style.buttons[static_cast<std::size_t>(style.safe)]) return Reply(row.answer);
    }
}

void Messaggio::Closed() {
    waiting_.clear();
}

SystemMessage::SystemMessage(Shell& owner) : Page("SystemMessage"), shell_(owner) {
    OK.onPress = [this] { Answered(); };
    BindKey("Esc", OK);
    onClose = OK.onPress;
}

void SystemMessage::Show(const std::string& title, const std::string& text, std::function<void()> then) {
    waiting_.push_back({title, text, std::move(then)});
    if (waiting_.size() == 1) Present();
}

void SystemMessage::Present() {
    const Box& box = waiting_.front();
    shell_.stack.OpenPage(*this, true);
    SetTitle(box.title);
    Title.SetText(box.title);
    Text.SetText(box.text);
    OK.SetText("OK");
}

void SystemMessage::Answered() {
    if (waiting_.empty()) return;
    std::deque<Box> rest;
    rest.swap(waiting_);
    const std::function<void()> then = std::move(rest.front().then);
    rest.pop_front();
    shell_.stack.ClosePage(*this);
    waiting_ = std::move(rest);
    if (!waiting_.empty()) Present();
    if (then) then();
}

void MostraMessaggio(Shell& shell, const std::string& titolo, const std::string& testo, int stile, Then then) {
    shell.messaggio.Ask({titolo, testo, stile, std::move(then)});
}

void Tell(Shell& shell, const std::string& text) {
    shell.Beep();
    MostraMessaggio(shell, UsualTitle(shell), text, StyleInformation, {});
}

void Ask(Shell& shell, const std::string& text, Then then) {
    shell.Beep();
    MostraMessaggio(shell, UsualTitle(shell), text, StyleQuestion, std::move(then));
}

}  // namespace shell
