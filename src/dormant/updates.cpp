#include "dormant/updates.h"

#include <utility>
#include <vector>

#include "dormant/property_list.h"
#include "platform/plain_file.h"

namespace kzq {
namespace {

constexpr auto refreshPeriod = std::chrono::minutes(15);
constexpr std::uint64_t largestCacheManifest = std::uint64_t{1} << 20U;

struct Shared {
    std::optional<UpdatesEnvironment> environment;
    std::shared_ptr<Updates> instance;
};

Shared& shared() {
    static Shared state;
    return state;
}

std::optional<std::string> unlessEmpty(std::optional<std::string> text) {
    return text && !text->empty() ? std::move(text) : std::nullopt;
}

/// The elements of the kind's cache manifest; empty if there is none that can be read.
std::vector<PropertyTexts> cachedVersions(const std::filesystem::path& folder) {
    // Users may keep the manifest elsewhere and link to it.
    const auto document = readPlainFile(folder / "manifest.plist", largestCacheManifest, Links::followed);
    return document ? propertyListArray(*document).value_or(std::vector<PropertyTexts>{})
                    : std::vector<PropertyTexts>{};
}

std::string textOf(const PropertyTexts& texts, const char* key) {
    const auto found = texts.find(key);
    return found == texts.end() ? std::string{} : found->second;
}

std::optional<std::string> latestCached(UpdateKind kind, const std::optional<std::string>& current) {
    const auto folder = Updates::cacheFolder(kind);
    if (!Updates::feedLocation(kind) || !folder) {
        return std::nullopt;
    }
    const auto versions = cachedVersions(*folder);
    if (versions.empty()) {
        return current;
    }
    const auto version = textOf(versions.back(), "version");
    if (version.empty() || textOf(versions.back(), "checksum").empty()) {
        return std::nullopt;
    }
    return version;
}

}  // namespace

void Updates::load(UpdatesEnvironment environment) {
    shared().environment.emplace(std::move(environment));
}

void Updates::unload() {
    shared().instance.reset();
    shared().environment.reset();
}

std::shared_ptr<Updates> Updates::updates() {
    auto& [environment, instance] = shared();
    if (!instance && environment) {
        instance.reset(new Updates(*environment));
        instance->scheduleTimer();
        instance->timer();
    }
    return instance;
}

Updates::Updates(UpdatesEnvironment environment) : environment_(std::move(environment)) {}

std::optional<std::string> Updates::feedLocation(UpdateKind kind) {
    switch (kind) {
        case UpdateKind::firmware:
            return "http://localhost/com.kzq.7306/firmware";
        case UpdateKind::software:
            return "http://localhost/com.kzq.7306/software";
    }
    return std::nullopt;
}

std::optional<std::filesystem::path> Updates::cacheFolder(UpdateKind kind) {
    switch (kind) {
        case UpdateKind::firmware:
            return "~/Library/Application Support/com.kzq.7306/updates/firmware";
        case UpdateKind::software:
            return "~/Library/Application Support/com.kzq.7306/updates/software";
    }
    return std::nullopt;
}

void Updates::scheduleTimer() {
    environment_.executor.mainAfter(refreshPeriod, [weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->scheduleTimer();
            self->timer();
        }
    });
}

void Updates::timer() {
    refresh([](bool) {});
}

void Updates::refresh(std::function<void(bool)> completion) {
    environment_.executor.background(Priority::high, [completion = std::move(completion)] {
        bool known = true;
        for (const auto kind : {UpdateKind::firmware, UpdateKind::software}) {
            known = known && feedLocation(kind) && cacheFolder(kind);
        }
        if (completion) {
            completion(known);
        }
    });
}

std::optional<std::string> Updates::currentFirmware() const {
    return unlessEmpty(environment_.firmwareVersion());
}

std::optional<std::string> Updates::currentSoftware() const {
    return unlessEmpty(environment_.softwareVersion);
}

std::optional<std::string> Updates::latestCachedFirmware() const {
    return latestCached(UpdateKind::firmware, currentFirmware());
}

std::optional<std::string> Updates::latestCachedSoftware() const {
    return latestCached(UpdateKind::software, currentSoftware());
}

}  // namespace kzq
