#include "desktop/widgets/field_edit.h"

#include <QPainter>

namespace desktop {

namespace {

constexpr int FewDigits = 8;      // what a figure's field always has room for
constexpr int LongText = 24;      // a field for words
constexpr int MarkWidth = 16;     // room for the mark at the left edge
constexpr double MarkRadius = 4;  // of the dot of a changed field
constexpr int RefusedFrame = 3;

}  // namespace

void FieldEdit::Show(const pages::Control& control, const Look& look) {
    const bool figure = control.filter == pages::KeyFilter::Digits || control.Locked();
    setAlignment((figure ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    setReadOnly(control.Locked());
    setFrame(!control.Locked());
    setFocusPolicy(control.Locked() ? Qt::NoFocus : Qt::StrongFocus);
    setMaxLength(control.MaxLength() == 0 ? 32767 : static_cast<int>(control.MaxLength()));
    // The core pads its figures on the left; the eye and the caret want the figure alone.
    const QString shown = figure ? Words(platform::Trim(control.Text())) : Words(control.Text());
    if (shown != text()) {
        const int fromEnd = static_cast<int>(text().size()) - cursorPosition();
        setText(shown);
        setCursorPosition(std::max(0, static_cast<int>(shown.size()) - fromEnd));
    }
    changedInk_ = look.theme.warn;
    refusedInk_ = look.theme.bad;
    const int digits = figure ? FewDigits : LongText;
    if (digits != digits_) {
        digits_ = digits;
        updateGeometry();
    }
    if (changed_ != control.Changed() || refused_ != control.Refused()) {
        changed_ = control.Changed();
        refused_ = control.Refused();
        setTextMargins(changed_ || refused_ ? MarkWidth : 0, 0, 0, 0);
        update();
    }
}

QSize FieldEdit::sizeHint() const {
    const QSize base = QLineEdit::sizeHint();
    const int wide = fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits_ + 2 * MarkWidth;
    return {wide, base.height()};
}

void FieldEdit::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!changed_ && !refused_) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (refused_) {
        painter.setPen(QPen(refusedInk_, RefusedFrame));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 3, 3);
        QFont bold = font();
        bold.setBold(true);
        painter.setFont(bold);
        painter.drawText(QRect(RefusedFrame + 2, 0, MarkWidth, height()), Qt::AlignCenter, QStringLiteral("!"));
        return;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(changedInk_);
    painter.drawEllipse(QPointF(MarkWidth - MarkRadius, height() / 2.0), MarkRadius, MarkRadius);
}

}  // namespace desktop
