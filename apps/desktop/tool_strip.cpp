#include "desktop/tool_strip.h"

#include <QFrame>
#include <QHBoxLayout>
#include <algorithm>
#include <array>

#include "desktop/hints.h"
#include "desktop/pictures.h"

namespace desktop {

namespace {

constexpr int PictureSize = 40;
// Each opens a group: memory of the unit, tuning, diagnosis, settings, the end.
constexpr std::array<std::string_view, 5> GroupStarts{"EEPROM_FILE", "MESSA_PUNTO", "ANOMALIE", "UTILITA", "ESCI"};

bool StartsGroup(std::string_view key) {
    return std::find(GroupStarts.begin(), GroupStarts.end(), key) != GroupStarts.end();
}

QString Name(std::string_view key) {
    return QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

QWidget* Divider(QWidget* parent, const QColor& colour) {
    auto* divider = new QFrame(parent);
    divider->setFrameShape(QFrame::VLine);
    divider->setFrameShadow(QFrame::Plain);
    QPalette palette = divider->palette();
    palette.setColor(QPalette::WindowText, colour);
    divider->setPalette(palette);
    return divider;
}

}  // namespace

ToolStrip::ToolStrip(shell::Shell& shell, MenuViews& menus, Hands& hands, const Look& look)
    : shell_(shell), menus_(menus), hands_(hands), look_(look) {
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(2, 2, 2, 2);
    line->setSpacing(0);
    for (const shell::ToolItem& item : shell.main.tools) {
        if (StartsGroup(item.row->key)) {
            line->addWidget(Divider(this, look.theme.line));
        }
        auto* button = new QToolButton(this);
        button->setObjectName(Name(item.row->key));
        button->setAutoRaise(true);
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setIconSize({PictureSize, PictureSize});
        button->setIcon(PictureIcon(Name(item.row->key).toLower()));
        button->setFocusPolicy(Qt::TabFocus);
        QObject::connect(button, &QToolButton::clicked, this, [this, row = item.row, button] { Press(*row, *button); });
        line->addWidget(button);
        buttons_.push_back(button);
    }
    line->addStretch();
}

void ToolStrip::Press(const shell::ToolRow& row, QToolButton& button) {
    if (!hands_.Done(shell::PressTool(shell_, row.key)) || row.target != shell::Target::Submenu) return;
    QMenu& menu = menus_.Of(shell::FindMenu(row.name)->id);
    const int left = (button.width() - menu.sizeHint().width()) / 2;
    menu.popup(button.mapToGlobal(QPoint(left, button.height())));
}

void ToolStrip::Push() {
    const auto& tools = shell_.main.tools;
    for (std::size_t i = 0; i < tools.size(); ++i) {
        const shell::ToolItem& item = tools[i];
        QToolButton& button = *buttons_[i];
        const QString why = look_.Why(item.why);
        button.setText(Words(item.caption));
        button.setEnabled(item.why == pages::Reason::None);
        button.setToolTip(why.isEmpty() ? Words(item.tooltip) : Words(item.tooltip) + QStringLiteral("\n") + why);
        SetHint(button, why);
        button.setAccessibleName(Words(item.tooltip));
    }
}

}  // namespace desktop
