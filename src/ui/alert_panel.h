#pragma once

#include <QDialog>
#include <vector>

#include "ui/alert.h"
#include "ui/alert_button.h"

namespace kzq {

/// An alert as a window: mark, headline, fine print, and the buttons in adding order. The first visible
/// button is the default and starts with the focus. Closing the window counts as the last button, as Escape
/// does.
class AlertPanel : public QDialog {
    Q_OBJECT

  public:
    explicit AlertPanel(const Alert& alert, QWidget* parent = nullptr);

    /// The button that was chosen, 1000 for the first; the last one's until then.
    int answer() const { return answer_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void addTexts(const Alert& alert);
    void addButtons(const Alert& alert);
    void answerWith(int answer);

    QString mark_;
    int bottom_ = 0;  ///< of the texts
    int answer_ = 0;
};

}  // namespace kzq
