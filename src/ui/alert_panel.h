#pragma once

#include <QDialog>
#include <QString>

#include "ui/alert.h"

namespace kzq {

class CheckBox;

/// An alert as a window: mark, headline, fine print, and the buttons in the order of adding. The default,
/// which starts with the focus, is the first visible button, and the last one where the first destroys. It
/// stays on top, like the floating windows, which must not cover it. Escape and closing the window count as
/// the last button.
class AlertPanel : public QDialog {
    Q_OBJECT

  public:
    explicit AlertPanel(const Alert& alert, QWidget* parent = nullptr);

    /// The button that was chosen, alertFirstButton for the first; the last one until then.
    int answer() const { return answer_; }
    /// The alert's check box; without one, not ticked.
    bool ticked() const;
    void setTicked(bool ticked);

  Q_SIGNALS:
    /// It has been painted.
    void appeared();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct TextStyle;

    int addText(const std::string& text, int top, const TextStyle& style);
    int addOption(const std::string& title, int top);
    void addButtons(const Alert& alert, int top);

    QString mark_;
    CheckBox* option_ = nullptr;
    int answer_ = 0;
};

}  // namespace kzq
