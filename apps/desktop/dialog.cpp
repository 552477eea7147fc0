#include "desktop/dialog.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QScrollArea>
#include <QStatusTipEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "desktop/widgets/picture_view.h"

namespace desktop {

namespace {

constexpr double HeadingScale = 1.25;
constexpr double MessageScale = 1.15;
constexpr int MessageChars = 44;  // least width of a message, in characters
constexpr double StripPictureLines = 1.6;
constexpr int Spacing = 10;
constexpr int PageMargin = 16;
constexpr int ListChars = 36;

void Scale(QWidget& widget, double factor, bool bold = false) {
    QFont font = widget.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    widget.setFont(font);
}

// As large as what it holds, and with bars where the screen is too small for it.
class Scroll : public QScrollArea {
  public:
    explicit Scroll(QWidget* inside) {
        setFrameShape(NoFrame);
        setWidgetResizable(true);
        setWidget(inside);
    }
    QSize sizeHint() const override { return widget()->sizeHint(); }
};

// The kind of a message by its colour: nothing said, running, done, refused, failed.
struct StripRow {
    std::string_view colour;
    const char* picture;
};
constexpr std::array<StripRow, 4> StripPictures{{
    {"blue", "busy"},
    {"green", "live"},
    {"yellow", "exclamation"},
    {"red", "stop"},
}};

}  // namespace

Dialog::Dialog(pages::Page& page, Hands& hands, const Look& look, std::function<void(const QString&)> hint)
    : page_(page),
      hands_(hands),
      look_(look),
      hint_(std::move(hint)),
      plan_(PlanOf(page)),
      view_(page, *this, hands, look) {
    setObjectName(QString::fromStdString(page.Name()));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    Build();
}

void Dialog::Build() {
    for (const pages::Control* control : plan_.progress) {
        auto* bar = new QProgressBar(this);
        bar->setObjectName(QString::fromStdString(control->Name()));
    }
    view_.BindAll();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(PageMargin, PageMargin, PageMargin, PageMargin);
    column->setSpacing(Spacing);
    for (const pages::Control* heading : plan_.headings) {
        Scale(*view_.WidgetOf(*heading), HeadingScale, true);
        column->addWidget(view_.WidgetOf(*heading));
    }
    auto* texts = new QHBoxLayout;
    BuildTexts(*texts);
    column->addLayout(texts);
    for (const pages::Control* bar : plan_.progress) column->addWidget(view_.WidgetOf(*bar));
    auto* middle = new QHBoxLayout;
    middle->setSpacing(2 * Spacing);
    if (QWidget* rows = BuildRows()) middle->addWidget(new Scroll(rows), 1);
    if (!plan_.side.empty()) {
        auto* side = new QVBoxLayout;
        for (const pages::Control* control : plan_.side) side->addWidget(view_.WidgetOf(*control));
        side->addStretch();
        middle->addLayout(side);
    }
    column->addLayout(middle, 1);
    if (plan_.strip != nullptr) BuildStrip(*column);
    BuildButtons(*column);
}

void Dialog::BuildTexts(QHBoxLayout& line) {
    line.setSpacing(PageMargin);
    for (const pages::Control* picture : plan_.pictures) line.addWidget(view_.WidgetOf(*picture), 0, Qt::AlignTop);
    auto* words = new QVBoxLayout;
    for (const pages::Control* text : plan_.texts) {
        QWidget* label = view_.WidgetOf(*text);
        if (plan_.message) {
            Scale(*label, MessageScale);
            label->setMinimumWidth(label->fontMetrics().averageCharWidth() * MessageChars);
        }
        words->addWidget(label, 1);
    }
    line.addLayout(words, 1);
}

// Null when the page has nothing to edit.
QWidget* Dialog::BuildRows() {
    if (plan_.rows.empty() && plan_.wide.empty()) return nullptr;
    enum Column { Caption, Initial, Value, Unit };
    auto* inside = new QWidget(this);
    auto* grid = new QGridLayout(inside);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(PageMargin);
    grid->setVerticalSpacing(Spacing);
    grid->setColumnStretch(Caption, 1);
    int row = 0;
    const auto put = [&](pages::Control* control, Column column, Qt::Alignment alignment = {}) {
        if (control != nullptr) grid->addWidget(view_.WidgetOf(*control), row, column, alignment);
    };
    put(plan_.heads.initial, Initial, Qt::AlignRight);
    put(plan_.heads.value, Value, Qt::AlignRight);
    ++row;
    for (const FieldRow& fields : plan_.rows) {
        put(fields.label, Caption);
        put(fields.initial, Initial);
        put(fields.value, Value);
        put(fields.unit, Unit);
        if (fields.label != nullptr) {
            if (auto* caption = qobject_cast<QLabel*>(view_.WidgetOf(*fields.label)))
                caption->setBuddy(view_.WidgetOf(*fields.value));
            view_.SetNameOf(*fields.label, *fields.value);
        }
        ++row;
    }
    const pages::Control* caption = nullptr;
    for (pages::Control* wide : plan_.wide) {
        QWidget* widget = view_.WidgetOf(*wide);
        const bool label = wide->GetKind() == pages::Kind::Label;
        if (wide->GetKind() == pages::Kind::List)
            widget->setMinimumWidth(widget->fontMetrics().averageCharWidth() * ListChars);
        grid->addWidget(widget, row++, Caption, 1, Unit + 1);
        if (!label && caption != nullptr) view_.SetNameOf(*caption, *wide);
        caption = label ? wide : nullptr;
    }
    return inside;
}

void Dialog::BuildStrip(QVBoxLayout& column) {
    auto* strip = new QHBoxLayout;
    stripPicture_ = new PictureView(this, StripPictureLines);
    strip->addWidget(stripPicture_, 0, Qt::AlignTop);
    QWidget* text = view_.WidgetOf(*plan_.strip);
    text->setMinimumHeight(stripPicture_->sizeHint().height());
    text->setMinimumWidth(text->fontMetrics().averageCharWidth() * MessageChars);
    strip->addWidget(text, 1);
    column.addLayout(strip);
}

void Dialog::BuildButtons(QVBoxLayout& column) {
    if (plan_.buttons.empty()) return;
    auto* line = new QHBoxLayout;
    line->setSpacing(Spacing);
    line->addStretch();
    for (const pages::Control* button : plan_.buttons) {
        QWidget* widget = view_.WidgetOf(*button);
        widget->setMinimumHeight(widget->fontMetrics().height() * 2);
        line->addWidget(widget);
    }
    column.addSpacing(Spacing);
    column.addLayout(line);
}

void Dialog::Sync() {
    if (!view_.Sync()) return;
    const QString title = Words(page_.Title());
    if (windowTitle() != title) setWindowTitle(title);
    if (plan_.strip != nullptr) ShowStripPicture();
}

void Dialog::ShowStripPicture() {
    const char* name = plan_.strip->Text().empty() ? "" : "information";
    for (const StripRow& row : StripPictures) {
        if (row.colour == plan_.strip->Colour() && !plan_.strip->Text().empty()) name = row.picture;
    }
    stripPicture_->SetName(QString::fromLatin1(name));
}

void Dialog::Present(QWidget& parent, const QRect& area) {
    area_ = area;
    if (parentWidget() != &parent) setParent(&parent, windowFlags());
    Sync();
    if (isVisible()) return;
    Place();
    if (page_.Modal()) {
        open();
    } else {
        setWindowModality(Qt::NonModal);
        show();
    }
}

// In the middle of the area, as large as the page wants or as it was left.
void Dialog::Place() {
    const QSize wanted = sizeHint().expandedTo(testAttribute(Qt::WA_Resized) ? size() : QSize());
    resize(wanted.boundedTo(area_.size()));
    FitHeight();
    QRect frame(QPoint(0, 0), size());
    frame.moveCenter(area_.center());
    frame.moveTop(std::max(frame.top(), area_.top()));
    move(frame.topLeft());
}

// A text that has grown gets its lines.
void Dialog::FitHeight() {
    if (layout() == nullptr) return;
    const int least =
        layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width()) : layout()->totalSizeHint().height();
    if (height() < least) resize(width(), std::min(least, std::max(area_.height(), height())));
}

bool Dialog::event(QEvent* event) {
    if (event->type() == QEvent::StatusTip) {
        hint_(static_cast<QStatusTipEvent*>(event)->tip());
        return true;
    }
    const bool taken = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest && isVisible()) FitHeight();
    return taken;
}

void Dialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    hands_.Close(page_);
}

void Dialog::keyPressEvent(QKeyEvent* event) {
    if (view_.Key(*event)) return event->accept();
    if (event->key() != Qt::Key_Escape) QDialog::keyPressEvent(event);
}

}  // namespace desktop
