#include "desktop/widgets/caption_label.h"

#include <algorithm>

namespace desktop {

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void CaptionLabel::SetRoom(int most, int least) {
    most_ = most;
    least_ = least;
    updateGeometry();
}

// The text in one line, unless that is wider than so many characters.
QSize CaptionLabel::Folded(int characters) const {
    const int line = fontMetrics().boundingRect(text()).width() + fontMetrics().averageCharWidth();
    const int wide = std::min(line, characters * fontMetrics().averageCharWidth());
    return {wide, heightForWidth(wide)};
}

QSize CaptionLabel::sizeHint() const {
    return most_ == 0 ? QLabel::sizeHint() : Folded(most_);
}

QSize CaptionLabel::minimumSizeHint() const {
    return most_ == 0 ? QLabel::minimumSizeHint() : QSize(Folded(least_).width(), fontMetrics().height());
}

}  // namespace desktop
