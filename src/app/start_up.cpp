#include "app/start_up.h"

#include <QDateTime>
#include <QSaveFile>
#include <QSettings>
#include <cstdlib>
#include <string>
#include <system_error>

#include "platform/log.h"
#include "platform/new_name.h"

namespace kzq {

namespace {

namespace fs = std::filesystem;

constexpr auto builtName = "KZQ7306.app";
constexpr auto knownName = "7306 Loop Manager.app";

/// Whether there was one.
bool useUpMarker(const fs::path& home) {
    std::error_code ignored;
    const auto marker = bundleNameMarker(home);
    if (marker.empty() || !fs::exists(marker, ignored)) {
        return false;
    }
    fs::remove(marker, ignored);
    return true;
}

/// Never onto an existing path.
bool moveBundle(const fs::path& from, const fs::path& to) {
    const int error = renameToNew(from, to);
    if (!isNoSuchCall(error)) {
        return error == 0;
    }
    // A folder can replace only an empty one here.
    std::error_code failure;
    if (fs::exists(fs::symlink_status(to, failure))) {
        return false;
    }
    fs::rename(from, to, failure);
    return !failure;
}

}  // namespace

fs::path bundleNameMarker(const fs::path& home) {
    return home.empty() ? fs::path() : home / ".com.kzq.7306.ignore-bundle-name-change";
}

void writeBundleNameMarker(const fs::path& home) {
    const auto marker = bundleNameMarker(home);
    if (marker.empty()) {
        return;
    }
    QSaveFile file(QString::fromStdString(marker.string()));
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(QDateTime::currentDateTime().toString(Qt::ISODate).toUtf8()) < 0 || !file.commit()) {
        log(LogCategory::application, "the marker for the bundle's name could not be written");
    }
}

fs::path bundleOf(const fs::path& program) {
    for (auto folder = program.parent_path(); folder.has_relative_path(); folder = folder.parent_path()) {
        if (folder.extension() == ".app") {
            return folder;
        }
    }
    return {};
}

bool handOverToRenamedBundle(const StartUpPlaces& places) {
    if (useUpMarker(places.home)) {
        return false;
    }
    const auto bundle = bundleOf(places.program);
    if (bundle.filename() != builtName) {
        return false;
    }
    const auto renamed = bundle.parent_path() / knownName;
    if (!moveBundle(bundle, renamed)) {
        return false;
    }
    if (!places.open(renamed)) {
        log(LogCategory::application, "the program cannot be opened under its new name");
    }
    return true;
}

fs::path usualSettings(const fs::path& home) {
    const char* const configured = std::getenv("XDG_CONFIG_HOME");  // NOLINT(concurrency-mt-unsafe): start-up
    const fs::path folder = configured != nullptr ? configured : "";
    if (!folder.is_absolute() && home.empty()) {
        return {};  // never the folder that the program was started from
    }
    return (folder.is_absolute() ? folder : home / ".config") / "com.kzq.7306.conf";
}

void setUserDefaults(const fs::path& settings) {
    if (settings.empty()) {
        return;
    }
    QSettings defaults(QString::fromStdString(settings.string()), QSettings::IniFormat);
    for (const char* const name : {"NSDisabledDictationMenuItem", "NSDisabledCharacterPaletteMenuItem"}) {
        if (!defaults.value(name).toBool()) {  // what is set anew is written to the disk, and waited for
            defaults.setValue(name, true);
        }
    }
}

}  // namespace kzq
