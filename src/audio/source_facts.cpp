#include "audio/source_facts.h"

#include <algorithm>
#include <array>

#include "audio/tags.h"
#include "words/words.h"

namespace kzq {
namespace {

/// What is known by its first bytes alone.
struct Signature {
    std::string_view bytes;
    std::string_view name;
};

constexpr std::array<Signature, 19> unsupportedKinds{{{"RIFX", english("big-endian WAV (RIFX)")},
                                                      {"\x30\x26\xB2\x75", "Windows Media"},
                                                      {"\x1A\x45\xDF\xA3", "Matroska"},
                                                      {"DSD ", "DSD"},
                                                      {"FRM8", "DSD"},
                                                      {"MAC ", "Monkey's Audio"},
                                                      {"MThd", "MIDI"},
                                                      {"MPCK", "Musepack"},
                                                      {"MP+", "Musepack"},
                                                      {"TTA1", "True Audio"},
                                                      {"tBaK", "TAK"},
                                                      {"OFR ", "OptimFROG"},
                                                      {"ajkg", "Shorten"},
                                                      {".snd", "AU"},
                                                      {"#!AMR", "AMR"},
                                                      {".RMF", "RealAudio"},
                                                      {".ra\xFD", "RealAudio"},
                                                      {"Creative Voice File", "Creative Voice"},
                                                      {"FLV", english("Flash video")}}};

SourceFacts factsOfOthers(const FileBytes& file) {
    SourceFacts facts;
    const std::string start = file.text(0, static_cast<unsigned>(std::min<std::uint64_t>(file.size(), 32)));
    const auto* const found = std::ranges::find_if(
        unsupportedKinds, [&](const Signature& signature) { return start.starts_with(signature.bytes); });
    if (found != unsupportedKinds.end()) {
        facts.unsupported = found->name;
        return facts;
    }
    const std::uint64_t begin = afterTags(file, 0);
    if (file.text(begin, 4) == "fLaC") {
        return factsOfFlac(file, begin);
    }
    if (file.big(begin, 2).value_or(0) >= 0xFFE0) {
        return factsOfMp3(file, begin);
    }
    facts.audio = ByteSpan{begin, file.size()};
    facts.recognised = afterTag(file, 0) != 0;
    return facts;
}

SourceFacts factsByKind(const FileBytes& file) {
    const std::string signature = file.text(0, 4);
    const std::string form = file.text(8, 4);
    const bool isLong = signature == "RF64" || signature == "BW64";
    if ((signature == "RIFF" || isLong) && form == "WAVE") {
        return factsOfWave(file);
    }
    if (signature == "FORM" && (form == "AIFF" || form == "AIFC")) {
        return factsOfAiff(file);
    }
    if (file.text(4, 4) == "ftyp") {
        return factsOfMp4(file);
    }
    if (signature == "OggS") {
        return factsOfOgg(file);
    }
    if (signature == "wvpk") {
        return factsOfWavPack(file);
    }
    if (file.text(0, 8) == "riff\x2E\x91\xCF\x11") {
        return factsOfWave64(file);
    }
    return signature == "caff" ? factsOfCaf(file) : factsOfOthers(file);
}

}  // namespace

SourceFacts factsOf(const FileBytes& file) {
    SourceFacts facts = factsByKind(file);
    if (facts.audio && facts.audio->start == 0 && facts.audio->end == file.size()) {
        facts.audio.reset();
    }
    return facts;
}

}  // namespace kzq
