#include "desktop/dialog.h"

#include <QCloseEvent>
#include <QLayout>
#include <QStatusTipEvent>
#include <algorithm>
#include <array>

namespace desktop {

namespace {

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

bool Runs(const PagePlan& plan) {
    return std::any_of(plan.progress.begin(), plan.progress.end(),
                       [](const pages::Control* bar) { return bar->Visible(); });
}

const char* StripPicture(const pages::Page& page, const PagePlan& plan) {
    const pages::Control& strip = *plan.strip;
    if (strip.Text().empty()) return "";
    if (!page.Enabled() || Runs(plan)) return "busy";
    const auto found = std::find_if(StripPictures.begin(), StripPictures.end(),
                                    [&](const StripRow& row) { return row.colour == strip.Colour(); });
    return found == StripPictures.end() ? plan.stripPicture : found->picture;
}

}  // namespace

Dialog::Dialog(pages::Page& page, Hands& hands, const Look& look, std::function<void(const QString&)> hint)
    : page_(page), hands_(hands), hint_(std::move(hint)), plan_(PlanOf(page)), view_(page, *this, hands, look) {
    setObjectName(QString::fromStdString(page.Name()));
    parts_ = DialogBuilder(*this, view_, plan_, look).Build();
}

void Dialog::Sync() {
    if (!view_.Sync()) return;
    ShowTitle();
    if (plan_.strip == nullptr) return;
    ShowStripPicture();
    ShowLimits();
}

// A list or table without a caption of its own is called as its page is.
void Dialog::ShowTitle() {
    const QString title = Words(page_.Title());
    if (windowTitle() == title) return;
    setWindowTitle(title);
    for (const pages::Control* control : page_.Controls()) {
        const bool table = control->GetKind() == pages::Kind::Grid || control->GetKind() == pages::Kind::List;
        QWidget* widget = view_.WidgetOf(*control);
        if (table && widget->accessibleName().isEmpty()) widget->setAccessibleName(title);
    }
}

void Dialog::ShowStripPicture() {
    parts_.stripPicture->SetName(QString::fromLatin1(StripPicture(page_, plan_)));
}

// What the message says of a refused value stands beside its field too, where the eye is.
void Dialog::ShowLimits() {
    for (const auto& [field, limits] : parts_.limits) {
        if (limits->isHidden() == !field->Refused()) continue;
        limits->setText(Words(plan_.strip->Text()));
        limits->setVisible(field->Refused());
    }
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
    const QLayout& parts = *layout();
    const int least = parts.hasHeightForWidth() ? parts.totalHeightForWidth(width()) : parts.totalSizeHint().height();
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
