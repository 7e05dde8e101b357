#pragma once

#include <cstddef>
#include <vector>

#include "ui/panels/backup_tape.h"
#include "ui/panels/pick_list.h"

namespace kzq {

/// The list under the tape. Of a long one, the wheel and the arrows show the rest.
class BackupList : public PickList {
    Q_OBJECT

  public:
    explicit BackupList(QWidget* panel);

    /// `at` is of 100 %. `offers` has at least one.
    void open(QPoint at, std::vector<BackupOffer> offers, std::size_t chosen);

  Q_SIGNALS:
    void chosen(std::size_t offer);

  protected:
    void walk(int key) override;
    void chooseMarked() override { choose(marked_); }
    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    int shownCount() const;
    int offerAt(QPointF point) const;
    void step(int by);
    void scroll(int step);
    void mark(int offer);
    void choose(int offer);
    void paintOffer(ScaledPainter& painter, int offer) const;

    std::vector<BackupOffer> offers_;
    int chosen_ = 0;
    int marked_ = -1;  ///< under the pointer, or walked to; -1 for none
    int first_ = 0;    ///< the first that is shown
};

}  // namespace kzq
