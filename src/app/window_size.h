#pragma once

#include <QObject>
#include <QSize>
#include <QTimer>
#include <QWidget>

namespace kzq {

/// How large the main window is shown: it scales as one picture, in whole percent, and keeps its proportions.
/// A drag of its edge changes the size at once; when it rests, the window takes the picture's shape. What the
/// window manager insists on besides is margin. Remembered for this run only. Main thread.
///
/// From 75 % to 300 %; below that only on a screen that has no room for 75 %, and where a desktop's scale
/// makes up for it: nothing is smaller there than at 75 % without that scale. The screen is the one on which
/// the window is.
class WindowSize : public QObject {
    Q_OBJECT

  public:
    /// `window` has its size of 100 %, and owns this.
    explicit WindowSize(QWidget& window);

    /// Whether `begin` makes a window of the size `usual` one of 100 %.
    static bool beginsWhole(QSize usual, QSize room);
    void set(int percent);
    /// Whether the screen has room for it; what lies beyond the screen cannot be reached.
    bool fits(int percent) const;
    /// As large as the screen allows, and there in the middle.
    void fitScreen();
    /// Before the window is shown: 100 %, or less if `room` on the screen is too small for that. `ratio`:
    /// pixels of the device to one of the screen.
    void begin(QSize room, double ratio);
    /// The edge was let go, or nothing was heard of it for a moment.
    void settle();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void limit(QSize room, double ratio);
    QSize room() const;
    int fitting(QSize room) const;
    int nearest(QSize size) const;
    QSize sizeAt(int percent) const;
    void resized(QSize size);

    QWidget& window_;
    const QSize usual_;
    QSize settled_;  ///< before the drag
    QSize refused_;  ///< asked for and not given by the window manager
    int smallest_;   ///< percent
    int wanted_ = 100;
    QTimer rest_;
};

}  // namespace kzq
