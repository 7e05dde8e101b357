#pragma once

#include <QPointer>
#include <QWidget>

namespace kzq {

class ScaledPainter;

/// A list that lies over its panel until one of its entries is chosen: by Return, Space or a click. Escape
/// and a press outside close it, and nothing behind it gets a key meanwhile.
class PickList : public QWidget {
    Q_OBJECT

  public:
    explicit PickList(QWidget* panel);

    void close();
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    /// `frame` is of 100 %.
    void openAt(const QRect& frame);
    /// Marks another entry if `key` is one for that.
    virtual void walk(int key) = 0;
    virtual void chooseMarked() = 0;

    static void paintGround(ScaledPainter& painter);
    static void paintMark(ScaledPainter& painter, const QRect& entry);

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    QPointer<QWidget> before_;  ///< had the focus
};

}  // namespace kzq
