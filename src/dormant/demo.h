#pragma once

#include <QPointer>
#include <QWidget>

#include "ui/picture_view.h"

namespace kzq {

/// Holds an image and draws nothing itself.
class Demo : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    QPointer<PictureView> image;
};

}  // namespace kzq
