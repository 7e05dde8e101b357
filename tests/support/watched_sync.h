#pragma once

#include <string>
#include <vector>

namespace kzq::test {

/// What has been synced since the last call, under the names of that moment: a file that has none yet ends in
/// " (deleted)". This program's fsync is the one that writes it down.
std::vector<std::string> takeSyncs();

}  // namespace kzq::test
