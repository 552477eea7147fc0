#include "desktop/widgets/field_edit.h"

#include <QApplication>
#include <QPainter>
#include <algorithm>

namespace desktop {

namespace {

constexpr int FewCharacters = 8;    // what a figure's field always has room for
constexpr int ManyCharacters = 24;  // a field for words
constexpr int Unlimited = 32767;

}  // namespace

void FieldEdit::Show(const pages::Control& control, const Look& look) {
    const bool figure = control.filter == pages::KeyFilter::Digits || control.Locked();
    setAlignment((figure ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    setReadOnly(control.Locked());
    setFrame(!control.Locked());
    setFocusPolicy(control.Locked() ? Qt::NoFocus : Qt::StrongFocus);
    const int longest = control.MaxLength() == 0 ? Unlimited : static_cast<int>(control.MaxLength());
    // Setting it, even to what it is, takes the caret to the end.
    if (longest != maxLength()) setMaxLength(longest);
    // The core pads its figures on the left; the eye and the caret want the figure alone.
    ShowText(figure ? Words(platform::Trim(control.Text())) : Words(control.Text()));
    SetRoom(figure ? FewCharacters : ManyCharacters);
    theme_ = &look.theme;
    ShowLocked(control.Locked());
    if (marks_ == MarksOf(control)) return;
    // What is refused will be typed anew, in the field that has the keyboard; another has its text chosen when that
    // comes.
    if (control.Refused() && !marks_.refused && window()->focusWidget() == this) selectAll();
    marks_ = MarksOf(control);
    PlaceMarks();
    update();
}

void FieldEdit::PlaceMarks() {
    setTextMargins(marks_.Any() && HasRoom() ? Marks::Width : 0, 0, 0, 0);
}

void FieldEdit::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    PlaceMarks();
}

// The caret keeps its distance from the end, where the figures grow.
void FieldEdit::ShowText(const QString& shown) {
    if (shown == text()) return;
    const int fromEnd = static_cast<int>(text().size()) - cursorPosition();
    setText(shown);
    setCursorPosition(std::max(0, static_cast<int>(shown.size()) - fromEnd));
}

// What is only shown has room for all of it: nobody can move about in it.
void FieldEdit::SetRoom(int characters) {
    int room = fontMetrics().horizontalAdvance(QLatin1Char('0')) * characters + 2 * Marks::Width;
    if (isReadOnly()) room = std::max(room, fontMetrics().horizontalAdvance(text()) + Marks::Width);
    if (room == room_) return;
    room_ = room;
    updateGeometry();
}

// A value that cannot be edited stands quietly on the ground of the window.
void FieldEdit::ShowLocked(bool locked) {
    if (backgroundRole() == (locked ? QPalette::Window : QPalette::Base)) return;
    setBackgroundRole(locked ? QPalette::Window : QPalette::Base);
    QPalette quiet = QApplication::palette();
    quiet.setColor(QPalette::Base, theme_->window);
    quiet.setColor(QPalette::Text, theme_->quiet);
    setPalette(locked ? quiet : QPalette());
}

QSize FieldEdit::sizeHint() const {
    return {room_, QLineEdit::sizeHint().height()};
}

void FieldEdit::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!marks_.Any()) return;
    QPainter painter(this);
    if (HasRoom()) return marks_.Draw(painter, rect(), *theme_);
    CellMarks{false, marks_.changed, marks_.refused}.Draw(painter, rect(), *theme_);
}

}  // namespace desktop
