#include "desktop/pictures.h"

#include <QHash>
#include <QIconEngine>
#include <QPixmap>
#include <QSvgRenderer>
#include <algorithm>
#include <array>
#include <memory>

namespace desktop {

namespace {

constexpr double PaleOpacity = 0.38;
constexpr int MostCells = 4;

struct CellRow {
    std::string_view control;
    std::array<const char*, MostCells> pictures;  // by cell
};
constexpr std::array<CellRow, 2> Cells{{
    {"Commu", {"commut_0", "commut_1", "commut_2", "commut_3"}},
    {"Immagine", {"stop", "question", "exclamation", "information"}},
}};

QString FileOf(const QString& name) {
    return QStringLiteral(":/pictures/") + name + QStringLiteral(".svg");
}

// Reads its file when it is first painted: most pictures of a start are never looked at.
class SvgEngine : public QIconEngine {
  public:
    explicit SvgEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        if (!renderer_) renderer_ = std::make_shared<QSvgRenderer>(FileOf(name_));
        painter->save();
        if (mode == QIcon::Disabled) painter->setOpacity(PaleOpacity);
        const int side = std::min(rect.width(), rect.height());
        QRect square(0, 0, side, side);
        square.moveCenter(rect.center());
        renderer_->render(painter, square);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap& kept = drawn_[size.width() * 2 + (mode == QIcon::Disabled ? 1 : 0)];
        if (kept.size() != size) {
            kept = QPixmap(size);
            kept.fill(Qt::transparent);
            QPainter painter(&kept);
            painter.setRenderHint(QPainter::Antialiasing);
            paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        }
        return kept;
    }
    QIconEngine* clone() const override { return new SvgEngine(*this); }

  private:
    QString name_;
    std::shared_ptr<QSvgRenderer> renderer_;
    QHash<int, QPixmap> drawn_;
};

}  // namespace

void DrawPicture(QPainter& painter, const QRectF& into, const QString& name) {
    if (name.isEmpty()) return;
    QSvgRenderer renderer(FileOf(name));
    if (renderer.isValid()) renderer.render(&painter, into);
}

QIcon PictureIcon(const QString& name) {
    return QIcon(new SvgEngine(name));
}

QString PictureOf(std::string_view control, int cell) {
    for (const CellRow& row : Cells) {
        if (row.control == control && cell >= 0 && cell < MostCells)
            return QString::fromLatin1(row.pictures[static_cast<std::size_t>(cell)]);
    }
    return {};
}

}  // namespace desktop
