#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>

namespace console {

// Standard input beside an event loop. A thread of its own waits for the next piece, since that is the one way that
// works for terminals, pipes and files on every system; it does nothing else, and it reads on only when it is asked to.
class QtInput {
  public:
    using Take = std::function<void(const std::string& piece)>;  // empty at the end of input

    explicit QtInput(Take take);
    ~QtInput();
    QtInput(const QtInput&) = delete;
    QtInput& operator=(const QtInput&) = delete;

    // Asks for the next piece, once; it arrives through the event loop.
    void Ask();

  private:
    struct Shared;
    static void Read(const std::shared_ptr<Shared>& shared);

    QObject target_;
    Take take_;
    std::shared_ptr<Shared> shared_;
    bool asked_ = false;
};

}  // namespace console
