#pragma once

#include <QWidget>

#include "ui/picture_button.h"

namespace kzq {

/// A button that shows a page; its picture says whether that one is shown. A page tab for assistive
/// technology.
class TabButton : public PictureButton {
    Q_OBJECT

  public:
    using PictureButton::PictureButton;

    /// The name of both pictures without their end: "Menu_Import".
    void setPictures(const QString& name);
    bool selected() const { return selected_; }
    void setSelected(bool selected);

  private:
    void follow();

    QString pictures_;
    bool selected_ = false;
};

/// What its tabs lie in, for assistive technology; it draws nothing.
class TabList : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;
};

}  // namespace kzq
