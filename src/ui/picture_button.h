#pragma once

#include "ui/key_button.h"

namespace kzq {

/// A button drawn as one picture, which its owner changes: the tabs, the menu button. It is lit under the
/// pointer and darker while pressed, unless the picture is that of the tab that is on ("…_On").
class PictureButton : public KeyButton {
    Q_OBJECT

  public:
    using KeyButton::KeyButton;

    const QString& picture() const { return picture_; }
    void setPicture(const QString& name);
    /// Those in the picture, in the user's language.
    void setWords(const QStringList& words);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor tint() const;

    QString picture_;
    QStringList words_;
};

}  // namespace kzq
