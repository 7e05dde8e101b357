#pragma once

#include <QAbstractButton>

namespace kzq {

/// A box with a tick, and its title beside it. Space changes it.
class CheckBox : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QRect focusRingRect READ focusRingRect)

  public:
    explicit CheckBox(const QString& title, QWidget* parent = nullptr);

    /// The box alone.
    QRect focusRingRect() const;  // NOLINT(readability-convert-member-functions-to-static): a property
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace kzq
