#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

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

/// Says what comes of things, in the status line and its list. The flows' alerts are none of its business.
/// Main thread.
class Teller : Fixed {
  public:
    /// All outlive it.
    Teller(const AppEnvironment& environment, MainWindow& window, const LoopModel& model);
    ~Teller();

    /// A success settles the failures of the same `job`. While the window is covered, no remedy acts.
    void tell(const Told& told, const std::string& job = {}, Remedy remedy = {});

    /// What the pedal is, while nothing happens.
    void rest();
    /// What is under way, until `idle`.
    void working(const std::string& sentence);
    void idle();
    /// Has a task done here, unless this has gone. Any thread.
    std::function<void(Executor::Task)> poster();
    /// The same for a transfer: "Reading loop 5…". On the link's thread; `post` has a task done here.
    std::function<void(SlotNumber)> follower(std::function<void(Executor::Task)> post,
                                             const std::string& verb);
    /// The pedal does not answer: again and again while that lasts.
    void silent();

    /// Loops that an import has not saved, and those that it has.
    void imported(const std::vector<SlotNumber>& asked, const std::vector<SlotNumber>& missing);
    /// The pedal has left, and another may come.
    void forgetImports() { notSaved_.clear(); }
    /// Before the question whether to erase them.
    void beforeErase(const std::vector<SlotNumber>& asked);

  private:
    const AppEnvironment& environment_;
    MainWindow& window_;
    const LoopModel& model_;
    std::shared_ptr<Announcements> announcements_;
    std::set<SlotNumber> notSaved_;
    bool silent_ = false;
    std::shared_ptr<int> life_ = std::make_shared<int>();
};

}  // namespace kzq
