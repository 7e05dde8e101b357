#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "audio/wave_output.h"
#include "converting.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;
using enum Trouble::Kind;

class Interrupted : public Converting {
  protected:
    Interrupted() : source_(shop_.write("long.wav", wave(packed(noise(2'000'000, 16)), 2).value())) {}

    /// A program that replaces the decoder.
    std::string fake(const std::string& script) const {
        const std::string text = "#!/bin/sh\n" + script + "\n";
        const auto path = shop_.write("fake", Bytes(text.begin(), text.end()));
        fs::permissions(path, fs::perms::owner_all);
        return path;
    }

    Result<Conversion::File> convertWith(const std::string& program, ChildPatience patience = {}) const {
        auto with = options();
        with.ffmpeg = program;
        with.patience = patience;
        return Conversion(with).convert(source_);
    }

    fs::path source_;
};

TEST_F(Interrupted, ByTheUser) {
    std::atomic<bool> cancelled = false;
    auto cancelling = options();
    cancelling.cancelled = &cancelled;
    std::uint64_t last = 0;
    cancelling.progress = [&](std::uint64_t frames) {
        last = frames;
        cancelled = true;
    };
    expectFailed(Trouble::Kind::cancelled, Conversion(cancelling).convert(source_), source_);
    EXPECT_GT(last, 0U);
    EXPECT_LT(last, 2'000'000U) << "it ended in the middle";
}

TEST_F(Interrupted, ByAMissingOrUselessDecoder) {
    const auto missing = convertWith(shop_.at("nowhere"));
    expectFailed(toolMissing, missing, source_);
    expectFailed(decoder, convertWith(fake("echo 'error while loading shared libraries' >&2; exit 127")),
                 source_);
    expectFailed(limits, convertWith(fake("kill -XCPU $$")), source_);
    expectFailed(damaged, convertWith(fake("yes")), source_);
}

TEST_F(Interrupted, ByADecoderThatHangs) {
    using namespace std::chrono_literals;
    // Silent; silent with both its streams closed; and one that never ends.
    for (const char* const script : {"exec sleep 1000", "exec >&- 2>&-; exec sleep 1000"}) {
        expectFailed(limits, convertWith(fake(script), {.silence = 100ms, .whole = 1h}), source_);
    }
    const std::string endless = "while :; do echo complaint >&2; done";
    expectFailed(limits, convertWith(fake(endless), {.silence = 1h, .whole = 100ms}), source_);
}

TEST_F(Interrupted, NotByADiskThatIsSlowerThanThePatience) {
    using namespace std::chrono_literals;
    const Descriptor source(::open(source_.c_str(), O_RDONLY | O_CLOEXEC));
    std::string heard;
    const auto end = runLockedChild({.program = fake("echo sound"),
                                     .arguments = {},
                                     .source = source.get(),
                                     .output =
                                         [&](std::span<const std::uint8_t> bytes) {
                                             heard.append(bytes.begin(), bytes.end());
                                             std::this_thread::sleep_for(1100ms);  // the disk
                                             return true;
                                         },
                                     .patience = {.silence = 1s, .whole = 1h}});
    EXPECT_TRUE(end.succeeded());
    EXPECT_EQ("sound\n", heard);
}

TEST_F(Interrupted, ByTheDeathOfTheProgram) {
    auto dying = options();
    dying.ffmpeg = fake(
        "case \"$*\" in *framecrc*) printf '#codec_id 0: pcm_s16le\\n#sample_rate 0: 44100\\n';;\n"
        "*) printf 'sixteen letters.'; exec sleep 20;; esac");
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
    EXPECT_EQ(0U, shop_.resultCount());
}

TEST_F(Interrupted, ByAFullDisk) {
    const auto usual = ::signal(SIGXFSZ, SIG_IGN);
    struct rlimit before {};
    ASSERT_EQ(0, ::getrlimit(RLIMIT_FSIZE, &before));
    const struct rlimit small { 1'000'000, before.rlim_max };
    ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &small));
    const auto result = convert(source_);
    ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &before));
    ::signal(SIGXFSZ, usual);
    expectFailed(diskFull, result, source_);
}

TEST_F(Interrupted, AHalfWrittenFileNeverHasTheName) {
    const auto path = shop_.results() / "out.wav";
    const Bytes samples(60, 7);
    for (const Draft::Road road :
         {Draft::Road::unnamed, Draft::Road::renameNoReplace, Draft::Road::link, Draft::Road::reserve}) {
        {
            WaveOutput abandoned(path, road);
            ASSERT_TRUE(abandoned.open());
            ASSERT_TRUE(abandoned.write(samples));
            EXPECT_FALSE(fs::exists(path));
        }
        EXPECT_EQ(0U, shop_.resultCount());
        WaveOutput first(path, road);
        ASSERT_TRUE(first.open());
        ASSERT_TRUE(first.write(samples));
        {
            WaveOutput second(path, road);
            ASSERT_TRUE(second.open());
            ASSERT_TRUE(first.finish(true));
            EXPECT_EQ(EEXIST, second.finish(false).error().error) << "it came into being meanwhile";
        }
        EXPECT_EQ(10U, samplesOf(path).size() / 2);
        fs::remove(path);
    }
}

TEST_F(Interrupted, TheDecoderIsLockedDown) {
    // It sees the source and nothing else of ours, a clean environment, limits, and no writable file.
    ::setenv("FFREPORT", "file=report.log", 1);            // NOLINT(concurrency-mt-unsafe): one thread
    const int leaky = ::open("/etc/passwd", O_RDONLY);     // NOLINT: what a careless library leaves open
    const auto usualPipe = std::signal(SIGPIPE, SIG_IGN);  // as a program with a tool's output does
    const auto written = shop_.at("written");
    const auto result =
        convertWith(fake("{ env; echo; ls /proc/self/fd; ulimit -v; ulimit -t; ulimit -f; ulimit -c; "
                         "grep -E 'SigIgn|NoNewPrivs' /proc/self/status; } >&2\n"
                         "[ $(cut -d' ' -f6 /proc/$$/stat) = $$ ] && echo own session >&2\necho x > " +
                         written.string()));
    std::signal(SIGPIPE, usualPipe);
    ::close(leaky);
    ::unsetenv("FFREPORT");  // NOLINT(concurrency-mt-unsafe): one thread
    EXPECT_FALSE(result);
    EXPECT_THAT(logged_, ::testing::HasSubstr("LC_ALL=C"));
    EXPECT_THAT(logged_, ::testing::Not(::testing::HasSubstr("FFREPORT")));
    EXPECT_THAT(logged_, ::testing::HasSubstr(
                             " 0 1 2 3 4 786432 120 0 0 SigIgn: 0000000000000000 NoNewPrivs: 1 own session"))
        << "4 is the listing's own";
    EXPECT_FALSE(fs::exists(written) && fs::file_size(written) > 0);
}

}  // namespace
}  // namespace kzq
