#include "cases.h"

#include <bit>
#include <cmath>

#include "foreign_files.h"
#include "loops/facts.h"
#include "platform/little_endian.h"

namespace kzq {
namespace {

constexpr std::size_t frames = 441'000;

/// Fills the table, case by case.
class CaseMaker {
  public:
    explicit CaseMaker(const Workshop& shop) : shop_(shop) {}

    std::vector<MeasuredCase> all() {
        lossless();
        oddWaves();
        coded();
        channels();
        refused();
        return std::move(cases_);
    }

  private:
    Samples master(unsigned bits) const {
        Samples samples = noise(frames, bits);
        shop_.write("master.wav", wave(packed(samples), 2).value());
        return samples;
    }

    void add(const std::string& kind, const std::filesystem::path& source, const Samples& expected) {
        cases_.push_back({kind, source, expected.size() / 2, expected});
    }

    void addEncoded(const std::string& kind, const std::string& name, const std::string& arguments,
                    const Samples& expected) {
        add(kind, shop_.encode(name, "-i master.wav " + arguments), expected);
    }

    void lossless() {
        addEncoded("WAV, 8 bits", "u8.wav", "-c:a pcm_u8", master(8));
        const Samples sixteen = master(16);
        addEncoded("WAV, 16 bits", "s16.wav", "-c:a pcm_s16le", sixteen);
        addEncoded("AIFF, 16 bits", "s16.aiff", "-c:a pcm_s16be", sixteen);
        addEncoded("AIFF-C sowt, 16 bits", "sowt.aifc", "-c:a pcm_s16le -f aiff", sixteen);
        addEncoded("FLAC, 16 bits", "s16.flac", "-c:a flac -sample_fmt s16", sixteen);
        const Samples full = master(24);
        addEncoded("WAV, 24 bits", "s24.wav", "-c:a pcm_s24le", full);
        addEncoded("WAV, 32 bits", "s32.wav", "-c:a pcm_s32le", full);
        addEncoded("WAV, 32-bit floating point", "f32.wav", "-c:a pcm_f32le", full);
        addEncoded("WAV, 64-bit floating point", "f64.wav", "-c:a pcm_f64le", full);
        addEncoded("WAV, RF64", "rf64.wav", "-c:a pcm_s24le -rf64 always", full);
        addEncoded("AIFF, 24 bits", "s24.aiff", "-c:a pcm_s24be", full);
        addEncoded("FLAC, 24 bits", "s24.flac", "-c:a flac -sample_fmt s32", full);
        addEncoded("ALAC in MPEG-4", "alac.m4a", "-c:a alac -sample_fmt s32p", full);
        add("WAV, 24 bits in 32, extensible", shop_.write("24in32.wav", wave24In32(full)), full);
    }

    void oddWaves() {
        const Samples samples = master(16);
        add("WAV from a pipe, ffmpeg",
            shop_.make("pipe1.wav", "ffmpeg -v error -i master.wav -f wav - > pipe1.wav"), samples);
        add("WAV from a pipe, SoX",
            shop_.make("pipe2.wav", "sox -V1 -D master.wav -b 16 -t wav - | cat > pipe2.wav"), samples);
    }

    void coded() {
        const Samples tone = sine(frames, 1'999, framesPerSecond, 0.5);
        shop_.write("master.wav", wave(packed(tone), 2).value());
        add("MP3, 320 kbit/s, LAME", shop_.make("cbr.mp3", "lame --quiet -b 320 master.wav cbr.mp3"), tone);
        add("MP3, variable rate, LAME", shop_.make("vbr.mp3", "lame --quiet -V 0 master.wav vbr.mp3"), tone);
        addEncoded("AAC in MPEG-4, 256 kbit/s", "edit.m4a", "-c:a aac -b:a 256k", tone);
        const auto bare = shop_.encode("bare.m4a", "-i master.wav -c:a aac -b:a 256k -use_editlist 0");
        add("AAC in MPEG-4, iTunSMPB",
            shop_.write("tag.m4a", withLengthTag(readFile(bare), 1024, 344, frames)), tone);
        // These do not state their padding, so there is nothing to align them by.
        cases_.push_back(
            {"AAC, bare stream", shop_.encode("stream.aac", "-i master.wav -c:a aac -b:a 256k"), frames, {}});
        cases_.push_back(
            {"AC-3, 448 kbit/s", shop_.encode("stream.ac3", "-i master.wav -b:a 448k"), frames, {}});
    }

    void channels() {
        const Samples mono = noise(frames, 24, 1);
        Samples both;
        for (const std::int32_t sample : mono) {
            both.insert(both.end(), 2, sample);
        }
        add("WAV, mono", shop_.write("mono.wav", wave(packed(mono), 1).value()), both);
        shop_.write("six.wav", wave(packed(noise(frames, 24, 6)), 6).value());
        cases_.push_back({"WAV, 5.1",
                          shop_.encode("surround.wav", "-channel_layout 5.1 -i six.wav -c:a pcm_s24le"),
                          frames,
                          {}});
    }

    void addRefused(const std::string& kind, const std::filesystem::path& source) {
        cases_.push_back({kind, source, 0, {}});
    }

    void refused() {
        const Samples samples = master(24);
        const Bytes whole = wave(packed(samples), 2).value();
        addRefused("WAV, big-endian (RIFX)", shop_.write("big.wav", rifx(whole)));
        addRefused("AIFF-C sowt, 24 bits", shop_.make("sowt24.aifc",
                                                      "sox -V1 master.wav -t aifc sowt24.aifc; "
                                                      "sed -i 's/NONE/sowt/' sowt24.aifc"));
        addRefused("WAV, 1 Hz", shop_.write("slow.wav", waveOf(noise(100, 16), 1, 2)));
        addRefused("WAV without samples", shop_.write("none.wav", wave({}, 2).value()));
        addRefused("WAV, second half missing",
                   shop_.write("half.wav", ByteView(whole).first(whole.size() / 2)));
        for (const std::string name : {"edit.m4a", "cbr.mp3", "s24.flac", "stream.ac3"}) {
            const Bytes all = readFile(shop_.at(name));
            addRefused(name.substr(name.find('.') + 1) + ", second half missing",
                       shop_.write("half-" + name, ByteView(all).first(all.size() / 2)));
        }
        Bytes flipped = readFile(shop_.at("s24.flac"));
        flipped[flipped.size() / 2] ^= 1U;
        addRefused("FLAC, one bit wrong", shop_.write("bit.flac", flipped));
        addRefused("text named .wav", shop_.make("text.wav", "echo a text > text.wav"));
        addRefused(
            "playlist named .wav",
            shop_.make("list.wav", R"(printf '#EXTM3U\n#EXTINF:9,\nfile:///etc/passwd\n' > list.wav)"));
        addRefused("Opus in MPEG-4", shop_.encode("opus.mp4", "-i master.wav -ar 48000 -c:a libopus"));
        addRefused("Ogg Vorbis", shop_.encode("vorbis.ogg", "-i master.wav -c:a libvorbis"));
    }

    const Workshop& shop_;
    std::vector<MeasuredCase> cases_;
};

}  // namespace

std::vector<MeasuredCase> measuredCases(const Workshop& shop) {
    return CaseMaker(shop).all();
}

Bytes fineTone(std::size_t count, double frequency, std::uint32_t rate, double amplitude) {
    Bytes file = wave({}, 2).value();
    file.resize(waveHeaderSize + count * 16);
    storeU32(file, 4, static_cast<std::uint32_t>(file.size() - 8));
    storeU16(file, 20, 3);
    storeU32(file, 24, rate);
    storeU32(file, 28, rate * 16);
    storeU16(file, 32, 16);
    storeU16(file, 34, 64);
    storeU32(file, 40, static_cast<std::uint32_t>(count * 16));
    for (std::size_t i = 0; i < count * 2; ++i) {
        const std::size_t frame = i / 2;
        const double value = amplitude * std::sin(2 * M_PI * frequency / rate * static_cast<double>(frame));
        const auto bits = std::bit_cast<std::uint64_t>(value);
        storeU32(file, waveHeaderSize + i * 8, static_cast<std::uint32_t>(bits));
        storeU32(file, waveHeaderSize + i * 8 + 4, static_cast<std::uint32_t>(bits >> 32U));
    }
    return file;
}

}  // namespace kzq
