#pragma once

#include <QFont>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>
#include <optional>
#include <vector>

namespace kzq {

/// The size at which the program shows its windows: 1 is 100 %. Layouts, fonts and painting are written for
/// 100 %; this turns them into pixels of the screen, and lays everything out anew when the size changes.
///
/// Only windows that were taken follow, with everything in them. A widget keeps the geometry and font of 100
/// % until it is shown; from then on they are changed by `place` and `dress`, and read by `placeOf`, since
/// the widget's own are those of the screen. What a QLayout or a scroll area places is left to it. At 100 %
/// nothing is kept at all: there both are the same.
///
/// There is one for the program, since panels have the size of the main window. Main thread.
class Scale : public QObject {
    Q_OBJECT

  public:
    static Scale& ofProgram();

    double size() const { return size_; }
    /// More than 0.
    void setSize(double size);

    /// From now on `window` follows, at once if it is shown. Its size does too if it is fixed.
    void take(QWidget& window);
    /// `widget` places itself, in pixels of the screen.
    static void leaveAlone(QWidget& widget);
    /// Where the top left corner of the content lies in `window`, in pixels of the screen.
    void setOrigin(const QWidget& window, QPoint origin);
    /// Lays out `widget` and all in it before they are shown, for one who has to measure them.
    void adopt(QWidget& widget);

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    /// After everything was laid out anew.
    void changed();

  private:
    struct Given {
        QPointer<QWidget> widget;
        std::optional<QRect> place;  ///< in the parent; nothing if another places it
        std::optional<QFont> font;   ///< nothing if it has its parent's
        int spacing = -1;            ///< of its layout
        bool fixed = false;
    };
    friend void place(QWidget& widget, const QRect& given);
    friend QRect placeOf(const QWidget& widget);
    friend void dress(QWidget& widget, const QFont& given);
    friend QFont fontOf(const QWidget& widget);
    friend double scaleOf(const QWidget& widget);

    explicit Scale(QObject* parent);
    bool takes(const QWidget& widget) const;
    /// 100 %, without margins.
    bool usual() const { return size_ == 1 && origins_.isEmpty(); }
    void recordAll();
    void forgetAll();
    void scaleToolTips() const;
    void record(QWidget& widget);
    void apply(QWidget& widget);
    void applyPlace(QWidget& widget, const Given& given);
    Given* find(const QWidget& widget);
    void forget(QObject* widget);

    double size_ = 1;
    QHash<const QObject*, Given> given_;
    std::vector<QPointer<QWidget>> windows_;
    QHash<const QObject*, QPoint> origins_;
};

/// Geometry at 100 %, in the parent. A window takes only the size, which is fixed then.
void place(QWidget& widget, const QRect& given);
QRect placeOf(const QWidget& widget);
/// The font at 100 %.
void dress(QWidget& widget, const QFont& given);
QFont fontOf(const QWidget& widget);
/// By how much `widget` is larger than at 100 %: 1 until it was laid out.
double scaleOf(const QWidget& widget);

/// `length` of 100 % in pixels of the screen, rounded half upward.
int onScreen(double length);
/// The font in which text of `given` is shown: its pixels rounded, so that strokes stay crisp.
QFont fontOnScreen(const QFont& given);
/// Width of `text` in the font shown, in pixels of 100 %.
double advanceOf(const QString& text, const QFont& given);
/// The height that `label` needs at a width, both in pixels of 100 %.
int heightFor(const QWidget& label, int width);

}  // namespace kzq
