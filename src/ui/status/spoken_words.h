#pragma once

#include <QString>
#include <QWidget>

namespace kzq {

/// What assistive technology is given to speak, and nobody sees: a notification that appears.
class SpokenWords : public QWidget {
    Q_OBJECT

  public:
    explicit SpokenWords(QWidget* parent);

    /// At once, or when the window shows.
    void say(const QString& words);

  protected:
    /// A window that shows again says nothing again.
    void hideEvent(QHideEvent* event) override;
};

}  // namespace kzq
