#pragma once

#include "ui/picture_view.h"

namespace kzq {

/// The bar of lamps, whose width its owner sets. Assistive technology gets its value instead.
class Meter : public PictureView {
    Q_OBJECT

  public:
    explicit Meter(QWidget* parent = nullptr);

    /// In seconds of sound.
    int used() const { return used_; }
    int capacity() const { return capacity_; }
    /// `words` say the same as a sentence does.
    void setUsed(int used, int capacity, const QString& words);

  private:
    int used_ = 0;
    int capacity_ = 0;
};

}  // namespace kzq
