#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kzq {

// The maker's web server. Its host is set when the program is built (KZQ_HOST); a `host` that is not empty,
// with a port if need be, replaces it.

/// The https address of `path`, which starts with '/'.
std::string makerAddress(std::string_view path, std::string_view host = {});
/// The home page.
std::string websiteAddress(std::string_view host = {});
std::string firmwareManifestAddress(std::string_view host = {});
/// The feed of the program itself.
enum class Feed { normal, staging };
std::string softwareFeedAddress(Feed feed, std::string_view host = {});
/// The staging feed if `home` has "Desktop/com.kzq.7306.staging", a
/// folder or a file; else, or without a home, the normal one.
std::string softwareFeedAddress(const std::filesystem::path& home, std::string_view host = {});

/// `name`, percent-encoded as one path component, in place of the last path component of `address`.
std::string addressBeside(std::string_view address, std::string_view name);

}  // namespace kzq
