#pragma once

#include <QString>

#include "slots/slot_drop_target.h"
#include "ui/key_button.h"

namespace kzq {

/// The checkbox of an import row, or the "add" button of an export row, drawn as one picture of 24 x 24.
class SlotButton : public SlotDropTarget<KeyButton> {
    Q_OBJECT

  public:
    explicit SlotButton(QWidget* parent = nullptr);

    /// The loop's number.
    int tag() const { return tag_; }
    void setTag(int tag) { tag_ = tag; }

    /// 1: a checkbox that is on; else 0. A button that is not a checkbox is always 0.
    int state() const { return isChecked() ? 1 : 0; }
    void setState(int state);
    /// Like QWidget's, and updates the picture.
    void setEnabled(bool enabled);

    /// The shown picture, by name. An unknown name changes nothing.
    const QString& image() const { return image_; }
    bool setImage(const QString& name);
    /// Chooses the picture (and the tool tip of an export row) from the state of the row, then syncs the row.
    void resetImage();

    QSize sizeHint() const override { return {24, 24}; }

  Q_SIGNALS:
    /// The button was clicked, in whatever way; the row is ready for it.
    void action();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

  private:
    void sendAction();
    QString imageForRow(const Slot& row) const;

    QString image_;
    int tag_ = 0;
};

}  // namespace kzq
