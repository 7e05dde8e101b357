#include "operations/flash.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>

#include "device/kzq7306.h"
#include "operations/ended_twice.h"
#include "operations/outcome.h"
#include "operations/pedal.h"
#include "platform/log.h"

namespace kzq {

namespace {

using Kind = Trouble::Kind;
using How = FlashEnd::How;

constexpr Executor::Duration nap = std::chrono::milliseconds(50);
constexpr Executor::Duration returnLimit = std::chrono::seconds(10);
/// The link's own pauses around the image.
constexpr Executor::Duration pauses = std::chrono::seconds(9);
/// No pedal takes an image slower than this, in bytes a second.
constexpr std::size_t slowest = 65'536;
/// How long the pedal still gets when the user wants an end and has set no limit.
constexpr Executor::Duration stopLimit = std::chrono::seconds(60);
/// What a transfer gets to end after a reset.
constexpr Executor::Duration resetGrace = std::chrono::seconds(2);

/// What the link reports; shared with it, as an update may outlast its caller.
struct Report {
    enum class Answer : std::uint8_t { none, no, yes };

    static Answer answer(bool yes) { return yes ? Answer::yes : Answer::no; }

    std::atomic<Answer> accepted = Answer::none;
    std::atomic<Answer> completed = Answer::none;
    std::optional<Trouble> trouble;  ///< before `completed`
    std::atomic<bool> silent = false;
    std::atomic<bool> woken = false;  ///< a reset came while it was silent
};

using Answer = Report::Answer;

class Flash {
  public:
    Flash(Pedal& pedal, const FlashEvents& events) : pedal_(pedal), link_(*pedal.link()), events_(events) {}

    FlashEnd run(const Bytes& image);
    FlashEnd confirm();

  private:
    using Ready = std::function<bool()>;

    bool begin();
    void start(const Bytes& image);
    std::optional<Trouble> enterLoader();
    bool restarted();
    Trouble missingLoader();
    FlashEnd send(std::size_t bytes);
    bool leavesWithTrailer(unsigned departures);
    Trouble failure(unsigned departures);
    void followImage(std::size_t bytes);
    std::string askVersion();

    void enter(FlashPhase phase);
    FlashEnd notSent(Trouble why) const {
        return {How::notSent, phase_, {}, std::move(why), percent_.value_or(0), blank_};
    }
    char stage() const { return pedal_.cable().stage; }
    bool completed() const { return report_->completed != Answer::none; }
    bool stopped() const { return pedal_.stoppedFlag(); }
    bool leavesBehind() const { return pedal_.limits().leaveBehind; }
    bool await(Executor::Duration limit, const Ready& ready);
    bool awaitPedal(Executor::Duration extra, const Ready& ready);

    Pedal& pedal_;
    KZQ7306& link_;
    const FlashEvents& events_;
    FlashPhase phase_ = FlashPhase::asking;
    std::optional<unsigned> percent_;  ///< of the image
    bool blank_ = false;               ///< the pedal was in its loader from the start
    const std::shared_ptr<Report> report_ = std::make_shared<Report>();
};

void Flash::enter(FlashPhase phase) {
    phase_ = phase;
    tell(events_.phase, phase);
}

/// Naps are counted, not the clock: a program that was stopped for a while has not waited for the pedal.
bool Flash::await(Executor::Duration limit, const Ready& ready) {
    Executor::Duration waited{};
    while (!ready()) {
        if (limit > Executor::Duration::zero() && waited >= limit) {
            return false;
        }
        tell(events_.waiting, waited);
        pedal_.executor().sleep(nap);
        waited += nap;
    }
    return true;
}

/// Waits as long as for a silent pedal, and `extra`; or for ever, if nothing is to be left behind.
bool Flash::awaitPedal(Executor::Duration extra, const Ready& ready) {
    auto limit = pedal_.limits().silence;
    if (!leavesBehind()) {
        return await({}, ready);
    }
    if (limit == Executor::Duration::zero()) {
        await({}, [&] { return ready() || stopped(); });
        limit = stopLimit;
    }
    return await(limit + extra, ready);
}

FlashEnd Flash::run(const Bytes& image) {
    blank_ = link_.factoryBlank();
    if (!begin()) {
        return notSent(pedal_.stopped().value());
    }
    enter(FlashPhase::asking);
    start(image);
    if (!awaitPedal({}, [this] { return report_->accepted != Answer::none; })) {
        return notSent(Trouble{Kind::silent});
    }
    if (report_->accepted == Answer::no) {
        return notSent(Trouble{link_.disconnected() ? Kind::unplugged : Kind::busy});
    }
    if (!blank_) {
        if (auto why = enterLoader()) {
            return notSent(std::move(*why));
        }
    }
    return send(image.size());
}

/// A reset ends the call of a silent pedal. One that was only asked whether it is busy would then go into its
/// loader, so a program that leaves it behind does not wake it.
bool Flash::begin() {
    return pedal_.expectRestart([report = report_, link = pedal_.link(), leaves = leavesBehind()] {
        report->silent = true;
        if (!leaves || report->accepted == Answer::yes) {
            report->woken = true;
            link->interrupt();
        }
    });
}

void Flash::start(const Bytes& image) {
    pedal_.executor().background(
        Priority::high, [link = pedal_.link(), weak = pedal_.weak_from_this(), report = report_, image] {
            const auto complete = [weak, report](bool flashed) {
                const auto pedal = weak.lock();
                if (!pedal) {
                    return;
                }
                if (report->completed != Answer::none) {
                    log(LogCategory::device, endedTwice);
                    return;
                }
                report->trouble = pedal->link()->lastTrouble();
                if (flashed) {
                    pedal->forgetReturn();  // the link is locked: what came until now was the loader
                }
                report->completed = Report::answer(flashed);
            };
            report->accepted = Report::answer(link->flashFirmware(image, complete));
        });
}

/// Waits for the pedal's return as its loader; why that does not come.
std::optional<Trouble> Flash::enterLoader() {
    enter(FlashPhase::restarting);
    awaitPedal({}, [this] { return restarted(); });
    if (stage() == stageFactoryBlank || (completed() && phase_ != FlashPhase::restarting)) {
        return std::nullopt;
    }
    if (completed()) {
        const bool gone = report_->trouble && report_->trouble->kind == Kind::noPedal;
        return Trouble{gone ? Kind::unplugged : Kind::loaderRefused};
    }
    if (phase_ == FlashPhase::cameBack && leavesBehind()) {
        return Trouble{Kind::loaderNotEntered};
    }
    return leavesBehind() ? missingLoader() : pedal_.stopped();
}

/// Whether nothing more is to be waited for.
bool Flash::restarted() {
    const auto cable = pedal_.cable();
    if (cable.departures != 0 && phase_ == FlashPhase::restarting) {
        enter(FlashPhase::left);
    }
    if (cable.stage == stageNormal && phase_ == FlashPhase::left) {
        enter(FlashPhase::cameBack);
    }
    return completed() || cable.stage == stageFactoryBlank ||
           (leavesBehind() ? phase_ == FlashPhase::cameBack : stopped());
}

Trouble Flash::missingLoader() {
    link_.interrupt();  // it may have come back and be silent
    if (auto trouble = link_.acquisitionTrouble()) {
        return std::move(*trouble);
    }
    return Trouble{phase_ == FlashPhase::left ? Kind::noReturn : Kind::silent};
}

FlashEnd Flash::send(std::size_t bytes) {
    const auto departures = pedal_.cable().departures;
    report_->silent = false;
    report_->woken = false;
    enter(FlashPhase::sending);
    const auto extra = pauses + std::chrono::seconds(bytes / slowest);
    const auto ready = [&] {
        const bool over = completed();
        followImage(bytes);
        return over;
    };
    // one that a reset has woken begins with its pauses only then
    if (!awaitPedal(extra, ready) && !(report_->woken && awaitPedal(extra, ready))) {
        report_->silent = true;
        link_.interrupt();
        await(resetGrace, ready);
    }
    if (report_->completed != Answer::yes) {
        if (!leavesWithTrailer(departures)) {
            return notSent(failure(departures));
        }
        report_->trouble = Trouble{Kind::noAnswer};
    }
    enter(FlashPhase::sent);
    return {How::sent, phase_, {}, report_->trouble, percent_.value_or(0)};
}

/// Whether only the transfer of the trailer has failed, and the pedal left with it: it may have taken it and
/// be on its way back with the new firmware.
bool Flash::leavesWithTrailer(unsigned departures) {
    return !report_->silent && percent_ == 100U && report_->trouble &&
           report_->trouble->kind == Kind::transferFailed &&
           await(Pedal::departureNotice, [&] { return pedal_.cable().departures != departures; });
}

void Flash::followImage(std::size_t bytes) {
    const auto sent = link_.imageSent();
    if (!sent) {
        return;
    }
    const auto percent =
        static_cast<unsigned>(std::min<std::uint64_t>(std::uint64_t{100} * *sent / bytes, 100));
    if (percent > percent_.value_or(0)) {
        report_->silent = false;  // what was sent has been taken
    }
    if (!percent_ || *percent_ < percent) {
        percent_ = percent;
        tell(events_.image, percent);
    }
}

/// Why the image is not complete. `departures`: before it was begun.
Trouble Flash::failure(unsigned departures) {
    const auto left = [&] { return pedal_.cable().departures != departures; };
    if (report_->silent) {
        return Trouble{Kind::silent};
    }
    if (await(Pedal::departureNotice, left)) {
        tell(events_.phase, FlashPhase::left);
        return Trouble{Kind::unplugged};
    }
    const bool refused = report_->trouble && report_->trouble->kind == Kind::refused;
    return Trouble{refused ? Kind::refused : Kind::notSent};
}

FlashEnd Flash::confirm() {
    phase_ = FlashPhase::sent;
    await(returnLimit, [this] { return stage() != stageNone || stopped(); });
    const auto now = stage();
    if (now == stageNone && stopped()) {
        return {How::unconfirmed, phase_, {}, pedal_.stopped()};
    }
    if (now == stageFactoryBlank) {
        return {How::inLoader, phase_};
    }
    if (now == stageNone && link_.factoryBlank()) {  // it has not left; it may still be storing the image
        return {How::unconfirmed, phase_, {}, Trouble{Kind::stillInLoader}};
    }
    if (now == stageNone && leavesBehind()) {
        link_.interrupt();  // it may have come back and be silent, which holds the main thread
    }
    if (now == stageNone) {
        return {How::unconfirmed, phase_, {}, Trouble{Kind::noReturn}};
    }
    auto version = askVersion();
    if (version.empty()) {
        return {How::unconfirmed, phase_, {}, Trouble{Kind::unknownVersion}};
    }
    return {How::confirmed, phase_, std::move(version)};
}

/// Nothing if the pedal does not report it.
std::string Flash::askVersion() {
    pedal_.executor().background(Priority::high,
                                 [link = pedal_.link()] { static_cast<void>(link->status(false)); });
    await(returnLimit, [this] { return link_.version() || stopped(); });
    auto version = link_.version().value_or("");
    return version.find('\0') == std::string::npos ? version : "";
}

}  // namespace

FlashEnd runFlash(Pedal& pedal, const Bytes& image, const FlashEvents& events) {
    return Flash(pedal, events).run(image);
}

FlashEnd confirmFlash(Pedal& pedal, const FlashEnd& sent, const FlashEvents& events) {
    return sent.how == How::sent ? Flash(pedal, events).confirm() : sent;
}

}  // namespace kzq
