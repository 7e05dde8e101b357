#include <algorithm>
#include <charconv>
#include <functional>
#include <string_view>

#include "audio/source_facts.h"

namespace kzq {
namespace {

constexpr int mostBoxes = 10'000;
/// Beyond any sensible count of samples, and far from overflow when multiplied by a rate.
constexpr std::uint64_t mostUnits = 1ULL << 40U;

struct Box {
    std::string name;
    std::uint64_t body = 0;
    std::uint64_t end = 0;
};

/// Calls `visit` for each box between `from` and `to`; it returns whether to continue. False if a box
/// extends past `to`.
bool eachBox(const FileBytes& file, std::uint64_t from, std::uint64_t to,
             const std::function<bool(const Box&)>& visit) {
    std::uint64_t offset = from;
    for (int count = 0; count < mostBoxes && offset + 8 <= to; ++count) {
        std::uint64_t size = file.big(offset, 4).value_or(0);
        std::uint64_t headSize = 8;
        if (size == 1) {
            size = file.big(offset + 8, 8).value_or(0);
            headSize = 16;
        } else if (size == 0) {
            size = to - offset;
        }
        if (size < headSize || size > to - offset) {
            return false;
        }
        if (!visit({file.text(offset + 4, 4), offset + headSize, offset + size})) {
            return true;
        }
        offset += size;
    }
    return true;
}

/// The first box at the end of `names`, each name inside the one before.
std::optional<Box> find(const FileBytes& file, Box within, std::initializer_list<std::string_view> names) {
    for (const std::string_view name : names) {
        std::optional<Box> found;
        eachBox(file, within.body, within.end, [&](const Box& box) {
            if (box.name == name) {
                found = box;
            }
            return !found;
        });
        if (!found) {
            return std::nullopt;
        }
        within = *found;
    }
    return within;
}

/// The clock of an "mvhd" or "mdhd" box.
struct MediaClock {
    std::uint64_t timescale = 0;
    std::uint64_t duration = 0;
};

MediaClock clockOf(const FileBytes& file, const std::optional<Box>& box) {
    if (!box) {
        return {};
    }
    const bool wide = file.big(box->body, 1) == 1U;
    const std::uint64_t at = box->body + (wide ? 20 : 12);
    return {file.big(at, 4).value_or(0), file.big(at + 4, wide ? 8 : 4).value_or(0)};
}

std::optional<Box> firstSoundTrack(const FileBytes& file, const Box& movie) {
    std::optional<Box> track;
    eachBox(file, movie.body, movie.end, [&](const Box& box) {
        const auto handler = box.name == "trak" ? find(file, box, {"mdia", "hdlr"}) : std::optional<Box>();
        if (handler && file.text(handler->body + 8, 4) == "soun") {
            track = box;
        }
        return !track;
    });
    return track;
}

struct Edit {
    std::uint64_t length = 0;  ///< in the movie's units
    std::uint64_t start = 0;   ///< in the track's
};

/// The only edit that plays something; nothing if there are several.
std::optional<Edit> onlyEdit(const FileBytes& file, const Box& list) {
    const bool wide = file.big(list.body, 1) == 1U;
    const unsigned width = wide ? 8 : 4;
    const std::uint64_t pause = wide ? UINT64_MAX : UINT32_MAX;
    const std::uint64_t count = file.big(list.body + 4, 4).value_or(0);
    std::optional<Edit> edit;
    for (std::uint64_t i = 0; i < count && i < 4; ++i) {
        const std::uint64_t at = list.body + 8 + i * (2 * width + 4);
        const auto length = file.big(at, width);
        const auto start = file.big(at + width, width);
        if (!length || !start || (edit && *start != pause)) {
            return std::nullopt;
        }
        if (*start != pause) {
            edit = Edit{*length, *start};
        }
    }
    return count <= 4 ? edit : std::nullopt;
}

/// An edit's length is in units of the whole movie, which may be as coarse as milliseconds. The track's own
/// duration, in finer units, is used instead if it agrees.
std::optional<SoundSpan> spanOfEdit(const Edit& edit, const MediaClock& movie, const MediaClock& track) {
    if (movie.timescale == 0 || edit.length > mostUnits / 1024 || edit.start > track.duration) {
        return std::nullopt;
    }
    const std::uint64_t told = (edit.length * track.timescale + movie.timescale / 2) / movie.timescale;
    const std::uint64_t rest = track.duration - edit.start;
    const std::uint64_t unit = track.timescale / movie.timescale + 1;
    const std::uint64_t apart = told > rest ? told - rest : rest - told;
    const std::uint64_t length = movie.timescale < track.timescale && apart <= unit ? rest : told;
    return SoundSpan{edit.start, std::min(length, rest), track.timescale};
}

std::optional<std::uint64_t> nextHex(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc()) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return value;
}

/// The tag in which music players store the true length: a zero, the priming, the padding, the length.
std::optional<SoundSpan> spanOfTag(std::string_view text, const MediaClock& track) {
    const auto zero = nextHex(text);
    const auto priming = nextHex(text);
    const auto padding = nextHex(text);
    const auto length = nextHex(text);
    if (!zero || !priming || !padding || !length || *length == 0 || track.duration > mostUnits ||
        *priming > track.duration || *length > track.duration - *priming) {
        return std::nullopt;
    }
    return SoundSpan{*priming, *length, track.timescale};
}

/// The text of a "data" box, after its type and language.
std::string textOf(const FileBytes& file, const Box& data) {
    const std::uint64_t begin = std::min(data.body + 8, data.end);
    return file.text(begin, static_cast<unsigned>(std::min<std::uint64_t>(data.end - begin, 200)));
}

std::optional<SoundSpan> taggedSpan(const FileBytes& file, const Box& movie, const MediaClock& track) {
    auto meta = find(file, movie, {"udta", "meta"});
    if (!meta) {
        return std::nullopt;
    }
    meta->body += 4;  // version and flags
    const auto list = find(file, *meta, {"ilst"});
    std::optional<SoundSpan> span;
    if (list) {
        eachBox(file, list->body, list->end, [&](const Box& box) {
            const auto name = box.name == "----" ? find(file, box, {"name"}) : std::optional<Box>();
            const auto data = find(file, box, {"data"});
            if (name && data && file.text(name->body + 4, 8) == "iTunSMPB") {
                span = spanOfTag(textOf(file, *data), track);
            }
            return !span;
        });
    }
    return span;
}

}  // namespace

SourceFacts factsOfMp4(const FileBytes& file) {
    SourceFacts facts;
    std::optional<Box> movie;
    bool dataSeen = false;
    const bool whole = eachBox(file, 0, file.size(), [&](const Box& box) {
        if (box.name == "moov") {
            movie = box;
        }
        dataSeen = dataSeen || box.name == "mdat";
        return true;
    });
    facts.truncated = !whole && !(movie && dataSeen);  // damage after both does not matter
    const auto sound = movie ? firstSoundTrack(file, *movie) : std::nullopt;
    if (!sound) {
        return facts;
    }
    const MediaClock track = clockOf(file, find(file, *sound, {"mdia", "mdhd"}));
    if (track.timescale == 0 || track.timescale > 1'000'000 || track.duration > mostUnits) {
        return facts;
    }
    facts.sound = taggedSpan(file, *movie, track);
    const auto list = find(file, *sound, {"edts", "elst"});
    const auto edit = list ? onlyEdit(file, *list) : std::nullopt;
    if (!facts.sound && edit) {
        facts.sound = spanOfEdit(*edit, clockOf(file, find(file, *movie, {"mvhd"})), track);
    }
    return facts;
}

}  // namespace kzq
