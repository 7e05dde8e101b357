#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app/notice.h"
#include "loops/loops.h"
#include "loops/slot_number.h"
#include "operations/told.h"
#include "platform/executor.h"
#include "platform/fixed.h"
#include "ui/status/announcements.h"

namespace kzq {

class LoopModel;
class MainWindow;
struct AppEnvironment;

/// What the user can do about it, as a link. `act` returns false if it cannot be done now.
struct Remedy {
    std::string label = {};
    std::function<bool()> act = {};
};

/// The loops that were asked for, and those that are missing.
struct Concern {
    std::vector<SlotNumber> asked = {};
    std::vector<SlotNumber> missing = {};
};

/// Says what comes of things, in the status line and its list. The flows' alerts are none of its business.
/// Main thread.
class Teller : Fixed {
  public:
    /// All outlive it.
    Teller(const AppEnvironment& environment, MainWindow& window, const LoopModel& model);
    ~Teller();

    /// What settles the failures of the same `job`: see Announcements. While the window is covered, no remedy
    /// acts.
    void tell(const Told& told, const std::string& job = {}, Remedy remedy = {}, const Concern& concern = {});

    /// To assistive technology only.
    void say(const std::string& sentence) { announcements_->say(sentence); }

    /// The failures of `job` are over, without a success.
    void settle(const std::string& job) { announcements_->settle(job); }

    /// What the program does by itself, and for a screen reader; empty for nothing.
    void background(const std::string& sentence, const std::string& said) {
        announcements_->setBackground(sentence, said);
    }
    /// What would become of files that are held over the window: see Announcements.
    void preview(const std::string& sentence, const std::string& said = {}, bool warns = false) {
        announcements_->setPreview(sentence, said, warns);
    }
    /// Everything that was told and is still in the list, and all names of files that ever were in it.
    const Announcements& announcements() const { return *announcements_; }

    /// What "Back Up…" does, where the line says that nothing was backed up yet.
    void suggestBackup(std::function<void()> open) { openBackUp_ = std::move(open); }
    /// What the pedal is, while nothing happens.
    void rest();
    /// Without a pedal: the program that has it, as a sentence; may be empty.
    void heldBy(const std::string& holder);
    /// Without a pedal whose table is known: the number of files that wait for one.
    void waiting(std::size_t files);
    /// The number of something that is going to be under way, and what ends it before its time, if the window
    /// is not covered.
    using Work = std::uint64_t;
    Work newWork(Remedy stop = {});
    /// What is under way in it, until `idle`; no effect after that. Of several, the last that began is shown.
    /// `said`: if a screen reader is to have it as well, each time that this changes.
    void working(Work work, const std::string& sentence, const std::string& said = {});
    /// `rest`: what is under way now and goes on with it, so that both took their time together.
    void idle(Work work, Work rest = 0);
    /// Has a task done here, unless this has gone. Any thread.
    std::function<void(Executor::Task)> poster();
    /// The same for a transfer, with the text "Reading loop %1…". On the link's thread, whenever something
    /// has moved; `post` has a task done here.
    std::function<void(SlotNumber)> follower(Work work, const std::function<void(Executor::Task)>& post,
                                             const char* sentence);
    /// The same in any words: the sentence, and what a screen reader gets of it.
    using Saying = std::function<void(const std::string& sentence, const std::string& said)>;
    Saying followerInWords(Work work, std::function<void(Executor::Task)> post);
    /// The pedal does not answer what was followed last: again and again while that lasts. `endable`: the
    /// user can end it without pulling the cable.
    void silent(bool endable = true);

    /// An import of these has not saved those that are missing.
    void imported(const Loops& asked, const std::vector<SlotNumber>& missing);
    /// All of these but those that are missing are no longer on the pedal.
    void forgetImports(const Concern& gone);
    /// The pedal has left, and another may come.
    void forgetImports();
    /// Before the question whether to erase them; `kept`: copies of them are kept.
    void beforeErase(const std::vector<SlotNumber>& asked, bool kept);

  private:
    struct UnderWay {
        std::string sentence = {};
        std::string said = {};  ///< to a screen reader
        Remedy stop = {};
        Executor::TimePoint since = {};
    };
    /// The last that began and has a sentence; null for none.
    const UnderWay* newest() const;
    void showWork(Work changed);
    std::string withoutPedal() const;
    bool suggestsBackup() const;

    const AppEnvironment& environment_;
    MainWindow& window_;
    const LoopModel& model_;
    Notice notice_;
    std::shared_ptr<Announcements> announcements_;
    std::map<Work, UnderWay> works_;  ///< some of it without a sentence
    Work lastWork_ = 0;
    Work followed_ = 0;  ///< which the pedal may leave unanswered
    std::function<void()> openBackUp_;
    std::string holder_;
    std::size_t filesWaiting_ = 0;
    unsigned lastToldOf_ = 0;  ///< the pedal of the last outcome: see LoopModel
    Loops saved_;              ///< as they were then
    std::set<SlotNumber> notSaved_;
    /// The pedal does not answer, and the line says so.
    const std::shared_ptr<std::atomic<bool>> silent_ = std::make_shared<std::atomic<bool>>(false);
    std::shared_ptr<int> life_ = std::make_shared<int>();
};

}  // namespace kzq
