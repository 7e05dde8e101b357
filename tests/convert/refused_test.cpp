#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "converting.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;
using enum Trouble::Kind;

class Refused : public Converting {
  protected:
    Refused() { shop_.write("good.wav", wave(packed(noise(40'000, 16)), 2).value()); }

    fs::path writeText(const std::string& name, const std::string& text) const {
        return shop_.write(name, Bytes(text.begin(), text.end()));
    }
};

TEST_F(Refused, WhatIsNoFile) {
    expectRefused(notAFile, shop_.at("missing.wav"));
    fs::create_directory(shop_.at("folder.wav"));
    expectRefused(notAFile, shop_.at("folder.wav"));
    ASSERT_EQ(0, ::mkfifo(shop_.at("pipe.wav").c_str(), 0600));
    expectRefused(notAFile, shop_.at("pipe.wav"));
    fs::create_symlink("/dev/zero", shop_.at("zero.wav"));
    expectRefused(notAFile, shop_.at("zero.wav"));
    fs::create_symlink("good.wav", shop_.at("link.wav"));
    EXPECT_TRUE(convert(shop_.at("link.wav")));
}

TEST_F(Refused, WhatIsNoAudio) {
    expectRefused(notAudio, writeText("text.wav", "Dear diary, no sound today.\n"));
    expectRefused(noSound, writeText("empty.wav", ""));
    expectRefused(noSound, shop_.write("header.wav", wave({}, 2).value()));
    const std::string good = shop_.at("good.wav").string();
    // Playlists that refer to other files, under a harmless name.
    expectRefused(notAudio, writeText("list.wav",
                                      "#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:9,\nfile://" + good + "\n"));
    expectRefused(notAudio, writeText("concat.wav", "ffconcat version 1.0\nfile '" + good + "'\n"));
    expectRefused(notAudio, shop_.encode("film.mp4", "-f lavfi -i color=s=64x64:d=0.2 -c:v mpeg4"));
    expectRefused(unsupported, shop_.encode("opus.mp4", "-i good.wav -c:a libopus"));
    // Its header says 16-bit samples, as on a CD.
    shop_.encode("surround.dts", "-i good.wav -c:a dca -strict -2");
    expectRefused(unsupported,
                  shop_.encode("dts.wav", "-f s16le -ar 44100 -ac 2 -i surround.dts -c:a pcm_s16le"));
    // Named by its first bytes, not by what the decoder would make of it.
    expectRefused(unsupported, shop_.encode("pcm.caf", "-i good.wav -c:a pcm_s16le"));
    EXPECT_EQ("Windows Media", convert(writeText("a.wma", "\x30\x26\xB2\x75\x8E\x66\xCF\x11")).error().words);
}

TEST_F(Refused, RatesThatNoRecordingHas) {
    const Samples second = noise(100, 16);
    for (const std::uint32_t rate : {1U, 3'999U, 768'001U}) {
        expectRefused(sampleRate, shop_.write("rate.wav", waveOf(second, rate, 2)));
    }
}

TEST_F(Refused, CoverPicturesCostNothing) {
    // 12,000 by 12,000 pixels: 144 MB once decoded.
    shop_.encode("cover.png", "-f lavfi -i color=red:s=12000x12000,format=gray -frames:v 1 -pred none");
    const auto source = shop_.encode("cover.flac",
                                     "-i good.wav -i cover.png -map 0 -map 1 -c:v copy "
                                     "-disposition:v attached_pic");
    // In a process of its own, whose children are the decoder alone.
    const pid_t child = ::fork();
    if (child == 0) {
        const auto result = convert(source);
        struct rusage own {};
        struct rusage usage {};
        ::getrusage(RUSAGE_SELF, &own);  // a child's count starts with what it was forked from
        ::getrusage(RUSAGE_CHILDREN, &usage);
        ::_exit(!result ? 1 : usage.ru_maxrss > own.ru_maxrss + 90'000 ? 2 : 0);
    }
    int status = -1;
    ASSERT_EQ(child, ::waitpid(child, &status, 0));
    EXPECT_EQ(0, status);
    EXPECT_EQ(1U, shop_.resultCount());
}

TEST_F(Refused, NamesAreOnlyNames) {
    const std::vector<std::string> names{"it's \"quoted\".wav", "two\nlines.wav", "-i.wav",
                                         "concat:a|b.wav",      "http:good.wav",  "%d.wav",
                                         "\xFF\xFE.wav"};
    for (const auto& name : names) {
        fs::copy_file(shop_.at("good.wav"), shop_.at(name));
        EXPECT_EQ(80'000U, converted(shop_.at(name)).size()) << name;
    }
    fs::current_path(shop_.folder());
    EXPECT_EQ(80'000U, converted("-i.wav").size()) << "relative, and like an option";
    fs::current_path("/");
}

TEST_F(Refused, WithoutPermission) {
    if (::geteuid() != 0) {
        fs::permissions(shop_.at("good.wav"), fs::perms::none);
        expectRefused(unreadable, shop_.at("good.wav"));
        return;
    }
    ASSERT_EQ(0, ::seteuid(65'534));
    const auto result = Conversion({.output = "/tmp"}).convert("/etc/shadow");
    ASSERT_EQ(0, ::seteuid(0));
    expectFailed(unreadable, result, "/etc/shadow");
}

}  // namespace
}  // namespace kzq
