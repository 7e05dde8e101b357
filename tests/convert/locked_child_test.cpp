#include "audio/locked_child.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <future>
#include <iterator>
#include <thread>

#include "audio/conversion.h"
#include "audio/conversion_troubles.h"
#include "audio/wave.h"
#include "platform/descriptor.h"
#include "platform/log.h"
#include "platform/new_name.h"
#include "test_folder.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using enum Trouble::Kind;

/// A conversion whose decoder is not ffmpeg but a program that does not do what it should.
class LockedChild : public ::testing::Test {
  protected:
    LockedChild() : usualLog_(setLogSink([](LogCategory, std::string_view) {})) {
        std::ofstream(source_) << "sound";
        fs::create_directory(results_);
    }
    ~LockedChild() override { setLogSink(std::move(usualLog_)); }

    /// The stand-in, which is beside this program, under the name of what it does.
    std::string decoder(const std::string& work) const {
        std::error_code there;
        fs::create_symlink(fs::read_symlink("/proc/self/exe").parent_path() / "stand_in_decoder",
                           folder_.path() / work, there);
        return folder_.path() / work;
    }

    /// Why nothing is converted.
    Trouble::Kind trouble(const std::string& program, ChildPatience patience = {}) const {
        const auto result =
            Conversion({.output = results_, .ffmpeg = program, .patience = patience}).convert(source_);
        EXPECT_TRUE(fs::is_empty(results_));
        return result ? Trouble::Kind{} : result.error().kind;
    }

    /// What the stand-in wrote, or wrote into `file`.
    std::string said(const std::string& work, const std::vector<std::string>& arguments = {},
                     std::chrono::milliseconds disk = 0ms, const fs::path& file = {}) const {
        const Descriptor source(::open(source_.c_str(), O_RDONLY | O_CLOEXEC));
        const Descriptor sink = file.empty() ? Descriptor() : openNew(file, 0600);
        std::string heard;
        const auto end = runLockedChild({.program = decoder(work),
                                         .arguments = arguments,
                                         .source = source.get(),
                                         .output =
                                             [&](std::span<const std::uint8_t> bytes) {
                                                 heard.append(bytes.begin(), bytes.end());
                                                 std::this_thread::sleep_for(disk);
                                                 return true;
                                             },
                                         .sink = sink ? sink.get() : -1,
                                         .sinkLimit = 1 << 20,
                                         .grown = [](std::uint64_t /*size*/) { return true; },
                                         .patience = {.silence = 300ms, .whole = 1h}});
        EXPECT_TRUE(end.succeeded()) << end.value << end.complaint;
        std::ifstream written(file);
        return sink ? std::string(std::istreambuf_iterator<char>(written), {}) : heard;
    }

    const test::TestFolder folder_;
    const fs::path source_ = folder_.path() / "source.wav";
    const fs::path results_ = folder_.path() / "results";

  private:
    LogSink usualLog_;
};

TEST_F(LockedChild, IsMissingOrUselessOrHangs) {
    EXPECT_EQ(toolMissing, trouble(folder_.path() / "nowhere"));
    EXPECT_EQ(Trouble::Kind::decoder, trouble(decoder("useless")));
    // Silent; silent with both its streams closed; and one that never ends.
    for (const char* const work : {"silent", "closed"}) {
        EXPECT_EQ(limits, trouble(decoder(work), {.silence = 100ms, .whole = 1h})) << work;
    }
    EXPECT_EQ(limits, trouble(decoder("complaining"), {.silence = 1h, .whole = 100ms}));
    EXPECT_EQ(damaged, trouble(decoder("endless"), {.silence = 1h, .whole = 15s}))
        << "it stops behind what the pedal holds";
    for (const auto& [signal, kind] : {std::pair(SIGXCPU, limits), {SIGSEGV, damaged}}) {
        EXPECT_EQ(kind, childTrouble({ChildEnd::How::killed, signal, {}}, "", notAudio).kind);
    }
}

TEST_F(LockedChild, DoesNotGetItsFileWrittenAndIsAskedOnceMoreForAsLongAsThereIs) {
    const auto whole = wave(Bytes(600), 2).value();
    std::ofstream(source_).write(reinterpret_cast<const char*>(whole.data()),
                                 static_cast<std::streamsize>(whole.size()));
    EXPECT_EQ(limits, trouble(decoder("stuck"), {.silence = 1h, .whole = 300ms})) << "nothing was left";
    const auto result =
        Conversion({.output = results_, .salvage = true, .ffmpeg = decoder("full")}).convert(source_);
    ASSERT_TRUE(result);
    EXPECT_EQ(100U, result->frames) << "it said that it succeeded";
}

TEST_F(LockedChild, IsNotSilentWhileTheDiskIsSlow) {
    EXPECT_EQ("LC_ALL=C\n", said("show", {}, 400ms).substr(0, 9));
}

TEST_F(LockedChild, DiesWithTheProgram) {
    Conversion::Options dying{.output = results_, .ffmpeg = decoder("slow")};
    dying.progress = [](std::uint64_t) { std::raise(SIGKILL); };
    ::prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0);  // the decoder becomes ours when its parent has gone
    if (::fork() == 0) {
        ::_exit(Conversion(dying).convert(source_) ? 1 : 0);
    }
    for (const char* const who : {"program", "decoder"}) {
        int status = 0;
        ASSERT_GT(::waitpid(-1, &status, 0), 0) << who;
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << who;
    }
    ::prctl(PR_SET_CHILD_SUBREAPER, 0, 0, 0, 0);
    EXPECT_TRUE(fs::is_empty(results_));
}

TEST_F(LockedChild, StartsInItsTurn) {
    DecoderTurns turns(2);
    auto first = turns.take(nullptr);
    const auto second = turns.take(nullptr);
    const auto waits = [&](const auto& other) {
        while (turns.waiting() == 0 && other.wait_for(0s) != std::future_status::ready) {
            std::this_thread::yield();
        }
        return turns.waiting() == 1;
    };
    std::atomic<bool> enough = false;
    Conversion::Options options{.output = results_, .cancelled = &enough, .ffmpeg = "/none", .turns = &turns};
    auto third = std::async(std::launch::async, [&] { return Conversion(options).convert(source_); });
    EXPECT_TRUE(waits(third)) << "there are two already";
    enough = true;
    EXPECT_EQ(cancelled, third.get().error().kind);

    auto next = std::async(std::launch::async, [&] { return turns.take(nullptr); });
    EXPECT_TRUE(waits(next));
    first.reset();
    EXPECT_FALSE(turns.take(&enough)) << "the other one came first";
    EXPECT_TRUE(next.get());

    std::atomic<bool> mayEnd = false;
    options.ffmpeg = decoder("slow");
    options.cancelled = &mayEnd;
    options.progress = [&](std::uint64_t) {
        EXPECT_FALSE(turns.take(&enough)) << "the second decoder has the turn of the first";
        mayEnd = true;
    };
    EXPECT_EQ(cancelled, Conversion(options).convert(source_).error().kind);
    EXPECT_TRUE(turns.take(&enough)) << "which is given back";
}

TEST_F(LockedChild, HasNothingOfOurs) {
    ::setenv("FFREPORT", "file=report.log", 1);            // NOLINT(concurrency-mt-unsafe): one thread
    const int leaky = ::open("/etc/passwd", O_RDONLY);     // NOLINT: what a careless library leaves open
    const auto usualPipe = std::signal(SIGPIPE, SIG_IGN);  // as a program with a tool's output does
    EXPECT_EQ("LC_ALL=C\nOMP_NUM_THREADS=1\n0 1 2 3 805306368 120 0 0 dies of a closed pipe\n", said("show"));
    std::signal(SIGPIPE, usualPipe);
    ::close(leaky);
    ::unsetenv("FFREPORT");  // NOLINT(concurrency-mt-unsafe): one thread
}

TEST_F(LockedChild, ReachesNothingButItsSource) {
    const auto secret = folder_.path() / "secret";
    std::ofstream(secret) << "secret";
    std::string expected = "its source\n";
    if (::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) < 1) {
        expected += "read a file\nread /etc/passwd\nlist a folder\n";
    }
    EXPECT_EQ(expected, said("try", {secret}));
    EXPECT_EQ(expected, said("try", {secret}, 0ms, folder_.path() / "said"));
    EXPECT_TRUE(fs::exists(secret));
}

}  // namespace
}  // namespace kzq
