// Feeds hostile manifests to the reader, raw and as the members of a valid entry: every result must be safe
// to use as a file name, as an address and as a size.

#include <cstring>
#include <nlohmann/json.hpp>
#include <string>

#include "fuzz_check.h"
#include "updates/firmware_cache.h"
#include "updates/firmware_manifest.h"
#include "updates/maker.h"

namespace {

using kzq::FirmwareEntry;

void checkName(const FirmwareEntry& entry) {
    const kzq::FirmwareCache cache("/cache");
    const auto path = cache.pathOf(entry);
    require(path.parent_path() == "/cache" && path.lexically_normal() == path,
            "the name stays in its folder");
    require(entry.name.find('\0') == std::string::npos, "the name is whole");
    const auto address = kzq::addressBeside("https://host/firmware/_.json", entry.name);
    require(address.starts_with("https://host/firmware/"), "the image is beside the manifest");
    const auto last = address.substr(22);
    require(last.find_first_of("/?#\\ \n") == std::string::npos, "the name is one component of the address");
}

void check(const std::optional<FirmwareEntry>& entry, std::span<const std::uint8_t> manifest) {
    if (!entry) {
        return;
    }
    require(entry->size <= kzq::largestFirmware, "the size is in range");
    require(manifest.size() >= 2, "an entry comes from a document");
    if (!entry->name.empty()) {
        checkName(*entry);
    }
    require(!kzq::isImageOf(*entry, {}), "nothing is no image");
}

/// The entry read from `text` as name and hash and `number` as size.
void checkMembers(const std::string& text, double number) {
    if (nlohmann::json::accept(
            nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)) &&
        nlohmann::json(number).is_number()) {
        nlohmann::json entry = {{"name", text}, {"hash", text}, {"version", text}, {"size", number}};
        entry["changes"] = {text, number, nullptr};
        const auto dump = nlohmann::json::array({nullptr, entry})
                              .dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
        const std::span<const std::uint8_t> bytes(reinterpret_cast<const std::uint8_t*>(dump.data()),
                                                  dump.size());
        const auto read = kzq::newestFirmwareEntry(bytes);
        require(read.has_value(), "a sound document is read");
        require(read->changes.size() == 1, "changes are texts");
        const bool whole =
            number >= 1 && number <= 50'000'000 && number == static_cast<std::uint32_t>(number);
        require(read->size == (whole ? static_cast<std::uint64_t>(number) : 0),
                "sizes are whole numbers in range");
        check(read, bytes);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    const std::span<const std::uint8_t> data(input, size);
    check(kzq::newestFirmwareEntry(data), data);
    double number = 0;
    if (size >= sizeof number) {
        std::memcpy(&number, input, sizeof number);
        checkMembers({input + sizeof number, input + size}, number);
    }
    return 0;
}
