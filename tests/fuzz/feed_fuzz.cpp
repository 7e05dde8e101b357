// Feeds hostile documents to the two XML readers, the update feed's and the property list's, bare and inside
// the elements they expect.

#include <string>

#include "dormant/property_list.h"
#include "fuzz_check.h"
#include "updates/app_version.h"
#include "updates/update_feed.h"
#include "updates/update_signature.h"

namespace {

std::span<const std::uint8_t> view(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// Whether `mark` occurs in `text` as markup, and not inside a quotation.
bool declares(const std::string& text, const char* mark) {
    const bool quotes = text.find("<!--") != std::string::npos ||
                        text.find("<![CDATA[") != std::string::npos || text.find("<?") != std::string::npos;
    return !quotes && text.find(mark) != std::string::npos;
}

void checkFeed(const std::string& text) {
    const auto items = kzq::feedItems(view(text));
    if (!items) {
        return;
    }
    require(!declares(text, "<!DOCTYPE"), "a document type is refused");
    std::size_t contents = 0;
    for (const auto& item : *items) {
        require(kzq::isAppVersion(item.version), "each item has a version");
        require(item.version.find_first_not_of("0123456789.") == std::string::npos,
                "a version is a plain text");
        require(!item.shortVersion.empty(), "each item can be named");
        require(item.length <= kzq::largestPackage, "the length is in range");
        kzq::updateSignatureFrom(item.signature);
        contents += item.notes.size() + item.url.size() + item.signature.size();
    }
    require(contents <= 4 * text.size(), "nothing grows");
    const auto* const newest = kzq::newestItem(*items, kzq::PackageKind::appImage);
    require((newest == nullptr) == items->empty(), "one of them is the newest");
    for (const auto& item : *items) {
        const auto order = kzq::compareAppVersions(item.version, newest->version);
        require(order && *order <= 0, "none is newer");
    }
}

void checkList(const std::string& text) {
    const auto elements = kzq::propertyListArray(view(text));
    if (!elements) {
        return;
    }
    require(!declares(text, "<!ENTITY"), "entities are refused");
    std::size_t contents = 0;
    for (const auto& element : *elements) {
        for (const auto& [key, value] : element) {
            contents += key.size() + value.size();
        }
    }
    require(contents <= 4 * text.size(), "nothing grows");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    const std::string text(input, input + size);
    checkFeed(text);
    checkFeed("<rss><channel>" + text + "</channel></rss>");
    checkFeed("<rss><channel><item><version>1</version>" + text + "</item></channel></rss>");
    checkList(text);
    checkList("<plist><array><dict>" + text + "</dict></array></plist>");
    return 0;
}
