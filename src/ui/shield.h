#pragma once

#include <QPointer>
#include <QWidget>

namespace kzq {

/// Covers its whole parent while the pedal works: takes the focus and blocks clicks, keys, the wheel, drops
/// and what assistive technology asks for; of the shortcuts, only Ctrl+Q works, and a simulation's Ctrl+P.
/// Shows, raises and focuses itself on creation, returns the focus on destruction.
class Shield : public QWidget {
    Q_OBJECT

  public:
    /// `wash` is the strength of the tray's colour over the parent; more than 0.4 counts as 0.4. Up to 0.32,
    /// resting names keep a contrast of 3 to the groove.
    explicit Shield(QWidget* parent, double wash = 0.3);
    ~Shield() override;

    /// The one that lies over `parent`, or null.
    static Shield* over(const QWidget& parent);
    /// Whether one lies over the widget's window, and the widget is under it.
    static bool covers(const QWidget& widget);
    /// What gets the focus back; null: nothing had it.
    QWidget* before() const { return before_; }

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Tab leads to nothing under it.
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QPointer<QWidget> before_;  ///< had the focus
    double wash_;
};

}  // namespace kzq
