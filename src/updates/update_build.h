#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "updates/update_feed.h"
#include "updates/update_signature.h"

namespace kzq {

/// What was settled about updates of the program when it was built.
struct UpdateBuild {
    std::string version;
    std::vector<UpdateKey> keys;  ///< whose signature is trusted
    bool distribution = false;    ///< a distribution updates the program
    std::string website;          ///< https address of the home page

    static UpdateBuild ofThisProgram();
};

/// How the running program got onto the computer.
struct Installation {
    /// The kind of package that can update it; `other` when it only can be told of updates.
    PackageKind kind = PackageKind::other;
    std::filesystem::path appImage;  ///< for `appImage`: the file itself, not a link to it

    /// Of this process.
    static Installation ofThisProgram();
    /// An AppImage's runtime sets $APPIMAGE to the file and $APPDIR to where its content is. Both are
    /// inherited by every program started from there, so they count only when `executable` is in that
    /// content. Otherwise what runs from a system folder came as a package if dpkg's records, the
    /// "*.list" files in `dpkgRecords`, have it.
    static Installation of(const char* appImageVariable, const char* appDirVariable,
                           const std::filesystem::path& executable, const std::filesystem::path& dpkgRecords);
};

/// Whether updates can be installed at all; otherwise the user is only told.
bool canInstall(const UpdateBuild& build, const Installation& installation);

}  // namespace kzq
