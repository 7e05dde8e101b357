#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "platform/fixed.h"

namespace kzq {

/// Why a fetch gave no body.
enum class HttpFailure {
    none,
    address,    ///< not an https address
    redirect,   ///< redirected to an address that is not https, or too often
    untrusted,  ///< the server could not prove its identity
    refused,    ///< a status other than 200, or 206 for the rest of a body
    tooLong,    ///< the body is longer than allowed
    cutShort,   ///< the connection ended before the body did
    network,    ///< no connection, or it broke
    timeout,
    cancelled,
    sink  ///< the receiver could not take the body
};

struct HttpLimits {
    std::uint64_t bytes = 0;                  ///< the longest body accepted
    std::chrono::milliseconds total{60'000};  ///< from the call to the last byte; 0 for no such limit
    /// The longest pause before the first piece and between two; 0 for no such limit.
    std::chrono::milliseconds silence{0};
};

struct HttpRequest {
    std::string url;
    HttpLimits limits;  ///< of the whole body, wherever it starts
    /// Called after each piece: bytes so far, from the body's start, and the whole length, or 0 if the server
    /// has not stated it.
    std::function<void(std::uint64_t received, std::uint64_t total)> progress;
    /// Ends the fetch soon after it becomes true; may be null. Outlives the call.
    const std::atomic<bool>* cancelled = nullptr;
    /// Receives the body piece by piece in place of `HttpResult::body`; return false to end the fetch.
    std::function<bool(std::span<const std::uint8_t>)> sink;
    /// Asks for the body from this byte on. A server need not comply: `restart`.
    std::uint64_t offset = 0;
    /// Called before the first piece of a body that starts at 0 in spite of `offset`.
    std::function<void()> restart = {};
};

struct HttpResult {
    HttpFailure failure = HttpFailure::none;
    std::string reason;  ///< for the log and, if need be, for the user
    std::vector<std::uint8_t> body;

    explicit operator bool() const { return failure == HttpFailure::none; }
};

/// Fetches resources over HTTPS. Success means a complete body from a verified server.
class HttpClient : Fixed {
  public:
    virtual ~HttpClient() = default;

    /// Blocks the calling thread; the request's functions are called on it. Several threads may fetch at
    /// once.
    virtual HttpResult fetch(const HttpRequest& request) = 0;
};

}  // namespace kzq
