#include "operations/backup_index.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "loops/facts.h"

namespace kzq {
namespace {

using Json = nlohmann::json;

constexpr const char* formatName = "kzq7306-backup";
constexpr std::uint64_t formatVersion = 1;

/// The number of that name, from 1 to `most`; 0 when it is missing or anything else.
std::uint64_t numberAt(const Json& object, const char* name, std::uint64_t most) {
    const auto found = object.find(name);
    if (found == object.end() || !found->is_number_unsigned()) {
        return 0;
    }
    const auto number = found->get<std::uint64_t>();
    return number <= most ? number : 0;
}

std::string textAt(const Json& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

/// Whether it is a name in the backup's own folder.
bool isPlainName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

bool isDigest(const std::string& text) {
    constexpr std::size_t length = 64;
    return text.size() == length && text.find_first_not_of("0123456789abcdef") == std::string::npos;
}

std::optional<BackupEntry> entryFrom(const Json& object) {
    constexpr std::uint64_t byte = std::numeric_limits<std::uint8_t>::max();
    BackupEntry entry;
    entry.file = textAt(object, "file");
    entry.samples =
        static_cast<std::uint32_t>(numberAt(object, "samples", std::numeric_limits<std::uint32_t>::max()));
    entry.tempo = static_cast<std::uint8_t>(numberAt(object, "tempo", byte));
    entry.channel = static_cast<std::uint8_t>(numberAt(object, "channel", byte));
    entry.sha256 = textAt(object, "sha256");
    const auto gone = object.find("gone");
    entry.gone = gone != object.end() && *gone == true;
    const bool good = isPlainName(entry.file) && entry.samples != 0 && entry.tempo != 0 &&
                      entry.channel != 0 && isDigest(entry.sha256);
    return good ? std::optional(entry) : std::nullopt;
}

bool readLoops(const Json& list, BackupIndex& index) {
    std::set<std::string> files;
    for (const auto& object : list) {
        const auto entry = object.is_object() ? entryFrom(object) : std::nullopt;
        const auto slot = entry ? SlotNumber::of(numberAt(object, "slot", loopSlots)) : std::nullopt;
        if (!slot || !files.insert(entry->file).second || !index.loops.emplace(*slot, *entry).second) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool BackupIndex::hasLengthOf(SlotNumber slot, const Loop& loop) const {
    const auto entry = loops.find(slot);
    return entry != loops.end() && entry->second.samples == loop.samples;
}

std::uint64_t bytesToCompare(const BackupIndex& index, const Loops& loops) {
    std::uint64_t bytes = 0;
    for (const auto& [slot, loop] : loops) {
        bytes += index.hasLengthOf(slot, loop) ? loop.alignedBytes : 0;
    }
    return bytes;
}

std::string indexText(const BackupIndex& index) {
    Json loops = Json::array();
    for (const auto& [slot, entry] : index.loops) {
        Json loop = {{"slot", slot.number()}, {"file", entry.file},       {"samples", entry.samples},
                     {"tempo", entry.tempo},  {"channel", entry.channel}, {"sha256", entry.sha256}};
        if (entry.gone) {
            loop["gone"] = true;
        }
        loops.push_back(std::move(loop));
    }
    Json whole = {{"format", formatName},
                  {"formatVersion", formatVersion},
                  {"firmware", index.firmware},
                  {"loops", std::move(loops)}};
    if (!index.before.empty()) {
        whole["before"] = index.before;
    }
    return whole.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

Result<BackupIndex> indexFromText(std::string_view text) {
    const auto whole = Json::parse(text, nullptr, false);
    if (!whole.is_object() || textAt(whole, "format") != formatName) {
        return Trouble{Trouble::Kind::backupForeign};
    }
    if (numberAt(whole, "formatVersion", formatVersion) != formatVersion) {
        return Trouble{Trouble::Kind::backupNewer};
    }
    BackupIndex index;
    index.firmware = textAt(whole, "firmware");
    index.before = textAt(whole, "before");
    const auto list = whole.find("loops");
    if (list == whole.end() || !list->is_array() || !readLoops(*list, index)) {
        return Trouble{Trouble::Kind::backupDamaged};
    }
    return index;
}

}  // namespace kzq
