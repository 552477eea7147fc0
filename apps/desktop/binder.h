#pragma once

#include <QHash>
#include <QObject>
#include <QWidget>
#include <cstdint>
#include <vector>

#include "desktop/hands.h"
#include "desktop/look.h"
#include "pages/page.h"

class QKeyEvent;

namespace desktop {

// How one kind of control becomes a widget: how it is made, how a change of the control reaches it, how an input on it
// reaches the page. One row a kind serves every page.
struct KindRow {
    pages::Kind kind;
    QWidget* (*make)(const pages::Control& control, QWidget* parent);
    void (*push)(const pages::Control& control, QWidget& widget, const Look& look);
    void (*wire)(pages::Control& control, QWidget& widget, Hands& hands);
};
const KindRow& RowOf(pages::Kind kind);

// One page in its window: keeps the widgets as the controls stand and hands inputs to the page. The widget of a control
// bears its name; a layout may have made a special one, else it is made here.
class PageView : public QObject {
  public:
    PageView(pages::Page& page, QWidget& root, Hands& hands, const Look& look);

    pages::Page& GetPage() const { return page_; }
    QWidget& Root() const { return root_; }
    // Finds or makes the widget of every control below the root that has none yet. `ready` may have made some.
    void BindAll();
    QWidget* WidgetOf(const pages::Control& control) const;
    // The text of `label` names `control` to tools for the blind.
    void SetNameOf(const pages::Control& label, const pages::Control& control);

    // Brings to the widgets what has changed since the last time; false when nothing has.
    bool Sync();
    // A key that no widget took.
    bool Key(const QKeyEvent& event);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Bound {
        pages::Control* control;
        QWidget* widget;
        const KindRow* row;
        std::int64_t seen = 0;
        std::vector<QWidget*> named;  // the widgets that this label names
    };

    void Bind(pages::Control& control);
    void Push(Bound& bound);
    void PushFocus();
    const Bound* Find(const QObject* widget) const;
    bool TakesPress(const Bound& bound);
    void FollowFocus(const Bound& bound, Qt::FocusReason reason);
    bool KeyOn(const Bound& bound, const QKeyEvent& event);

    pages::Page& page_;
    QWidget& root_;
    Hands& hands_;
    const Look& look_;
    std::vector<Bound> bound_;
    QHash<const QObject*, int> index_;  // of the widgets, and of their viewports
    std::int64_t seen_ = 0;
    const pages::Control* seenFocus_ = nullptr;
    bool focusDirty_ = false;
    bool pushing_ = false;
};

}  // namespace desktop
