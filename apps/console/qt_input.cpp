#include "console/qt_input.h"

#include <QMetaObject>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "console/session.h"

namespace console {

// What both threads see. The input may outlast the program by one read that never returns.
struct QtInput::Shared {
    std::mutex mutex;
    std::condition_variable changed;
    bool wanted = false;
    QtInput* owner = nullptr;  // none: the program has ended
};

QtInput::QtInput(Take take) : take_(std::move(take)), shared_(std::make_shared<Shared>()) {
    shared_->owner = this;
    std::thread([shared = shared_] { Read(shared); }).detach();
}

QtInput::~QtInput() {
    const std::lock_guard lock(shared_->mutex);
    shared_->owner = nullptr;
    shared_->changed.notify_all();
}

void QtInput::Ask() {
    if (asked_) return;
    asked_ = true;
    const std::lock_guard lock(shared_->mutex);
    shared_->wanted = true;
    shared_->changed.notify_all();
}

void QtInput::Read(const std::shared_ptr<Shared>& shared) {
    while (true) {
        std::unique_lock lock(shared->mutex);
        shared->changed.wait(lock, [&] { return shared->wanted || shared->owner == nullptr; });
        if (shared->owner == nullptr) return;
        shared->wanted = false;
        lock.unlock();
        const std::string piece = ReadInput();
        lock.lock();
        QtInput* owner = shared->owner;
        if (owner == nullptr) return;
        QMetaObject::invokeMethod(
            &owner->target_,
            [owner, piece] {
                owner->asked_ = false;
                owner->take_(piece);
            },
            Qt::QueuedConnection);
        if (piece.empty()) return;
    }
}

}  // namespace console
