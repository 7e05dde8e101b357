#include <fcntl.h>
#include <sys/resource.h>

#include <csignal>

#include "audio/file_bytes.h"
#include "converting.h"
#include "platform/descriptor.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;
using enum Trouble::Kind;

class Interrupted : public Converting {
  protected:
    Interrupted() : source_(shop_.write("long.wav", wave(packed(noise(frames, 16)), 2).value())) {}

    static constexpr std::size_t frames = 8'000'000;
    fs::path source_;
};

TEST_F(Interrupted, ByTheUser) {
    std::atomic<bool> cancelled = false;
    auto cancelling = options();
    cancelling.cancelled = &cancelled;
    std::uint64_t last = 0;
    cancelling.progress = [&](std::uint64_t done) {
        last = done;
        cancelled = true;
    };
    expectFailed(Trouble::Kind::cancelled, Conversion(cancelling).convert(source_), source_);
    EXPECT_LT(last, frames) << "it ended in the middle";
    expectFailed(Trouble::Kind::cancelled, Conversion(cancelling).convert("/none.wav"), "/none.wav");
}

TEST_F(Interrupted, ByAFileThatHasTooMuchToRead) {
    // One frame of MP3, and nothing behind it for a gigabyte.
    const auto path = shop_.write("vast.mp3", Bytes{0xFF, 0xFB, 0x90, 0});
    fs::resize_file(path, 1ULL << 30U);
    expectRefused(limits, path);
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::atomic<bool> cancelled = false;
    const FileBytes bytes(file.get(), 1ULL << 30U, &cancelled);
    EXPECT_EQ(0xFFFBU, bytes.big(0, 2));
    cancelled = true;
    EXPECT_EQ(std::nullopt, bytes.big(1 << 20, 2));
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

}  // namespace
}  // namespace kzq
