#pragma once

#include <QString>
#include <QWidget>

#include "slots/slot_drop_target.h"

namespace kzq {

/// The picture behind a row's name: 284 x 28.
class SlotFieldBackground : public SlotDropTarget<QWidget> {
    Q_OBJECT

  public:
    explicit SlotFieldBackground(QWidget* parent = nullptr);

    /// By name; empty draws nothing.
    const QString& image() const { return image_; }
    void setImage(const QString& name);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString image_;
};

}  // namespace kzq
