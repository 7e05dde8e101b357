#pragma once

#include <QPointer>
#include <QWidget>
#include <cstddef>
#include <vector>

#include "ui/panels/backup_tape.h"

namespace kzq {

/// The list under the tape. Arrows walk, Return or Space chooses, Escape and a press outside close it; of a
/// long one, the wheel and the arrows show the rest.
class BackupList : public QWidget {
    Q_OBJECT

  public:
    explicit BackupList(QWidget* panel);

    /// `at` is of 100 %. `offers` has at least one.
    void open(QPoint at, std::vector<BackupOffer> offers, std::size_t chosen);
    void close();
    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    void chosen(std::size_t offer);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    int shownCount() const;
    int offerAt(QPointF point) const;
    void walk(int step);
    void scroll(int step);
    void mark(int offer);
    void choose(int offer);
    void paintOffer(ScaledPainter& painter, int offer) const;

    std::vector<BackupOffer> offers_;
    int chosen_ = 0;
    int marked_ = -1;           ///< under the pointer, or walked to; -1 for none
    int first_ = 0;             ///< the first that is shown
    QPointer<QWidget> before_;  ///< had the focus
};

}  // namespace kzq
