#pragma once

#include "ui/key_button.h"

namespace kzq {

/// An underlined word that does something, 24 high. Pressed, it looks as under the pointer.
class StatusLink : public KeyButton {
    Q_OBJECT

  public:
    explicit StatusLink(QWidget* parent);

    /// The word, and the width that it needs.
    void setWord(const QString& word);
    /// Drawn fainter, as on a row that nobody points at.
    void setFaint(bool faint);

    QRect focusRingRect() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool faint_ = false;
};

}  // namespace kzq
