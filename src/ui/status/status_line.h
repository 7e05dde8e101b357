#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

#include "ui/status/announcements.h"
#include "ui/status/outcome_list.h"
#include "ui/status/spoken_words.h"
#include "ui/status/status_link.h"
#include "ui/status/status_sentence.h"

class QMenuBar;

namespace kzq {

/// The right end of a menu bar: what came of the last operation, with an action, and the list of the last
/// outcomes, which a press opens. Lies over the bar as a child of its window, so that a shield covers it.
/// A screen reader speaks each outcome once. Main thread.
class StatusLine : public QWidget {
    Q_OBJECT

  public:
    /// Follows the bar's menus; `bar` has a parent, whose child this becomes.
    explicit StatusLine(QMenuBar* bar);

    void setAnnouncements(std::shared_ptr<Announcements> announcements);

    StatusSentence& sentence() { return *sentence_; }
    StatusLink& link() { return *link_; }
    OutcomeList& list() { return *list_; }
    SpokenWords& words() { return *words_; }
    /// Or closes it.
    void openList(Qt::FocusReason reason);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void place();
    void showLine();
    void speak(const Announcement& announcement);
    void hold();

    QMenuBar* const bar_;  ///< used only while it has events for us
    StatusSentence* sentence_;
    StatusLink* link_;
    QPointer<OutcomeList> list_;
    SpokenWords* words_;
    std::shared_ptr<Announcements> announcements_;
};

}  // namespace kzq
