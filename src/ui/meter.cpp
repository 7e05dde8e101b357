#include "ui/meter.h"

#include <QAccessible>

#include "ui/spoken.h"

namespace kzq {

Meter::Meter(QWidget* parent) : PictureView(parent) {
    setFit(Fit::cropped);
}

void Meter::setUsed(int used, int capacity, const QString& words) {
    describeAs(*this, words);
    if (used_ == used && capacity_ == capacity) {
        return;
    }
    used_ = used;
    capacity_ = capacity;
    QAccessibleValueChangeEvent changed(this, used);
    QAccessible::updateAccessibility(&changed);
}

}  // namespace kzq
