#pragma once

#include <QPointer>
#include <QWidget>
#include <set>

namespace kzq {

/// The slots that a copy can go to, in the pedal's two columns of ten: an open ring is a loop, a dashed one
/// none. Arrows walk, Return or Space chooses, Escape and a press outside close it.
class BringBackTargets : public QWidget {
    Q_OBJECT

  public:
    static constexpr QSize listSize{172, 252};

    explicit BringBackTargets(QWidget* panel);

    /// `at` is of 100 %. `taken`: other copies go there, so they cannot be chosen.
    void open(QPoint at, unsigned chosen, const std::set<unsigned>& loops, const std::set<unsigned>& taken);
    void close();
    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    void chosen(unsigned slot);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void walk(int step);
    void choose(unsigned slot);
    void mark(unsigned slot);

    unsigned chosen_ = 0;
    unsigned marked_ = 0;  ///< under the pointer, or walked to; 0 for none
    std::set<unsigned> loops_;
    std::set<unsigned> taken_;
    QPointer<QWidget> before_;  ///< had the focus
};

}  // namespace kzq
