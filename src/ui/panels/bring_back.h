#pragma once

#include <QDialog>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "ui/panels/bring_back_row.h"

class QScrollArea;

namespace kzq {

class AlertButton;
class BringBackTargets;
class CheckBox;
class FocusRing;

/// Edit > Bring Back: the copies of loops that were erased or replaced, and where they go. It knows no files
/// and no pedal. Modal to its window. Main thread.
class BringBack : public QDialog {
    Q_OBJECT

  public:
    explicit BringBack(QWidget* window);

    /// The newest first. `total`: what all of them take, such as "312 MB".
    void setCopies(const std::vector<BringBackCopy>& copies, const QString& total);
    void setPeaks(std::size_t copy, std::shared_ptr<const Peaks> peaks);
    /// The slots with a loop; nothing while there is no pedal whose table is known.
    void setLoops(std::optional<std::set<unsigned>> loops);
    void setKeeping(bool on);
    void setSound(std::size_t copy, const BringBackSound& sound);

    const std::vector<BringBackRow*>& rows() const { return rows_; }
    CheckBox& keepCopies() const { return *keep_; }
    AlertButton& acceptButton() const { return *accept_; }
    AlertButton& decline() const { return *decline_; }
    BringBackTargets& targets() const { return *targets_; }
    /// What stands in the middle while there are no copies; empty otherwise.
    QString notice() const;
    /// "11 copies on this computer, 312 MB. Above 2 GB the oldest are removed."
    QString summary() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    /// By the user.
    void keepingChanged(bool on);
    /// The copy's ring: plays it, or stops it.
    void ringPressed(std::size_t copy);
    /// Escape, while a copy plays. Without one it closes the panel.
    void stopPressed();
    /// Slots by the index of the copy that goes there.
    void wanted(std::map<std::size_t, unsigned> targets);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void makeFoot();
    void rowToggled(BringBackRow& row);
    void openTargets(BringBackRow& row);
    BringBackTarget targetAt(unsigned slot) const;
    std::set<unsigned> takenBeside(const BringBackRow& row) const;
    void refresh();
    void focusDefault();

    QScrollArea* area_;
    CheckBox* keep_ = nullptr;
    AlertButton* decline_ = nullptr;
    AlertButton* accept_ = nullptr;
    FocusRing* ring_ = nullptr;
    BringBackTargets* targets_ = nullptr;
    BringBackRow* choosing_ = nullptr;  ///< whose target is chosen
    std::vector<BringBackRow*> rows_;
    std::optional<std::set<unsigned>> loops_;
    QString total_;
};

}  // namespace kzq
