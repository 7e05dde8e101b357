#include "audio/decoder_arguments.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "audio/locked_child.h"
#include "audio/wave.h"
#include "loops/facts.h"

namespace kzq {
namespace {

using Words = std::vector<std::string>;

/// Codecs by the names of their formats; only the MP3 decoder has another name.
constexpr std::array<std::string_view, 31> codecs{
    "pcm_u8",        "pcm_s8",       "pcm_s16le", "pcm_s16be", "pcm_s24le", "pcm_s24be", "pcm_s32le",
    "pcm_s32be",     "pcm_s64le",    "pcm_s64be", "pcm_f32le", "pcm_f32be", "pcm_f64le", "pcm_f64be",
    "pcm_alaw",      "pcm_mulaw",    "pcm_u16le", "pcm_u16be", "pcm_u24le", "pcm_u24be", "adpcm_ms",
    "adpcm_ima_wav", "adpcm_ima_qt", "mp3",       "mp2",       "aac",       "ac3",       "eac3",
    "flac",          "alac",         "pcm_u32le"};

std::string decoderList() {
    std::string list = "mp3float";
    for (const auto codec : codecs) {
        list += ",";
        list += codec;
    }
    return list;
}

void append(Words& words, std::initializer_list<std::string> more) {
    words.insert(words.end(), more);
}

/// Everything up to and including the source. References inside a source are not followed: only files are
/// opened, in formats that do not refer to other files.
Words sourceArguments(const Words& options) {
    Words words{"-nostdin", "-hide_banner",    "-nostats", "-v", "error", "-threads",
                "1",        "-filter_threads", "1"};
    words.insert(words.end(), options.begin(), options.end());
    append(words,
           {"-protocol_whitelist", "file", "-format_whitelist", "wav,aiff,mp3,mov,aac,ac3,eac3,flac",
            "-codec_whitelist", decoderList(), "-i", "file:/proc/self/fd/" + std::to_string(childSource),
            "-map", "0:a:0", "-map_metadata", "-1"});
    return words;
}

std::string valueOf(std::string_view text, std::string_view key) {
    const auto at = text.find(key);
    if (at == std::string_view::npos) {
        return {};
    }
    const auto begin = at + key.size();
    return std::string(text.substr(begin, text.find('\n', begin) - begin));
}

/// Layouts have names, such as "stereo" or "5.1(side)", or are given as "10 channels".
void takeLayout(StreamFacts& stream, const std::string& layout) {
    unsigned count = 0;
    const auto [end, error] = std::from_chars(layout.data(), layout.data() + layout.size(), count);
    const bool counted = error == std::errc() && std::string_view(end).starts_with(" channels");
    stream.namedChannels = !counted && !layout.empty();
    if (counted) {
        stream.channels = std::min(count, 3U);
    } else if (layout == "mono") {
        stream.channels = 1;
    } else {
        stream.channels = layout == "stereo" || layout == "downmix" ? 2 : 3;
    }
}

/// Mono: the same on both sides, at full level. Two channels: unchanged, whatever the layout. More: the usual
/// downmix, scaled so that it can never clip.
std::string channelFilter(const StreamFacts& stream) {
    if (stream.channels == 1) {
        return "channelmap=0|0:stereo";
    }
    if (stream.channels == 2) {
        return "channelmap=0|1:stereo";
    }
    if (!stream.namedChannels) {
        return "aformat=sample_fmts=dblp,pan=stereo|c0<c0+c2+c4+c6|c1<c1+c3+c5+c7";
    }
    return "aformat=sample_fmts=dblp,pan=stereo"
           "|FL<FL+0.707107FC+0.707107BL+0.707107SL+0.707107FLC+0.5BC"
           "|FR<FR+0.707107FC+0.707107BR+0.707107SR+0.707107FRC+0.5BC";
}

std::string filters(const SourceFacts& facts, const StreamFacts& stream, std::uint64_t mostFrames) {
    std::string chain;
    if (const auto span = framesOfSound(facts, stream.rate)) {
        chain = "atrim=start_sample=" + std::to_string(span->start) +
                ":end_sample=" + std::to_string(span->end) + ",";
    }
    return chain + channelFilter(stream) + ",aresample=" + std::to_string(framesPerSecond) +
           ":resampler=soxr:precision=28:cheby=1:osf=s32,atrim=end_sample=" + std::to_string(mostFrames);
}

}  // namespace

bool isAcceptedCodec(std::string_view codec) {
    return std::ranges::find(codecs, codec) != codecs.end();
}

std::vector<std::string> probeArguments() {
    Words words = sourceArguments({});
    append(words, {"-c", "copy", "-frames:a", "1", "-f", "framecrc", "pipe:1"});
    return words;
}

std::optional<StreamFacts> parseProbe(std::string_view text) {
    StreamFacts stream;
    stream.codec = valueOf(text, "#codec_id 0: ");
    const std::string rate = valueOf(text, "#sample_rate 0: ");
    std::from_chars(rate.data(), rate.data() + rate.size(), stream.rate);
    if (stream.codec.empty() || rate.empty()) {
        return std::nullopt;
    }
    takeLayout(stream, valueOf(text, "#channel_layout_name 0: "));
    return stream;
}

std::optional<FrameSpan> framesOfSound(const SourceFacts& facts, std::uint64_t rate) {
    if (!facts.sound) {
        return std::nullopt;
    }
    const auto& [start, length, timescale] = *facts.sound;
    const auto frames = [&, scale = timescale](std::uint64_t units) {
        return (units * rate + scale / 2) / scale;
    };
    return FrameSpan{frames(start), frames(start) + frames(length)};
}

std::vector<std::string> decodeArguments(const SourceFacts& facts, const StreamFacts& stream,
                                         std::uint64_t mostFrames) {
    Words options{"-err_detect", "crccheck+explode"};
    if (!facts.openEnded) {
        options.emplace_back("-xerror");  // there, the last packet counts as corrupt
    }
    if (facts.sound) {
        // The decoder would cut at packets; instead it outputs everything, and the filter cuts.
        append(options, {"-ignore_editlist", "1", "-flags2", "+skip_manual"});
    }
    if (!facts.codec.empty()) {
        append(options, {"-c:a", facts.codec});
    }
    Words words = sourceArguments(options);
    append(words, {"-af", filters(facts, stream, mostFrames), "-c:a", "pcm_s24le", "-f", "s24le", "pipe:1"});
    return words;
}

}  // namespace kzq
