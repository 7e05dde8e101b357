#pragma once

#include <QPointer>
#include <QWidget>

namespace kzq {

/// Covers its whole parent while the pedal works: takes the focus and blocks clicks, keys, the wheel and
/// drops; of the shortcuts, only Ctrl+Q works. Shows, raises and focuses itself on creation, returns the
/// focus on destruction.
class Shield : public QWidget {
    Q_OBJECT

  public:
    /// `wash` is the strength of the tray's colour over the parent; more than 0.4 counts as 0.4.
    explicit Shield(QWidget* parent, double wash = 0.4);
    ~Shield() override;

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QPointer<QWidget> before_;  ///< had the focus
    double wash_;
};

}  // namespace kzq
