#pragma once

#include <QAbstractButton>
#include <QString>
#include <memory>
#include <optional>

#include "audio/peaks.h"

namespace kzq {

class KeyButton;
class ScaledPainter;

/// What the Bring Back panel shows of a copy.
struct BringBackCopy {
    unsigned slot = 1;  ///< where it was, 1 to 20
    QString fate;       ///< "erased today 14:02"
    int seconds = 0;    ///< its length
};

/// Where a copy goes, and what is there.
struct BringBackTarget {
    unsigned slot = 1;
    std::optional<bool> occupied;  ///< nothing while no pedal's table is known

    bool operator==(const BringBackTarget&) const = default;
};

/// A copy in the Bring Back panel: its selector, what it is, and where it goes, which is a button. A press on
/// its field selects it as well.
class BringBackRow : public QWidget {
    Q_OBJECT

  public:
    static constexpr QSize rowSize{576, 28};

    BringBackRow(BringBackCopy copy, QWidget* parent);

    bool on() const { return selector_->isChecked(); }
    void setOn(bool on) { selector_->setChecked(on); }
    const BringBackTarget& target() const { return target_; }
    void setTarget(const BringBackTarget& target);
    void setPeaks(std::shared_ptr<const Peaks> peaks);
    /// Shows the ring at its left end, which plays it.
    void showRing();
    void setPlaying(bool playing);

    QAbstractButton& selector() const { return *selector_; }
    KeyButton& leader() const { return *leader_; }
    /// "Loop 5, erased today 14:02, 42 seconds, to slot 5, empty"
    QString spoken() const;

  Q_SIGNALS:
    void ringPressed();
    /// By the user or by `setOn`.
    void toggled();
    /// The list of targets is wanted.
    void leaderPressed();

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool replaces() const { return target_.occupied.value_or(false); }
    void drawWaveform(ScaledPainter& painter) const;
    void drawTarget(ScaledPainter& painter, double resting) const;
    void refresh();

    const BringBackCopy copy_;
    BringBackTarget target_;
    std::shared_ptr<const Peaks> peaks_;
    QAbstractButton* selector_;
    KeyButton* leader_;
    KeyButton* ring_;
};

}  // namespace kzq
