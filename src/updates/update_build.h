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

    /// Of this process: an AppImage names itself in $APPIMAGE; what runs from a system folder came as a
    /// package.
    static Installation ofThisProgram();
    static Installation of(const char* appImageVariable, const std::filesystem::path& executable);
};

/// Whether updates can be installed at all; otherwise the user is only told.
bool canInstall(const UpdateBuild& build, const Installation& installation);

}  // namespace kzq
