#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "release/site.h"
#include "updates/update_signature.h"

namespace kzq::release {

/// What a program that is built with `keys` makes of a site: a line for each list, in words for the maker.
struct Inspection {
    bool sound = true;  ///< whatever is listed would be offered and installed
    std::vector<std::string> lines;
};

/// Reads the site with the programs' own code, but from its folder. `scratch` is an existing folder for what
/// they download. With `start`, AppImages are started with --self-check. Blocks.
Inspection inspect(const Site& site, const std::vector<UpdateKey>& keys, const std::filesystem::path& scratch,
                   bool start);

}  // namespace kzq::release
