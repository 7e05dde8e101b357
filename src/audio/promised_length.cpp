#include "audio/promised_length.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "audio/source_facts.h"
#include "audio/verdict.h"
#include "platform/plain_file.h"

namespace kzq {
namespace {

using Length = std::optional<Frames>;

/// Kinds without a signature: only the decoder can say what they are.
bool hasNoSignature(const std::filesystem::path& file) {
    constexpr std::array<std::string_view, 2> bare{".aac", ".ac3"};
    auto extension = file.extension().string();
    std::ranges::transform(extension, extension.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return std::ranges::find(bare, extension) != bare.end();
}

Length lengthBy(const SourceFacts& facts) {
    if (facts.sound) {
        return Frames{resampled(facts.sound->length, facts.sound->timescale)};
    }
    return facts.frames && facts.rate != 0 ? Length(Frames{resampled(*facts.frames, facts.rate)}) : Length();
}

Result<Length> lengthIn(const PlainFile& source, bool anyStart) {
    if (source.size == 0) {
        return Trouble{Trouble::Kind::noSound};
    }
    const FileBytes bytes(source.file.get(), source.size);
    const auto facts = factsOf(bytes);
    if (bytes.exhausted()) {
        return Length();
    }
    if (!facts.recognised && !anyStart) {
        return Trouble{Trouble::Kind::notAudio};
    }
    if (const auto kind = facts.unsupported.empty() ? facts.kind : facts.unsupported; !kind.empty()) {
        return Trouble{Trouble::Kind::unsupported, {}, 0, kind};
    }
    const auto length = lengthBy(facts);
    return length == Frames{} ? Result<Length>(Trouble{Trouble::Kind::noSound}) : Result<Length>(length);
}

}  // namespace

Result<Length> promisedLength(const std::filesystem::path& file) {
    return openPlainFile(file, Links::followed).and_then([&](const PlainFile& source) -> Result<Length> {
        return lengthIn(source, hasNoSignature(file));
    });
}

}  // namespace kzq
