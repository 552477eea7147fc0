#include "desktop/status_strip.h"

#include <QHBoxLayout>
#include <QPainter>

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
      hint_(new QLabel(this)),
      buffer_(new RunningLabel(this, true)),
      recordingDot_(new Dot(this)) {
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
    line->addWidget(Panel(this, "Versione"));
    line->addWidget(Panel(this, "Codice"));
    hint_->setTextFormat(Qt::PlainText);
    hint_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    hint_->hide();
    line->addWidget(hint_, 1);
    buffer_->setObjectName(QStringLiteral("Label1"));
    line->addWidget(buffer_, 1);
    line->addWidget(recordingDot_);
    line->addWidget(Panel(this, "VisReg"));
    auto* samples = new RunningLabel(this, false);
    samples->setObjectName(QStringLiteral("Campioni"));
    line->addWidget(samples);
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
}

void StatusStrip::Tell(const QString& text) {
    Hint(text);
    away_.start(ReadingTime);
}

}  // namespace desktop
