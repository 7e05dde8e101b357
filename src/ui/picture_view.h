#pragma once

#include <QString>
#include <QWidget>

namespace kzq {

/// Shows a picture; takes no clicks.
class PictureView : public QWidget {
    Q_OBJECT

  public:
    enum class Fit { scaled, cropped };  ///< cropped: at its own size from the left, as the meter is

    explicit PictureView(QWidget* parent = nullptr);

    const QString& picture() const { return picture_; }
    void setPicture(const QString& name);
    void setFit(Fit fit);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString picture_;
    Fit fit_ = Fit::scaled;
};

}  // namespace kzq
