#include "desktop/main_window.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QStatusTipEvent>
#include <QVBoxLayout>

#include "desktop/pictures.h"

namespace desktop {

MainWindow::MainWindow(eculink::Link& link, Hands& hands, const Look& look)
    : link_(link),
      hands_(hands),
      look_(look),
      menus_(std::make_unique<MenuViews>(link.shell, *menuBar(), hands, look)),
      tools_(new ToolStrip(link.shell, *menus_, hands, look)),
      grafici_(new GraficiView(link, hands, look)),
      status_(new StatusStrip(link, look)),
      view_(link.shell.main, *this, hands, look) {
    setObjectName(QStringLiteral("Marlovent"));
    setWindowIcon(PictureIcon(QStringLiteral("marlovent")));
    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(tools_);
    column->addWidget(grafici_, 1);
    column->addWidget(status_);
    setCentralWidget(centre);
    view_.BindAll();
}

PageAreas MainWindow::Areas() const {
    const QRect all = tools_->geometry() | grafici_->geometry();
    const QPoint origin = grafici_->pos();
    const QRect column = grafici_->SwitchColumn().translated(origin);
    QRect beside = all;
    beside.setRight(column.left() - 1);
    QRect above = all;
    above.setBottom(grafici_->LampRow().translated(origin).top() - 1);
    PageAreas areas{beside, above, all};
    for (QRect& area : areas) area.moveTopLeft(centralWidget()->mapToGlobal(area.topLeft()));
    return areas;
}

void MainWindow::Sync() {
    grafici_->Sync();
    status_->Sync();
    if (link_.shell.main.MenuVersion() != seenMenus_) {
        seenMenus_ = link_.shell.main.MenuVersion();
        menus_->Push();
        tools_->Push();
        status_->NameLamps(view_);
    }
    if (!view_.Sync()) return;
    const QString title = Words(link_.shell.main.Title());
    if (windowTitle() != title) setWindowTitle(title);
}

bool MainWindow::event(QEvent* event) {
    if (event->type() == QEvent::StatusTip) {
        status_->Hint(static_cast<QStatusTipEvent*>(event)->tip());
        return true;
    }
    return QMainWindow::event(event);
}

// What is minimised shows nothing, and nothing is refreshed for it.
void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || !link_.grafici.IsOpen()) return;
    eculink::SetInstrumentsInView(link_, !isMinimized());
}

// The page decides: it ends the program, which ends this window.
void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    hands_.Close(link_.shell.main);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (grafici_->View().Key(*event) || view_.Key(*event)) return event->accept();
    QMainWindow::keyPressEvent(event);
}

}  // namespace desktop
