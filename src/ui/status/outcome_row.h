#pragma once

#include <QStringList>
#include <QWidget>

#include "ui/status/announcements.h"
#include "ui/status/status_link.h"

namespace kzq {

/// One outcome in the list: time, mark, sentence, detail, and its links. Its height is that of its words, 56
/// with one line of detail.
class OutcomeRow : public QWidget {
    Q_OBJECT

  public:
    /// `last` has no line below it.
    OutcomeRow(const Announcement& announcement, bool last, int width, QWidget* parent);

    std::uint64_t number() const { return number_; }
    /// "14:07, failed, 2 of 10 loops saved. No space left on the disk."
    QString spoken() const;
    /// Time, sentence and detail, for the clipboard.
    QString text() const;
    StatusLink* remedy() const { return remedy_; }
    StatusLink& copy() const { return *copy_; }

  protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void setLit(bool lit);
    int layOutLinks(int end);
    int lastOfSentence() const;  ///< its baseline

    std::uint64_t number_;
    QString time_;
    QString sentence_;
    QString detail_;
    bool failure_;
    bool last_;
    bool lit_ = false;
    QStringList sentenceLines_;
    QStringList detailLines_;
    StatusLink* remedy_ = nullptr;
    StatusLink* copy_;
};

}  // namespace kzq
