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
        surrounded();
        loud();
        channels();
        shortened();
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
        addEncoded("Wave64, 24 bits", "s24.w64", "-c:a pcm_s24le", full);
        addEncoded("CAF, 24 bits", "s24.caf", "-c:a pcm_s24be", full);
        addEncoded("WavPack, 24 bits", "s24.wv", "-c:a wavpack -sample_fmt s32p", full);
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
        const Samples tone = rising();
        shop_.write("master.wav", wave(packed(tone), 2).value());
        add("MP3, 320 kbit/s, LAME", shop_.make("cbr.mp3", "lame --quiet -b 320 master.wav cbr.mp3"), tone);
        add("MP3, variable rate, LAME", shop_.make("vbr.mp3", "lame --quiet -V 0 master.wav vbr.mp3"), tone);
        addEncoded("AAC in MPEG-4, 256 kbit/s", "edit.m4a", "-c:a aac -b:a 256k", tone);
        const auto bare = shop_.encode("bare.m4a", "-i master.wav -c:a aac -b:a 256k -use_editlist 0");
        add("AAC in MPEG-4, iTunSMPB",
            shop_.write("tag.m4a", withLengthTag(readFile(bare), 1024, 344, frames)), tone);
        addEncoded("Ogg Vorbis", "tone.ogg", "-c:a libvorbis -q:a 8", tone);
        addEncoded("Ogg Opus", "tone.opus", "-ar 48000 -c:a libopus -b:a 256k", tone);
        // These do not state their padding, so there is nothing to align them by.
        cases_.push_back(
            {"AAC, bare stream", shop_.encode("stream.aac", "-i master.wav -c:a aac -b:a 256k"), frames, {}});
        cases_.push_back(
            {"AC-3, 448 kbit/s", shop_.encode("stream.ac3", "-i master.wav -b:a 448k"), frames, {}});
    }

    /// What players put around the sound, and disks leave behind it.
    void surrounded() {
        const Samples tone = rising();
        const Bytes lame = readFile(shop_.at("cbr.mp3"));
        const Bytes flac = readFile(shop_.encode("tone.flac", "-i master.wav"));
        const Bytes id3v1 = joined({{'T', 'A', 'G'}, Bytes(125)});
        const Bytes id3v2 = joined({{'I', 'D', '3', 4, 0, 0, 0, 0, 2, 1}, Bytes(257)});
        const std::string text = "LYRICSBEGININD0000200LYR00005hello000030LYRICS200";
        add("MP3, a zero behind it", shop_.write("zero.mp3", joined({lame, Bytes(1)})), tone);
        add("MP3, 2,000 zeros behind it", shop_.write("zeros.mp3", joined({lame, Bytes(2000)})), tone);
        add("MP3, Lyrics3 and ID3v1 behind it",
            shop_.write("lyrics.mp3", joined({lame, {text.begin(), text.end()}, id3v1})), tone);
        add("MP3, ID3v2 behind it", shop_.write("id3.mp3", joined({lame, id3v2})), tone);
        add("MP3, its last byte missing", shop_.write("last.mp3", ByteView(lame).first(lame.size() - 1)),
            tone);
        add("MP3, zeros between tag and sound", shop_.write("front.mp3", joined({id3v2, Bytes(3000), lame})),
            tone);
        add("FLAC, ID3v1 behind it", shop_.write("tag.flac", joined({flac, id3v1})), tone);
        add("FLAC, 2,000 zeros behind it", shop_.write("zeros.flac", joined({flac, Bytes(2000)})), tone);
    }

    void loud() {
        const auto addLoud = [&](const std::string& kind, std::uint32_t rate, double amplitude) {
            cases_.push_back({kind,
                              shop_.write("loud" + std::to_string(cases_.size()) + ".wav",
                                          fineTone(rate * 10, 997, rate, amplitude)),
                              frames});
        };
        addLoud("WAV, floating point, +6 dB", 44'100, 2);
        addLoud("WAV, floating point, +6 dB, 48,000 Hz", 48'000, 2);
        addLoud("WAV, floating point, 0 dB", 44'100, 1);
        addLoud("WAV, floating point, 0 dB, 48,000 Hz", 48'000, 1);
        Bytes odd = fineTone(frames, 997, 44'100, 0.5);
        for (std::size_t i = 0; i < 8; ++i) {
            odd[waveHeaderSize + 16'000 + i] = 0xFF;  // no number
        }
        cases_.push_back({"WAV, floating point, no numbers", shop_.write("nan.wav", odd), frames});
    }

    void shortened() {
        const auto addShort = [&](const std::string& kind, const std::filesystem::path& source) {
            cases_.push_back({kind, source, frames, {}, true});
        };
        Bytes one = wave(packed(master(24)), 2).value();
        storeU32(one, 40, loadU32(one, 40) + 6);
        addShort("WAV, a frame too many in its header", shop_.write("one.wav", one));
        for (const std::string name : {"s24.wav", "cbr.mp3", "s24.flac", "tone.ogg"}) {
            const Bytes all = readFile(shop_.at(name));
            addShort(name.substr(name.find('.') + 1) + ", second half missing",
                     shop_.write("salvaged-" + name, ByteView(all).first(all.size() / 2)));
        }
        Bytes flipped = readFile(shop_.at("s24.flac"));
        flipped[flipped.size() / 2] ^= 1U;
        addShort("FLAC, one bit wrong", shop_.write("salvaged.flac", flipped));
    }

    /// A tone that rises from 1,000 to 3,000 Hz: no part of it is like another.
    static Samples rising() {
        Samples samples;
        for (std::size_t i = 0; i < frames; ++i) {
            const double time = static_cast<double>(i) / framesPerSecond;
            const double phase = 2 * M_PI * (1'000 * time + 100 * time * time);
            samples.insert(samples.end(), 2,
                           static_cast<std::int32_t>(std::lround(std::sin(phase) * fullScale / 2)));
        }
        return samples;
    }

    static Bytes joined(std::initializer_list<Bytes> parts) {
        Bytes all;
        for (const auto& part : parts) {
            all.insert(all.end(), part.begin(), part.end());
        }
        return all;
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
        for (const std::string name : {"edit.m4a", "cbr.mp3", "stream.ac3"}) {
            const Bytes all = readFile(shop_.at(name));
            addRefused(name.substr(name.find('.') + 1) + ", second half missing",
                       shop_.write("half-" + name, ByteView(all).first(all.size() / 2)));
        }
        addRefused("text named .wav", shop_.make("text.wav", "echo a text > text.wav"));
        addRefused(
            "playlist named .wav",
            shop_.make("list.wav", R"(printf '#EXTM3U\n#EXTINF:9,\nfile:///etc/passwd\n' > list.wav)"));
        addRefused("Opus in MPEG-4", shop_.encode("opus.mp4", "-i master.wav -ar 48000 -c:a libopus"));
        addRefused("Windows Media", shop_.encode("windows.wma", "-i master.wav -c:a wmav2"));
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
