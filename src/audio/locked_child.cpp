#include "audio/locked_child.h"

#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <optional>

#include "audio/child_launch.h"
#include "platform/log.h"

namespace kzq {
namespace {

using Clock = std::chrono::steady_clock;

/// How often cancellation is checked.
constexpr std::chrono::milliseconds tick{20};
constexpr std::size_t mostComplaint = 4096;
constexpr std::size_t pieceSize = 1 << 18;
/// With which the loader ends.
constexpr int withoutLibraries = 127;

/// A started child, from its first byte to its end.
class Conversation {
  public:
    Conversation(const ChildTask& task, LaunchedChild child) : task_(task), child_(std::move(child)) {}

    ChildEnd hold() {
        std::optional<ChildEnd::How> early;
        while (!early && (child_.output || child_.complaint)) {
            awaitSomething();
            readComplaint();
            early = readOutput() && followSink() ? reasonToStop() : ChildEnd::How::stopped;
        }
        ChildEnd end = early ? endEarly(*early) : awaitEnd();
        if (!early && !followSink()) {
            end.how = ChildEnd::How::stopped;
        }
        end.complaint = std::move(complaint_);
        return end;
    }

  private:
    void awaitSomething() const {
        std::array<pollfd, 2> watched{
            {{child_.output.get(), POLLIN, 0}, {child_.complaint.get(), POLLIN, 0}}};
        ::poll(watched.data(), watched.size(), static_cast<int>(tick.count()));
    }

    /// Reads one piece; closes the descriptor at the end of the stream.
    std::span<const std::uint8_t> read(Descriptor& from) {
        if (!from) {
            return {};
        }
        const ssize_t got = ::read(from.get(), piece_.data(), piece_.size());
        if (got > 0) {
            return std::span(piece_).first(static_cast<std::size_t>(got));
        }
        if (got == 0 || (errno != EAGAIN && errno != EINTR)) {
            from.close();
        }
        return {};
    }

    void readComplaint() {
        const auto bytes = read(child_.complaint);
        complaint_.append(bytes.begin(), bytes.end());
        if (complaint_.size() > mostComplaint) {
            complaint_.erase(0, complaint_.size() - mostComplaint);
        }
    }

    bool readOutput() {
        const auto bytes = read(child_.output);
        if (bytes.empty()) {
            return true;
        }
        return heard(task_.output(bytes));
    }

    bool followSink() {
        struct stat facts {};
        if (task_.sink < 0 || ::fstat(task_.sink, &facts) != 0 || facts.st_size <= sinkSize_) {
            return true;
        }
        sinkSize_ = facts.st_size;
        return heard(task_.grown(static_cast<std::uint64_t>(sinkSize_)));
    }

    /// The consumer has had its turn, and that may take long, as on a slow disk: it is not the child's
    /// silence.
    bool heard(bool more) {
        lastHeard_ = Clock::now();
        return more;
    }

    std::optional<ChildEnd::How> reasonToStop() const {
        if (task_.cancelled != nullptr && *task_.cancelled) {
            return ChildEnd::How::cancelled;
        }
        const auto now = Clock::now();
        if (now - lastHeard_ > task_.patience.silence || now - started_ > task_.patience.whole) {
            return ChildEnd::How::outOfPatience;
        }
        return std::nullopt;
    }

    ChildEnd endEarly(ChildEnd::How how) const {
        ::kill(child_.pid, SIGKILL);
        while (::waitpid(child_.pid, nullptr, 0) < 0 && errno == EINTR) {
        }
        return {how, 0, {}};
    }

    /// Both streams have ended, so the child is about to.
    ChildEnd awaitEnd() const {
        int status = 0;
        pid_t ended = 0;
        while ((ended = ::waitpid(child_.pid, &status, WNOHANG)) == 0) {
            if (const auto early = reasonToStop()) {
                return endEarly(*early);
            }
            ::poll(nullptr, 0, 1);
        }
        if (ended < 0) {
            return {ChildEnd::How::notStarted, errno, {}};  // somebody else has reaped it: counts as failed
        }
        if (WIFSIGNALED(status)) {
            return {ChildEnd::How::killed, WTERMSIG(status), {}};
        }
        return {ChildEnd::How::exited, WEXITSTATUS(status), {}};
    }

    const ChildTask& task_;
    LaunchedChild child_;
    std::string complaint_;
    std::vector<std::uint8_t> piece_ = std::vector<std::uint8_t>(pieceSize);
    off_t sinkSize_ = 0;
    Clock::time_point started_ = Clock::now();
    Clock::time_point lastHeard_ = started_;
};

/// Says where to look if the child could not start.
void logCage(const ChildTask& task, bool suspected) {
    if (suspected) {
        log(LogCategory::audio,
            task.program +
                " did not start. It runs in a cage that lets it read its libraries in the "
                "usual folders and those of /etc/ld.so.conf only: are they there?");
    }
}

}  // namespace

ChildEnd runLockedChild(const ChildTask& task) {
    LaunchedChild child = launchLockedChild(task);
    if (child.pid < 0) {
        logCage(task, child.error == EACCES);
        return {ChildEnd::How::notStarted, child.error, {}};
    }
    auto end = Conversation(task, std::move(child)).hold();
    logCage(task, end.how == ChildEnd::How::exited && end.value == withoutLibraries);
    return end;
}

}  // namespace kzq
