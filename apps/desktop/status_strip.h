#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>

#include "desktop/grafici_view.h"
#include "desktop/widgets/picture_view.h"

namespace desktop {

// A label of one line whose text changes all the time: it asks for more room when its text has become longer, never for
// less, so that nothing is laid out anew while figures run. One that is told to be short asks for no room at all and
// shows the beginning of its text.
class RunningLabel : public QWidget, public Shows {
    Q_OBJECT
  public:
    RunningLabel(QWidget* parent, bool isShort);

    void Show(const pages::Control& control, const Look& look) override;
    void SetText(const QString& text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString text_;
    bool short_;
    int room_ = 0;
};

// The status bar: the link, the reception lamps, the unit, the recording; between them what the program has to say
// about the thing under the pointer, else what stands in the receive buffer.
class StatusStrip : public QWidget {
    Q_OBJECT
  public:
    StatusStrip(eculink::Link& link, const Look& look);

    void Sync();
    // A sentence for the moment; an empty one takes it away.
    void Hint(const QString& text);
    // A refusal stays long enough to be read.
    void Tell(const QString& text);
    void NameLamps(PageView& view);

  protected:
    bool event(QEvent* event) override;

  private:
    void MakeRoom();

    eculink::Link& link_;
    const Look& look_;
    PictureView* linkPicture_;
    QWidget* unit_;  // its version and code
    QLabel* hint_;
    RunningLabel* buffer_;
    QWidget* recordingDot_;
    QWidget* file_;
    QWidget* samples_;
    QTimer away_;
    QString seenRecording_;
};

}  // namespace desktop
