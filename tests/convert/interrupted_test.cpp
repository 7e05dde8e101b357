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
    const auto flac = shop_.encode("short.flac", "-t 3 -i long.wav");
    const auto usual = ::signal(SIGXFSZ, SIG_IGN);
    struct rlimit before {};
    ASSERT_EQ(0, ::getrlimit(RLIMIT_FSIZE, &before));
    const rlim_t whole = 3 * 44'100 * 6;  // in the middle of one, and in the last bytes of the other
    for (const auto& [source, limit] : {std::pair(source_, rlim_t{1'000'000}), {flac, whole - 100}}) {
        const struct rlimit small { limit, before.rlim_max };
        ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &small));
        const auto result = convert(source);
        ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &before));
        expectFailed(diskFull, result, source);
    }
    ::signal(SIGXFSZ, usual);
}

}  // namespace
}  // namespace kzq
