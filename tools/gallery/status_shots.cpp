#include "status_shots.h"

#include <chrono>

#include "app/main_window.h"
#include "app/menu_bar.h"
#include "bystanders.h"
#include "stage.h"
#include "ui/focus_ring.h"
#include "ui/status/outcome_row.h"
#include "ui/status/status_line.h"

namespace kzq::gallery {

namespace {

using namespace std::chrono_literals;

const Announcement saved{.what = "3 loops saved in Takes",
                         .detail = "Loop 1.wav, Loop 2.wav and Verse, slow.wav; 33 MB.",
                         .actionLabel = "Show"};
const Announcement notSaved{.what = "2 of 10 loops saved",
                            .why = "no space left on the disk",
                            .detail = "Loops 3, 5, 6, 7, 10, 11, 14 and 15 are still only on the pedal.",
                            .failure = true,
                            .actionLabel = "Try again"};
const Announcement tooLong{.what = "7 of 20 loops saved",
                           .why = "\"Kalimba in 7/8, second take\" could not be written to the folder",
                           .failure = true,
                           .actionLabel = "Try again"};
const Announcement unreadable{.what = "\"Bridge.mp3\" cannot be read",
                              .detail = "It ends in the middle of a frame: 0:41 of 1:12.",
                              .failure = true};

class Scene {
  public:
    Scene() {
        fillMenuBar(*window_.menuBar(), {});
        announcements_->setRest("7306 \u00b7 13 loops \u00b7 firmware 1.05");
        line().setAnnouncements(announcements_);
        window_.resize(768, 536);
        QCoreApplication::sendPostedEvents();
    }

    StatusLine& line() { return window_.statusLine(); }
    Announcements& announcements() { return *announcements_; }

    Scene& tell(const Announcement& announcement) {
        now_ += 5min;
        announcements_->tell(announcement);
        return *this;
    }

    Shot bar(const QString& caption) { return picture(caption, 48); }
    Shot picture(const QString& caption, int height) {
        QCoreApplication::sendPostedEvents();
        return {caption, window_.grab(QRect(0, 0, 768, height))};
    }

  private:
    StillExecutor executor_;
    std::chrono::system_clock::time_point now_{13h + 40min};
    std::shared_ptr<Announcements> announcements_ =
        std::make_shared<Announcements>(executor_, [this] { return now_; });
    MainWindow window_;
};

Shot listOf(int outcomes) {
    Scene scene;
    for (int i = 0; i < outcomes; ++i) {
        scene.tell(i % 3 == 0 ? unreadable : i % 3 == 1 ? saved : notSaved);
    }
    scene.line().openList(Qt::MouseFocusReason);
    if (outcomes > 1) {
        touch(*scene.line().list().rows()[1], Hand::hovering);
    }
    return scene.picture(QString("List of %1").arg(outcomes), 536);
}

}  // namespace

Shots statusLines() {
    Shots shots{Scene().bar("At rest"), Scene().tell(saved).bar("Done, with a link"),
                Scene().tell(notSaved).bar("Done in part"), Scene().tell(tooLong).bar("Too long")};
    Scene working;
    working.announcements().setWork("Reading loop 5\u2026");
    shots.push_back(working.bar("Working"));
    Scene onLink;
    onLink.tell(saved);
    touch(onLink.line().link(), Hand::hovering);
    shots.push_back(onLink.bar("Pointer on the link"));
    Scene onSentence;
    onSentence.tell(notSaved);
    touch(onSentence.line().sentence(), Hand::hovering);
    shots.push_back(onSentence.bar("Pointer on the sentence"));
    Scene byKeys;
    byKeys.tell(saved).line().findChild<FocusRing*>()->mark(&byKeys.line().link());
    shots.push_back(byKeys.bar("Keyboard focus on the link"));
    for (const int outcomes : {0, 3, 9}) {
        shots.push_back(listOf(outcomes));
    }
    return shots;
}

}  // namespace kzq::gallery
