#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/fixed.h"
#include "release/certificates.h"
#include "test_folder.h"

namespace kzq::test {

/// A certificate authority made for this run, and a server certificate that it signed for `subject`, as in
/// "IP:127.0.0.1".
struct TestAuthority : release::Certificates {
    explicit TestAuthority(const std::string& subject = "IP:127.0.0.1")
        : Certificates(make(subject).value()) {}
    /// One for all tests.
    static const TestAuthority& usual() {
        static const TestAuthority authority;
        return authority;
    }
};

/// The server's answer to a request for a path.
struct Answer {
    std::string body = {};
    int status = 200;
    std::vector<std::pair<std::string, std::string>> headers = {};
    std::optional<std::size_t> cutAfter = {};  ///< only so many bytes of the body
    bool stall = false;                        ///< then nothing more, instead of closing
    bool mute = false;                         ///< nothing at all
    bool stateLength = true;
    bool ranges = false;  ///< gives the rest of the body when asked for that
};

/// An HTTPS server on a thread of its own, on a free port of 127.0.0.1. Members may be called from any
/// thread.
class TlsServer : Fixed {
  public:
    explicit TlsServer(const TestAuthority& authority = TestAuthority::usual());
    ~TlsServer();

    std::string url(const std::string& path) const;
    void set(const std::string& path, Answer answer);
    /// The paths requested since the last call; "path from 10" for the rest of a body.
    std::vector<std::string> takeRequests();

  private:
    class Thread;

    std::unique_ptr<Thread> thread_;
};

}  // namespace kzq::test
