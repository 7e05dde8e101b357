#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "updates/update_feed.h"
#include "updates/update_signature.h"

namespace kzq {

/// What the build has settled about updates of the program.
struct UpdateBuild {
    std::string version;
    std::vector<UpdateKey> keys;  ///< whose signature is trusted
    bool distribution = false;    ///< a distribution updates the program
    std::string website;          ///< https address of the home page
    std::string channel = {};     ///< followed besides the one without a name

    static UpdateBuild ofThisProgram();
};

/// The keys of a list separated by ';'. If a part of it is no key, only a key that signs nothing, so that
/// nothing is taken rather than all that is unsigned.
std::vector<UpdateKey> pinnedKeys(std::string_view list);

/// How the running program was installed.
struct Installation {
    /// The kind of package that can update it; `other` if updates can only be announced.
    PackageKind kind = PackageKind::other;
    std::filesystem::path appImage;  ///< for `appImage`: the file itself, not a link to it

    /// Of this process.
    static Installation ofThisProgram();
    /// An AppImage's runtime sets $APPIMAGE to the file and $APPDIR to its content. Programs started from
    /// there inherit both, so they count only if `executable` is in that content. Otherwise a program in a
    /// system folder came as a package if dpkg's records, the "*.list" files in `dpkgRecords`, list it.
    static Installation of(const char* appImageVariable, const char* appDirVariable,
                           const std::filesystem::path& executable, const std::filesystem::path& dpkgRecords);
};

/// What a feed's items are compared with.
UpdateTarget targetOf(const UpdateBuild& build, const Installation& installation);

/// Whether updates can be installed at all; otherwise they are only announced.
bool canInstall(const UpdateBuild& build, const Installation& installation);

}  // namespace kzq
