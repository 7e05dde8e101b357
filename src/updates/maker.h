#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kzq {

// The maker's web server. Its host is set when the program is built (KZQ_HOST).

/// The https address of `path`, which starts with '/'.
std::string makerAddress(std::string_view path);
/// The home page.
std::string websiteAddress();
std::string firmwareManifestAddress();
/// The feed of the program itself: the staging feed when `home` holds "Desktop/com.kzq.7306.staging", a
/// folder or a file, else the normal one, as without a home.
std::string softwareFeedAddress(const std::filesystem::path& home);

/// `name`, percent-encoded as one path component, in place of the last path component of `address`.
std::string addressBeside(std::string_view address, std::string_view name);

}  // namespace kzq
