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
    bool on = false;    ///< selected from the beginning
};

/// What is heard of a copy.
struct BringBackSound {
    bool on = false;       ///< its ring stops it
    double position = -1;  ///< 0 to 1; below 0: nothing is heard yet
    int seconds = 0;       ///< played in this round
    QString trouble = {};  ///< why nothing can be heard; empty: it can
};

/// Where a copy goes, and what is there.
struct BringBackTarget {
    unsigned slot = 1;
    std::optional<bool> occupied;  ///< nothing while no pedal's table is known

    bool operator==(const BringBackTarget&) const = default;
};

/// "to slot 5, replaces its loop"
QString spokenTarget(const BringBackTarget& target);

/// A copy in the Bring Back panel: a ring that plays it, its selector, what it is, and where it goes, which
/// is a button. A press on its field selects it as well. P plays it; Left goes from the selector to the ring,
/// which Tab leaves out, and Right back.
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
    void setSound(const BringBackSound& sound);
    const BringBackSound& sound() const { return sound_; }

    QAbstractButton& selector() const { return *selector_; }
    KeyButton& leader() const { return *leader_; }
    KeyButton& ring() const { return *ring_; }
    /// "Loop 5, erased today 14:02, 42 seconds, to slot 5, empty"
    QString spoken() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

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
    bool heard() const { return sound_.position >= 0; }
    void drawSound(ScaledPainter& painter) const;
    void drawTarget(ScaledPainter& painter, double resting) const;
    void refresh();

    const BringBackCopy copy_;
    BringBackTarget target_;
    std::shared_ptr<const Peaks> peaks_;
    BringBackSound sound_;
    QAbstractButton* selector_;
    KeyButton* leader_;
    KeyButton* ring_;
};

}  // namespace kzq
