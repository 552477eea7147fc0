#include "desktop/widgets/choice_box.h"

#include <QStyleOptionComboBox>
#include <QStylePainter>

namespace desktop {

void ChoiceBox::SetMarks(const Marks& marks, const Theme& theme) {
    theme_ = &theme;
    if (marks == marks_) return;
    marks_ = marks;
    update();
}

void ChoiceBox::paintEvent(QPaintEvent* event) {
    if (!marks_.Any()) return QComboBox::paintEvent(event);
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    option.rect.setLeft(option.rect.left() + Marks::Width);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    marks_.Draw(painter, rect(), *theme_);
}

}  // namespace desktop
