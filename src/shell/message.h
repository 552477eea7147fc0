#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "pages/page.h"

namespace shell {

struct Shell;

// A style is a set of buttons plus a picture.
inline constexpr int ButtonsOk = 0;
inline constexpr int ButtonsOkCancel = 1;
inline constexpr int ButtonsAbortRetryIgnore = 2;
inline constexpr int ButtonsYesNoCancel = 3;
inline constexpr int ButtonsYesNo = 4;
inline constexpr int ButtonsRetryCancel = 5;
inline constexpr int PictureStop = 16;
inline constexpr int PictureQuestion = 32;
inline constexpr int PictureExclamation = 48;
inline constexpr int PictureInformation = 64;
inline constexpr int StyleInformation = PictureInformation + ButtonsOk;
inline constexpr int StyleQuestion = PictureQuestion + ButtonsYesNo;

enum class Answer { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

using Then = std::function<void(Answer)>;

// The one message dialog. Its answer reaches `then` of the message; a page that closes by any other road drops it.
struct Messaggio : pages::Page {
    explicit Messaggio(Shell& owner);

    pages::Picture Immagine{*this, "Immagine"};  // index: 0 stop, 1 question, 2 exclamation, 3 information
    pages::Label Segnalazione{*this, "Segnalazione"};
    pages::Button TastoOK{*this, "TastoOK"};
    pages::Button TastoCancel{*this, "TastoCancel"};
    pages::Button TastoAbort{*this, "TastoAbort"};
    pages::Button TastoRetry{*this, "TastoRetry"};
    pages::Button TastoIgnore{*this, "TastoIgnore"};
    pages::Button TastoYes{*this, "TastoYes"};
    pages::Button TastoNo{*this, "TastoNo"};

    struct Request {
        std::string title;
        std::string text;
        int style = 0;
        Then then;
    };
    // Shows the message, or keeps it until the one on the screen has been answered.
    void Ask(Request request);
    // The buttons of the message on the screen, left to right.
    const std::vector<pages::Button*>& Shown() const { return shown_; }

  protected:
    void Closed() override;

  private:
    void Show();
    void Reply(Answer answer);
    void ReplyByEscape();

    Shell& shell_;
    std::deque<Request> waiting_;  // the front one is on the screen
    std::vector<pages::Button*> shown_;
};

// The message box of the system, for the time before language and dialog exist, and for the port.
struct SystemMessage : pages::Page {
    explicit SystemMessage(Shell& owner);

    pages::Label Title{*this, "Title"};
    pages::Label Text{*this, "Text"};
    pages::Button OK{*this, "OK"};

    // One box at a time: a further one waits until the one on the screen is answered.
    void Show(const std::string& title, const std::string& text, std::function<void()> then = {});

  protected:
    void Closed() override { waiting_.clear(); }

  private:
    struct Box {
        std::string title;
        std::string text;
        std::function<void()> then;
    };
    void Present();
    void Answered();

    Shell& shell_;
    std::deque<Box> waiting_;
};

// Opens the message page and returns; the answer, one of the buttons of the style, arrives in `then` (may be empty).
void MostraMessaggio(Shell& shell, const std::string& titolo, const std::string& testo, int stile, Then then);

// The two usual messages, with the usual title and a beep first: something to know, and a question with Yes and No.
void Tell(Shell& shell, const std::string& text);
void Ask(Shell& shell, const std::string& text, Then then);

}  // namespace shell
