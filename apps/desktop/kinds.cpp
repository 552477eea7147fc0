#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <array>

#include "desktop/binder.h"
#include "desktop/widgets/caption_label.h"
#include "desktop/widgets/chart_view.h"
#include "desktop/widgets/choice_box.h"
#include "desktop/widgets/field_edit.h"
#include "desktop/widgets/grid_view.h"
#include "desktop/widgets/lamp_view.h"
#include "desktop/widgets/picture_view.h"
#include "desktop/words.h"

namespace desktop {

namespace {

using pages::Control;
using pages::Kind;

constexpr double LampLines = 1.3;
constexpr double PictureLines = 3;

void NoWire(Control&, QWidget&, Hands&) {}

// A widget of the program's own shows the control itself; false when it is another's.
bool ShowsItself(const Control& control, QWidget& widget, const Look& look) {
    auto* shows = dynamic_cast<Shows*>(&widget);
    if (shows != nullptr) shows->Show(control, look);
    return shows != nullptr;
}

void PushShows(const Control& control, QWidget& widget, const Look& look) {
    ShowsItself(control, widget, look);
}

QWidget* MakeLabel(const Control&, QWidget* parent) {
    return new CaptionLabel(parent);
}

// A path keeps together, behind a bracket too. One that is long must be folded somewhere.
QString KeepPaths(const QString& text) {
    constexpr int LongestKept = 30;
    const QString joiner(QChar(0x2060));
    static const QRegularExpression path(QStringLiteral("(?<![^\\s(\"'])/[^\\s/][^\\s]*"));
    QString kept;
    qsizetype done = 0;
    for (auto found = path.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        if (match.capturedLength() > LongestKept) continue;
        kept += text.mid(done, match.capturedStart() - done);
        for (const QChar c : match.captured()) {
            kept += c;
            if (c == QLatin1Char('/') || c == QLatin1Char('-')) kept += joiner;
        }
        done = match.capturedEnd();
    }
    return kept + text.mid(done);
}

// Captions are written with blanks around and before their colon, which must not stand in a line by itself.
QString LabelText(const std::string& text) {
    constexpr QChar Unbreakable(0x00A0);
    const QString words = Words(platform::Trim(text)).replace(QStringLiteral(" :"), Unbreakable + QStringLiteral(":"));
    return words.contains(QLatin1Char('/')) ? KeepPaths(words) : words;
}

void PushLabel(const Control& control, QWidget& widget, const Look& look) {
    if (ShowsItself(control, widget, look)) return;
    if (auto* bar = qobject_cast<QProgressBar*>(&widget)) return bar->setValue(Words(control.Text()).toInt());
    auto* label = qobject_cast<QLabel*>(&widget);
    const QString text = LabelText(control.Text());
    if (label != nullptr && label->text() != text) label->setText(text);
}

QWidget* MakeField(const Control&, QWidget* parent) {
    return new FieldEdit(parent);
}

void WireField(Control& control, QWidget& widget, Hands& hands) {
    auto& edit = static_cast<FieldEdit&>(widget);
    QObject::connect(&edit, &QLineEdit::textEdited, &edit, [&control, &edit, &hands](const QString& text) {
        if (hands.Edit(control, ToCore(text))) return;
        // The key is dropped: the line shows again what the page holds, the caret where it was.
        const QString kept = Words(platform::Trim(control.Text()));
        const int caret = edit.cursorPosition() - static_cast<int>(text.size() - kept.size());
        edit.setText(kept);
        edit.setCursorPosition(std::max(0, caret));
    });
}

QWidget* MakeButton(const Control&, QWidget* parent) {
    auto* button = new QPushButton(parent);
    // Enter belongs to the page: no button takes it by itself.
    button->setAutoDefault(false);
    return button;
}

// The key that presses the button, unless another button answers to it now.
std::string_view KeyHint(const Control& control) {
    const auto& button = static_cast<const pages::Button&>(control);
    const std::string_view key = control.Owner().KeyOf(button);
    const pages::Button* taker = control.Owner().KeyButton(key);
    return taker == nullptr || taker == &button ? key : std::string_view();
}

void PushButton(const Control& control, QWidget& widget, const Look&) {
    auto& button = static_cast<QAbstractButton&>(widget);
    const QString text = WithKey(Words(control.Text()), KeyHint(control));
    if (button.text() != text) button.setText(text);
}

QWidget* MakeOption(const Control&, QWidget* parent) {
    auto* option = new QRadioButton(parent);
    option->setAutoExclusive(false);  // which one is on is the page's affair
    return option;
}

QWidget* MakeCheck(const Control&, QWidget* parent) {
    return new QCheckBox(parent);
}

void PushMark(const Control& control, QWidget& widget, const Look&) {
    auto& mark = static_cast<QAbstractButton&>(widget);
    const QString text = Words(control.Text());
    if (mark.text() != text) mark.setText(text);
    mark.setChecked(control.Selected());
}

void WirePress(Control& control, QWidget& widget, Hands& hands) {
    auto& button = static_cast<QAbstractButton&>(widget);
    QObject::connect(&button, &QAbstractButton::clicked, &button, [&control, &button, &hands] {
        hands.Press(control);
        if (button.isCheckable()) button.setChecked(control.Selected());
    });
}

// An entry with its remark; a remark that names the entry itself stands for both.
QString EntryText(const Control& control, std::size_t index) {
    const std::string& item = control.Items()[index];
    if (index >= control.Details().size() || control.Details()[index].empty()) return Words(item);
    const std::string& detail = control.Details()[index];
    return detail.rfind(item, 0) == 0 ? Words(detail) : Words(item + "  " + detail);
}

QWidget* MakeCombo(const Control&, QWidget* parent) {
    return new ChoiceBox(parent);
}

void PushCombo(const Control& control, QWidget& widget, const Look& look) {
    auto& combo = static_cast<ChoiceBox&>(widget);
    combo.SetMarks(MarksOf(control), look.theme);
    const int count = static_cast<int>(control.Items().size());
    const bool recount = combo.count() != count;
    if (recount) combo.clear();
    for (int i = 0; i < count; ++i) {
        const QString text = EntryText(control, static_cast<std::size_t>(i));
        if (recount) {
            combo.addItem(text);
        } else if (combo.itemText(i) != text) {
            combo.setItemText(i, text);
        }
    }
    if (combo.currentIndex() != control.Index()) combo.setCurrentIndex(control.Index());
}

void WireCombo(Control& control, QWidget& widget, Hands& hands) {
    auto& combo = static_cast<QComboBox&>(widget);
    QObject::connect(&combo, &QComboBox::activated, &combo, [&control, &combo, &hands](int index) {
        if (index == control.Index() && !control.takesSameEntry) return;
        if (!hands.Select(control, {index})) combo.setCurrentIndex(control.Index());
    });
}

QWidget* MakeList(const Control& control, QWidget* parent) {
    auto* list = new QListWidget(parent);
    list->setSelectionMode(control.Multiple() ? QAbstractItemView::ExtendedSelection
                                              : QAbstractItemView::SingleSelection);
    return list;
}

void PushList(const Control& control, QWidget& widget, const Look&) {
    auto& list = static_cast<QListWidget&>(widget);
    const QSignalBlocker quiet(list);
    const int count = static_cast<int>(control.Items().size());
    if (list.count() != count) {
        list.clear();
        for (int i = 0; i < count; ++i) new QListWidgetItem(&list);
    }
    for (int i = 0; i < count; ++i) {
        const QString text = EntryText(control, static_cast<std::size_t>(i));
        QListWidgetItem* item = list.item(i);
        if (item->text() != text) item->setText(text);
        item->setSelected(false);
    }
    for (const int chosen : control.Selection()) {
        if (chosen >= 0 && chosen < count) list.item(chosen)->setSelected(true);
    }
    if (control.Index() >= 0 && control.Selection().size() == 1)
        list.setCurrentRow(control.Index(), QItemSelectionModel::NoUpdate);
}

void WireList(Control& control, QWidget& widget, Hands& hands) {
    auto& list = static_cast<QListWidget&>(widget);
    QObject::connect(&list, &QListWidget::itemSelectionChanged, &list, [&control, &list, &hands] {
        std::vector<int> chosen;
        for (int i = 0; i < list.count(); ++i) {
            if (list.item(i)->isSelected()) chosen.push_back(i);
        }
        if (!chosen.empty() && chosen != control.Selection()) hands.Select(control, std::move(chosen));
    });
}

QWidget* MakeGrid(const Control&, QWidget* parent) {
    return new GridView(parent);
}

void WireGrid(Control& control, QWidget& widget, Hands& hands) {
    auto& table = static_cast<GridView&>(widget);
    table.onEdit = [&control, &hands](int row, int column, const QString& text) {
        hands.EditCell(control, row, column, ToCore(text));
    };
    table.onPoint = [&control, &hands](int row, int column) { hands.PointAtCell(control, row, column); };
}

QWidget* MakeLamp(const Control&, QWidget* parent) {
    return new LampView(parent, LampLines);
}

QWidget* MakePicture(const Control&, QWidget* parent) {
    return new PictureView(parent, PictureLines);
}

QWidget* MakeChart(const Control&, QWidget* parent) {
    return new ChartView(parent);
}

constexpr std::array<KindRow, 11> Rows{{
    {Kind::Label, MakeLabel, PushLabel, NoWire},
    {Kind::Field, MakeField, PushShows, WireField},
    {Kind::Button, MakeButton, PushButton, WirePress},
    {Kind::Option, MakeOption, PushMark, WirePress},
    {Kind::Check, MakeCheck, PushMark, WirePress},
    {Kind::Combo, MakeCombo, PushCombo, WireCombo},
    {Kind::List, MakeList, PushList, WireList},
    {Kind::Grid, MakeGrid, PushShows, WireGrid},
    {Kind::Lamp, MakeLamp, PushShows, NoWire},
    {Kind::Picture, MakePicture, PushShows, NoWire},
    {Kind::Chart, MakeChart, PushShows, NoWire},
}};

}  // namespace

const KindRow& RowOf(Kind kind) {
    for (const KindRow& row : Rows) {
        if (row.kind == kind) return row;
    }
    std::abort();  // the table has a row for each kind
}

}  // namespace desktop
