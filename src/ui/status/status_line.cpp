#include "ui/status/status_line.h"

#include <QEvent>
#include <QMenuBar>

#include "ui/accessible_controls.h"
#include "ui/focus_ring.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/status/status_look.h"

namespace kzq {
namespace {

constexpr int gap = 24;          // after the last word of the menus
constexpr int menuPadding = 10;  // right of that word
constexpr int beforeMark = 12;   // the plate and its focus ring
constexpr int afterPlate = 20;   // to the right edge of the bar

}  // namespace

StatusLine::StatusLine(QMenuBar* bar)
    : QWidget(bar->parentWidget()),
      bar_(bar),
      sentence_(new StatusSentence(this)),
      link_(new StatusLink(this)),
      list_(new OutcomeList(bar->parentWidget())),
      words_(new SpokenWords(this)) {
    new FocusRing(this);
    link_->setWord(toQt(kzq::words("Show")));
    link_->hide();
    bar->installEventFilter(this);
    for (auto* const part : {static_cast<QWidget*>(sentence_), static_cast<QWidget*>(link_)}) {
        part->installEventFilter(this);
    }
    connect(sentence_, &StatusSentence::clicked, this,
            [this] { openList(sentence_->hasFocus() ? Qt::TabFocusReason : Qt::MouseFocusReason); });
    connect(link_, &StatusLink::clicked, this, [this] {
        if (announcements_) {
            announcements_->use(announcements_->line().number);
        }
    });
    list_->setOpener(sentence_);
    opens(*sentence_, list_);
    connect(&Scale::ofProgram(), &Scale::changed, this, [this] {
        list_->close();
        place();
    });
    connect(list_, &OutcomeList::used, this, [this](std::uint64_t number) {
        if (announcements_) {
            announcements_->use(number);
        }
    });
    connect(list_, &OutcomeList::closed, this, [this] {
        if (announcements_) {
            announcements_->setListOpen(false);
        }
    });
    place();
}

void StatusLine::setAnnouncements(std::shared_ptr<Announcements> announcements) {
    announcements_ = std::move(announcements);
    const QPointer<StatusLine> self(this);
    announcements_->setListeners(
        [self] {
            if (self) {
                self->showLine();
            }
        },
        [self](const Announcement& announcement) {
            if (self) {
                self->speak(announcement);
            }
        });
    showLine();
}

void StatusLine::openList(Qt::FocusReason reason) {
    if (!announcements_) {
        return;
    }
    if (list_->isVisible()) {
        list_->close();
        return;
    }
    announcements_->setListOpen(true);
    list_->show(announcements_->list(), reason);
}

bool StatusLine::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (watched == bar_) {
        if (type == QEvent::ActionAdded || type == QEvent::Resize || type == QEvent::Polish) {
            place();
        }
    } else if (type == QEvent::Enter || type == QEvent::Leave || type == QEvent::FocusIn ||
               type == QEvent::FocusOut || type == QEvent::Hide) {
        QMetaObject::invokeMethod(this, &StatusLine::hold, Qt::QueuedConnection);
    }
    return QWidget::eventFilter(watched, event);
}

// Beside the menus, which stay free for the pointer.
void StatusLine::place() {
    int left = 0;
    for (const auto* const action : bar_->actions()) {
        const auto end = bar_->actionGeometry(const_cast<QAction*>(action)).right() + 1;
        left = std::max(left, qCeil(end / scaleOf(*bar_)) - menuPadding);
    }
    const int x = left + gap - beforeMark;
    const auto bar = placeOf(*bar_);
    kzq::place(*this, bar.adjusted(x, 0, 0, 0));
    list_->placeUnder(*bar_);
    showLine();
}

void StatusLine::showLine() {
    const auto line = announcements_ ? announcements_->line() : Announcements::Line();
    const bool linked = !line.actionLabel.empty();
    const bool hadFocus = link_->hasFocus();
    if (linked) {
        link_->setWord(QString::fromStdString(line.actionLabel));
    }
    const int right = placeOf(*this).width() - afterPlate;
    sentence_->show(line, beforeMark - 8, right, linked ? placeOf(*link_).width() : 0);
    const auto link = placeOf(*link_);
    kzq::place(*link_,
               {QPoint(right - status::chevronRoom - link.width(), placeOf(*sentence_).y()), link.size()});
    if (!linked && hadFocus) {
        sentence_->setFocus(Qt::TabFocusReason);
    }
    link_->setVisible(linked);
    link_->raise();
    if (announcements_ && list_->isVisible()) {
        list_->refresh(announcements_->list());
    }
}

void StatusLine::speak(const Announcement& announcement) {
    const auto sentence = announcement.sentence();
    const auto& action = announcement.actionLabel;
    words_->say(
        toQt(inTurn(announcement.failure ? kzq::words("Failed: %1.", sentence) : kzq::words("%1.", sentence),
                    action.empty() ? "" : kzq::words("%1, button.", action))));
}

void StatusLine::hold() {
    if (announcements_) {
        const auto on = [](const QWidget& part) {
            return part.isVisible() && (part.underMouse() || part.hasFocus());
        };
        announcements_->setHeld(on(*sentence_) || on(*link_));
    }
}

}  // namespace kzq
