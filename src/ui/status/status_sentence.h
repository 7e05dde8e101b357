#pragma once

#include "ui/key_button.h"
#include "ui/status/announcements.h"

namespace kzq {

/// The sentence of the status line with its mark and the chevron, as one button: from 8 left of the mark to
/// 16 right of the chevron's middle. A link may lie on it.
class StatusSentence : public KeyButton {
    Q_OBJECT

  public:
    explicit StatusSentence(QWidget* parent);

    /// Takes the room it needs, at most to `left`, with its right edge at `right`; both in the parent.
    /// `linkWidth` is 0 without a link. What does not fit is cut and shown in the tool tip.
    void show(const Announcements::Line& line, int left, int right, int linkWidth);
    const QString& sentence() const { return sentence_; }
    /// As it fits.
    const QString& shown() const { return shown_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Announcements::Kind kind_ = Announcements::Kind::rest;
    bool marked_ = false;
    QString sentence_;
    QString shown_;
    int linkWidth_ = 0;
};

}  // namespace kzq
