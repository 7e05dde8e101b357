#pragma once

#include <set>

#include "ui/panels/pick_list.h"

namespace kzq {

/// The slots that a copy can go to, in the pedal's two columns of ten: an open ring is a loop, a dashed one
/// none.
class BringBackTargets : public PickList {
    Q_OBJECT

  public:
    static constexpr QSize listSize{172, 252};

    explicit BringBackTargets(QWidget* panel);

    /// `at` is of 100 %. `taken`: other copies go there, so they cannot be chosen.
    void open(QPoint at, unsigned chosen, const std::set<unsigned>& loops, const std::set<unsigned>& taken);

  Q_SIGNALS:
    void chosen(unsigned slot);

  protected:
    bool event(QEvent* event) override;
    void walk(int key) override;
    void chooseMarked() override { choose(marked_); }
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void step(int by);
    void choose(unsigned slot);
    void mark(unsigned slot);

    unsigned chosen_ = 0;
    unsigned marked_ = 0;  ///< under the pointer, or walked to; 0 for none
    std::set<unsigned> loops_;
    std::set<unsigned> taken_;
};

}  // namespace kzq
