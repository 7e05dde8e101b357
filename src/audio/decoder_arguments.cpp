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

// Codecs by the names of their formats; only the MP3 decoder has another name.
/// Whole numbers of 24 bits at most.
constexpr std::array<std::string_view, 16> exactCodecs{
    "pcm_u8",    "pcm_s8",        "pcm_s16le", "pcm_s16be",   "pcm_s24le", "pcm_s24be",
    "pcm_u16le", "pcm_u16be",     "pcm_u24le", "pcm_u24be",   "pcm_alaw",  "pcm_mulaw",
    "adpcm_ms",  "adpcm_ima_wav", "flac",      "adpcm_ima_qt"};
/// More bits, which 32-bit floating point does not hold.
constexpr std::array<std::string_view, 9> wideCodecs{"pcm_s32le", "pcm_s32be", "pcm_s64le",
                                                     "pcm_s64be", "pcm_u32le", "pcm_f64le",
                                                     "pcm_f64be", "alac",      "wavpack"};
constexpr std::array<std::string_view, 9> floatCodecs{"pcm_f32le", "pcm_f32be", "mp3",    "mp2", "aac",
                                                      "ac3",       "eac3",      "vorbis", "opus"};
/// Accepted only in formats of which only the tool takes files.
constexpr std::array<std::string_view, 3> toolCodecs{"vorbis", "opus", "wavpack"};

template <std::size_t count>
bool isAmong(const std::array<std::string_view, count>& codecs, std::string_view codec) {
    return std::ranges::find(codecs, codec) != codecs.end();
}

std::string decoderList() {
    std::string list = "mp3float";
    const auto add = [&list](const auto& codecs) {
        for (const auto codec : codecs) {
            list += "," + std::string(codec);
        }
    };
    add(exactCodecs);
    add(wideCodecs);
    add(floatCodecs);
    return list;
}

void append(Words& words, std::initializer_list<std::string> more) {
    words.insert(words.end(), more);
}

/// The decoder has no shorter way to say what a stream is than to copy the start of it.
void appendDescription(Words& words, const char* to) {
    append(words, {"-map", "0:a:0", "-c", "copy", "-frames:a", "1", "-f", "framecrc", to});
}

/// The source's address: a descriptor, or part of the file behind it.
std::string addressOf(const SourceFacts& facts) {
    const std::string file = "file:/proc/self/fd/" + std::to_string(childSource);
    return facts.audio ? "subfile,,start," + std::to_string(facts.audio->start) + ",end," +
                             std::to_string(facts.audio->end) + ",,:" + file
                       : file;
}

/// Everything up to and including the source. References inside a source are not followed: only files are
/// opened, in formats that do not refer to other files.
Words sourceArguments(const SourceFacts& facts, const Words& options) {
    Words words{"-nostdin", "-hide_banner",    "-nostats", "-v", "error", "-threads",
                "1",        "-filter_threads", "1"};
    words.insert(words.end(), options.begin(), options.end());
    const std::string more = facts.kind.empty() ? "" : ",ogg,wv,w64,caf";
    append(words, {"-protocol_whitelist", "file,subfile", "-format_whitelist",
                   "wav,aiff,mp3,mov,aac,ac3,eac3,flac" + more, "-codec_whitelist", decoderList(), "-i",
                   addressOf(facts)});
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
        return "pan=stereo|c0<c0+c2+c4+c6|c1<c1+c3+c5+c7";
    }
    return "pan=stereo"
           "|FL<FL+0.707107FC+0.707107BL+0.707107SL+0.707107FLC+0.5BC"
           "|FR<FR+0.707107FC+0.707107BR+0.707107SR+0.707107FRC+0.5BC";
}

struct SampleWords {
    const char* filter;
    const char* codec;
    const char* format;
};

SampleWords wordsFor(SampleKind samples) {
    switch (samples) {
        case SampleKind::s24:
            return {"osf=s32", "pcm_s24le", "s24le"};
        case SampleKind::f32:
            return {"osf=flt", "pcm_f32le", "f32le"};
        case SampleKind::f64:
            break;
    }
    return {"internal_sample_fmt=dblp:osf=dbl", "pcm_f64le", "f64le"};
}

std::string filters(const SourceFacts& facts, const StreamFacts& stream, const DecodeOrder& order) {
    std::string chain;
    if (const auto span = framesOfSound(facts, stream.rate)) {
        chain = "atrim=start_sample=" + std::to_string(span->start) +
                ":end_sample=" + std::to_string(span->end) + ",";
    }
    if (order.clean) {
        chain += "aeval=exprs=if(isnan(val(ch))+isinf(val(ch))\\,0\\,val(ch)):c=same,";
    }
    // Otherwise the filters may agree on whole numbers in between, which clip.
    if (order.samples != SampleKind::s24) {
        chain += order.samples == SampleKind::f32 ? "aformat=sample_fmts=fltp," : "aformat=sample_fmts=dblp,";
    }
    return chain + channelFilter(stream) + ",aresample=" + std::to_string(framesPerSecond) +
           ":resampler=soxr:precision=28:cheby=1:" + wordsFor(order.samples).filter +
           ",atrim=end_sample=" + std::to_string(mostConvertedFrames);
}

}  // namespace

bool isAcceptedCodec(const SourceFacts& facts, std::string_view codec) {
    if (isAmong(toolCodecs, codec)) {
        return !facts.kind.empty();
    }
    return isAmong(exactCodecs, codec) || isAmong(wideCodecs, codec) || isAmong(floatCodecs, codec);
}

SampleKind samplesFor(const StreamFacts& stream) {
    if (stream.rate != framesPerSecond || stream.channels > 2 || isAmong(wideCodecs, stream.codec)) {
        return SampleKind::f64;
    }
    return isAmong(exactCodecs, stream.codec) ? SampleKind::s24 : SampleKind::f32;
}

std::vector<std::string> probeArguments(const SourceFacts& facts) {
    Words words = sourceArguments(facts, {});
    appendDescription(words, "pipe:1");
    return words;
}

std::string parseDigest(const std::string& complaint) {
    constexpr std::string_view key = "MD5=";
    constexpr std::size_t length = 32;
    const auto at = complaint.rfind(key);
    return at == std::string::npos ? std::string() : complaint.substr(at + key.size(), length);
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
                                         const DecodeOrder& order) {
    Words options{"-err_detect", "crccheck+explode"};
    if (order.strict) {
        options.emplace_back("-xerror");
    }
    if (facts.sound) {
        // The decoder would cut at packets; instead it outputs everything, and the filter cuts.
        append(options, {"-flags2", "+skip_manual"});
        if (facts.kind.empty()) {
            append(options, {"-ignore_editlist", "1"});
        }
    }
    if (!facts.codec.empty()) {
        append(options, {"-c:a", facts.codec});
    }
    Words words = sourceArguments(facts, options);
    const SampleWords samples = wordsFor(order.samples);
    append(words, {"-map", "0:a:0", "-map_metadata", "-1", "-af", filters(facts, stream, order), "-c:a",
                   samples.codec, "-f", samples.format, "-flush_packets", "0", "pipe:1"});
    if (order.digest) {
        const std::string bits = std::to_string(facts.digest->bits);
        append(words,
               {"-map", "0:a:0", "-c:a", "pcm_s" + bits + (bits == "8" ? "" : "le"), "-f", "md5", "pipe:2"});
    }
    if (order.describe) {
        appendDescription(words, "pipe:2");
    }
    return words;
}

}  // namespace kzq
