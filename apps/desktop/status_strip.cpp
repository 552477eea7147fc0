#include "desktop/status_strip.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <array>

#include "desktop/widgets/lamp_view.h"

namespace desktop {

namespace {

constexpr double PictureLines = 1.6;
constexpr double LampLines = 1.3;
constexpr int Spacing = 10;
constexpr int ReadingTime = 6000;  // ms

QLabel* Panel(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

// Panels that come and go together, whatever each of them shows.
QWidget* Group(QWidget* parent) {
    auto* group = new QWidget(parent);
    auto* line = new QHBoxLayout(group);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(Spacing);
    return group;
}

// The red dot beside the name of a running recording.
class Dot : public QWidget {
  public:
    explicit Dot(QWidget* parent) : QWidget(parent) { setFixedSize(fontMetrics().height(), fontMetrics().height()); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(LampColour("red"));
        painter.drawEllipse(rect().adjusted(3, 3, -3, -3));
    }
};

// Control characters of a frame have no glyph.
QString Printable(QString text) {
    for (QChar& c : text) {
        if (!c.isPrint()) c = QChar(0x00B7);
    }
    return text;
}

}  // namespace

RunningLabel::RunningLabel(QWidget* parent, bool isShort) : QWidget(parent), short_(isShort) {
    setSizePolicy(isShort ? QSizePolicy::Ignored : QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void RunningLabel::Show(const pages::Control& control, const Look&) {
    // Of a backlog its end tells more than its beginning, and there is room for neither.
    constexpr std::size_t shown = 256;
    const std::string& text = control.Text();
    SetText(Printable(Words(text.size() > shown ? text.substr(text.size() - shown) : text)));
}

void RunningLabel::SetText(const QString& text) {
    if (text == text_) return;
    const bool longer = text.size() > text_.size();
    text_ = text;
    update();
    if (short_ || !longer) return;
    const int wide = fontMetrics().horizontalAdvance(text_);
    if (wide <= room_) return;
    room_ = wide;
    updateGeometry();
}

QSize RunningLabel::sizeHint() const {
    return {room_, fontMetrics().height()};
}

void RunningLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(short_ ? QPalette::PlaceholderText : QPalette::WindowText));
    if (short_) {
        painter.drawText(rect(), Qt::AlignVCenter, fontMetrics().elidedText(text_, Qt::ElideRight, width()));
    } else {
        painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignRight, text_);
    }
}

StatusStrip::StatusStrip(eculink::Link& link, const Look& look)
    : link_(link),
      look_(look),
      linkPicture_(new PictureView(this, PictureLines)),
      unit_(Group(this)),
      hint_(new QLabel(this)),
      buffer_(new RunningLabel(this, true)),
      recordingDot_(new Dot(this)),
      file_(Group(this)),
      samples_(Group(this)) {
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(4, 1, 4, 1);
    line->setSpacing(Spacing);
    line->addWidget(linkPicture_);
    line->addWidget(Panel(this, "Collegamento"));
    for (const char* lamp : {"RxOK", "RxKO"}) {
        auto* view = new LampView(this, LampLines);
        view->setObjectName(QString::fromLatin1(lamp));
        line->addWidget(view);
    }
    line->addWidget(unit_);
    for (const char* panel : {"Versione", "Codice"}) unit_->layout()->addWidget(Panel(unit_, panel));
    hint_->setObjectName(QStringLiteral("Avviso"));
    hint_->setTextFormat(Qt::PlainText);
    hint_->setWordWrap(true);
    hint_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    hint_->hide();
    line->addWidget(hint_, 1);
    buffer_->setObjectName(QStringLiteral("Label1"));
    line->addWidget(buffer_, 1);
    line->addWidget(recordingDot_);
    recordingDot_->setObjectName(QStringLiteral("Registra"));
    line->addWidget(file_);
    file_->layout()->addWidget(Panel(file_, "VisReg"));
    line->addWidget(samples_);
    auto* samples = new RunningLabel(samples_, false);
    samples->setObjectName(QStringLiteral("Campioni"));
    samples_->layout()->addWidget(samples);
    recordingDot_->hide();
    away_.setSingleShot(true);
    QObject::connect(&away_, &QTimer::timeout, this, [this] { Hint({}); });
}

void StatusStrip::NameLamps(PageView& view) {
    struct Row {
        const pages::Control& lamp;
        const char* key;
    };
    for (const Row& row : {Row{link_.shell.main.RxOK, "RXOK.0"}, Row{link_.shell.main.RxKO, "RXKO.0"}}) {
        QWidget* lamp = view.WidgetOf(row.lamp);
        const QString name = look_.Text(row.key, "MARLOVENT");
        lamp->setAccessibleName(name);
        lamp->setToolTip(name);
    }
}

void StatusStrip::Sync() {
    linkPicture_->SetName(PictureOf(LookOf(link_)));
    const bool recording = !link_.shell.state.FileRegistrazione.empty();
    if (recordingDot_->isHidden() == recording) recordingDot_->setVisible(recording);
}

void StatusStrip::Hint(const QString& text) {
    away_.stop();
    hint_->setText(text);
    hint_->setVisible(!text.isEmpty());
    buffer_->setVisible(text.isEmpty());
    MakeRoom();
}

// To a sentence that does not fit in the line beside them the version and code of the unit give way, then the count of
// the samples, then the name of their file; link, lamps and the dot stay. One that is longer still is folded.
void StatusStrip::MakeRoom() {
    layout()->activate();
    const std::array<QWidget*, 3> giving{unit_, samples_, file_};
    const auto wide = [](const QWidget* part) { return part->sizeHint().width() + Spacing; };
    int room = hint_->width();
    for (const QWidget* part : giving) room -= part->isHidden() ? wide(part) : 0;
    const int needed = hint_->fontMetrics().horizontalAdvance(hint_->text());
    for (QWidget* part : giving) {
        const bool stays = hint_->isHidden() || needed <= room;
        part->setVisible(stays);
        room += stays ? 0 : wide(part);
    }
}

bool StatusStrip::event(QEvent* event) {
    const bool taken = QWidget::event(event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) MakeRoom();
    return taken;
}

void StatusStrip::Tell(const QString& text) {
    Hint(text);
    away_.start(ReadingTime);
}

}  // namespace desktop
