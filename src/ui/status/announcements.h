#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/executor.h"

namespace kzq {

/// What came of something, for the status line and the list behind it.
struct Announcement {
    std::string what;         ///< "2 of 10 loops saved"
    std::string why = {};     ///< "no space left on the disk"; may be empty
    std::string detail = {};  ///< further complete sentences; may be empty
    bool failure = false;
    bool cancelled = false;  ///< neither a failure nor a success: it settles nothing
    /// What was attempted, such as "import": its success settles its failures. Empty: nothing settles it.
    std::string job = {};
    std::vector<std::string> names = {};  ///< of files and folders in it
    /// The loops that were asked for, and of a failure those that are missing. What has asked for all that an
    /// older failure of its job misses settles that one; a success without loops settles them all.
    std::set<unsigned> asked = {};
    std::set<unsigned> missing = {};
    std::string actionLabel = {};  ///< "Try again"; empty: there is none
    /// Returns false if it could not be done now.
    std::function<bool()> action = {};

    std::uint64_t number = 0;                      ///< given by Announcements
    std::chrono::system_clock::time_point time{};  ///< given by Announcements

    /// "2 of 10 loops saved: no space left on the disk"
    std::string sentence() const;
    /// The rest, where `what` stands alone: "No space left on the disk. " and the detail.
    std::string rest() const;
};

/// What the status line says, and the last outcomes. The rules:
///
/// - What a drop would come to comes before everything, then what is under way.
/// - A failure stays until its action was used, its job succeeded or was attempted again with the loops that
///   it misses, or the list was opened; of several, the newest is shown.
/// - What the program does by itself comes after the failures, and after a success once that is 10 s old.
/// - A success stays until the next outcome. One that follows within 10 s waits for that time.
/// - An outcome does not change while held, which is while pointer or focus is on it, or the list is open.
///
/// All that is told is logged, and spoken once. Main thread.
class Announcements {
  public:
    using WallClock = std::function<std::chrono::system_clock::time_point()>;
    enum class Kind : std::uint8_t { rest, work, success, failure };
    struct Line {
        Kind kind = Kind::rest;
        std::string sentence = {};
        std::string actionLabel = {};
        std::uint64_t number = 0;  ///< of the outcome; 0 for none
        std::string said = {};     ///< for a screen reader, if it gets something else than the sentence
        bool warns = false;        ///< it has the mark of a failure, but is none

        bool operator==(const Line&) const = default;
    };

    static constexpr std::size_t kept = 20;
    static constexpr std::chrono::seconds shortest{10};

    /// `executor` outlives it.
    Announcements(Executor& executor, WallClock clock);

    /// `changed`: the line or the list; `spoken`: for a screen reader.
    void setListeners(std::function<void()> changed, std::function<void(const Announcement&)> spoken);

    void tell(Announcement announcement);
    /// Only spoken: neither shown nor kept.
    void say(const std::string& sentence);
    /// Whether a failure says this, and nothing has settled it.
    bool stands(const std::string& sentence) const;
    /// What is said while nothing happens, and what can be done about it.
    void setRest(std::string sentence, std::string actionLabel = {}, std::function<void()> action = {});
    /// The failures of `job` are over, without an outcome.
    void settle(const std::string& job);
    /// What is under way, and what can be done about it; empty for nothing. `said`, if there is one, is what
    /// a screen reader gets, each time that it changes.
    void setWork(std::string sentence, std::string actionLabel = {}, std::function<void()> action = {},
                 const std::string& said = {});

    /// While files are held over the window: what would become of them, and the same for a screen reader;
    /// empty for nothing. It shows at once, whatever stands there. `warns`: not all is well.
    void setPreview(std::string sentence, const std::string& said = {}, bool warns = false);

    /// What the program does by itself meanwhile, and what a screen reader gets instead; empty for nothing.
    void setBackground(std::string sentence, std::string said = {});

    /// Whether pointer or focus is on the line.
    void setHeld(bool held);
    void setListOpen(bool open);
    /// Does what the outcome offers; with 0, what the line offers about what is under way, or at rest.
    void use(std::uint64_t number);

    const Line& line() const { return line_; }
    /// Newest first.
    const std::deque<Announcement>& list() const { return list_; }
    /// All names that were ever told.
    const std::set<std::string>& names() const { return names_; }

  private:
    void settleOlder(const Announcement& newer);
    bool isOpen(const Announcement& announcement) const;
    Line wanted() const;
    bool staysFor(const Line& next) const;
    void update(bool atOnce = false);
    void lookAgain(Executor::Duration left);

    Executor& executor_;
    WallClock clock_;
    std::function<void()> changed_;
    std::function<void(const Announcement&)> spoken_;
    std::deque<Announcement> list_;
    std::set<std::string> names_;
    std::deque<std::uint64_t> open_;  ///< failures that nothing has settled
    std::uint64_t last_ = 0;
    Line rest_;
    std::function<void()> restAction_;
    Line work_{.kind = Kind::work};
    std::function<void()> workAction_;
    std::string workSaid_;
    Line preview_{.kind = Kind::work};
    std::string background_;
    std::string backgroundSaid_;
    Line line_;
    Executor::TimePoint shownSince_{};
    Executor::TimePoint toldSince_{};  ///< the newest of the list
    bool held_ = false;
    bool listOpen_ = false;
    std::shared_ptr<int> life_ = std::make_shared<int>();
};

}  // namespace kzq
