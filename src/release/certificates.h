#pragma once

#include <string>

#include "platform/result.h"

namespace kzq::release {

/// An authority for one rehearsal, and a server's certificate that it signed, all in PEM.
struct Certificates {
    std::string authority;
    std::string certificate;
    std::string key;

    /// Made by the program openssl for `subject`, as in "IP:127.0.0.1"; valid for two days. Blocks.
    static Result<Certificates> make(const std::string& subject);
};

}  // namespace kzq::release
