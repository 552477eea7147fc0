#include "desktop/widgets/grid_delegate.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <algorithm>
#include <array>

#include "desktop/widgets/grid_view.h"

namespace desktop {

namespace {

// What ends an edit and is then a key of the table.
bool EndsEdit(int key) {
    constexpr std::array Keys{Qt::Key_Return, Qt::Key_Enter, Qt::Key_Up, Qt::Key_Down};
    return std::find(Keys.begin(), Keys.end(), key) != Keys.end();
}

}  // namespace

GridDelegate::GridDelegate(GridView& grid) : QStyledItemDelegate(&grid), grid_(grid) {}

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const {
    auto* edit = new QLineEdit(parent);
    edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    edit->setFrame(false);
    if (grid_.TakesDigitsAlone()) {
        static const QRegularExpression digits(QStringLiteral("[0-9]*"));
        edit->setValidator(new QRegularExpressionValidator(digits, edit));
    }
    if (grid_.MaxLength() != 0) edit->setMaxLength(static_cast<int>(grid_.MaxLength()));
    return edit;
}

// What nobody has typed into is no edit; but what is refused is looked at each time it is left.
void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    const auto* edit = qobject_cast<QLineEdit*>(editor);
    if (edit == nullptr || !(edit->isModified() || grid_.MarksAt(index).refused)) return;
    grid_.Edit(index, edit->text());
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    grid_.MarksAt(index).Draw(*painter, option.rect, grid_.Colours());
}

bool GridDelegate::eventFilter(QObject* editor, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !EndsEdit(static_cast<QKeyEvent*>(event)->key()))
        return QStyledItemDelegate::eventFilter(editor, event);
    emit commitData(static_cast<QWidget*>(editor));
    emit closeEditor(static_cast<QWidget*>(editor), NoHint);
    if (!grid_.HoldsHand()) QCoreApplication::sendEvent(&grid_, event);
    return true;
}

}  // namespace desktop
