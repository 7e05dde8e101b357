#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "platform/fixed.h"
#include "platform/result.h"
#include "release/certificates.h"

namespace kzq::release {

/// Serves a folder over HTTPS, whole files and the rest of one, on a thread of its own, from its start to its
/// end. For rehearsals: everything is read into memory.
class SiteServer : Fixed {
  public:
    struct Order {
        std::filesystem::path folder;
        Certificates certificates;
        std::string address = "127.0.0.1";
        std::uint16_t port = 0;            ///< 0: a free one
        std::uint64_t bytesPerSecond = 0;  ///< of each answer; 0: no limit
        std::function<void(const std::string& line)> requested =
            {};  ///< on the server's thread; may be empty
    };

    /// Failure: badAddress.
    static Result<std::unique_ptr<SiteServer>> start(Order order);
    ~SiteServer();

    /// "127.0.0.1:4433"
    const std::string& host() const { return host_; }

  private:
    class Thread;

    SiteServer();

    std::unique_ptr<Thread> thread_;
    std::string host_;
};

/// The file that an address' path names; nothing for one outside the folder. Any thread.
std::filesystem::path fileFor(const std::filesystem::path& folder, const std::string& path);

}  // namespace kzq::release
