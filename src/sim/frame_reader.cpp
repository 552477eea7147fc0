#include "sim/frame_reader.h"

#include "sim/bytes.h"

namespace sim {

void FrameReader::Forget() {
    if (inside_) dropped_ += static_cast<std::int64_t>(text_.size()) + 1;
    text_.clear();
    inside_ = false;
}

void FrameReader::Feed(std::string_view piece) {
    for (const char c : piece) {
        if (c == Stx) {
            Forget();
            inside_ = true;
        } else if (!inside_) {
            ++dropped_;
        } else if (c == Etx) {
            std::string whole;
            whole.swap(text_);
            inside_ = false;
            handler_(whole);
        } else if (text_.size() == Limit) {
            Forget();
            ++dropped_;
        } else {
            text_ += c;
        }
    }
}

}  // namespace sim
