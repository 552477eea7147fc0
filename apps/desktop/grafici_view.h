#pragma once

#include <QWidget>

#include "desktop/binder.h"
#include "link/link.h"

class QLabel;
class QStackedLayout;

namespace desktop {

class CardGrid;
class PictureView;

// How the link looks at a glance.
enum class LinkLook { Waiting, Live, Lost };
LinkLook LookOf(const eculink::Link& link);
QString PictureOf(LinkLook look);

// The instrument page: cards at the left, the strip chart in the middle or, while no unit is heard, why; the replica of
// the dashboard switch at the right.
class GraficiView : public QWidget {
    Q_OBJECT
  public:
    GraficiView(eculink::Link& link, Hands& hands, const Look& look);

    PageView& View() { return view_; }
    // Where the switch and the lamps stand, and of these the row of lamps alone.
    QRect SwitchColumn() const;
    QRect LampRow() const;
    void Sync();

  private:
    void BuildCards();
    QWidget* BuildMiddle();
    QWidget* BuildWaiting();
    QWidget* BuildSwitch();
    QWidget* BuildLampRow(QWidget* parent);
    void KeepSwitchWide();
    void NameLamps();
    void ShowLink(LinkLook now);

    eculink::Link& link_;
    const Look& look_;
    PageView view_;
    CardGrid* cards_;
    QStackedLayout* middle_ = nullptr;
    QWidget* waiting_ = nullptr;
    QWidget* switch_ = nullptr;
    QWidget* lamps_ = nullptr;
    QLabel* switchWords_ = nullptr;
    PictureView* waitingPicture_ = nullptr;
    QLabel* lost_ = nullptr;
    QLabel* centreCaption_ = nullptr;
    QLabel* rowCaption_ = nullptr;
    bool shown_ = false;
    LinkLook seen_ = LinkLook::Waiting;
};

}  // namespace desktop
