#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace kzq {

/// Why a fetch gave no body.
enum class HttpFailure {
    none,
    address,    ///< not an https address
    redirect,   ///< sent to something that is not https, or too often
    untrusted,  ///< the server could not prove who it is
    refused,    ///< an answer other than 200
    tooLong,    ///< the body is longer than allowed
    cutShort,   ///< the connection ended before the body did
    network,    ///< no connection, or it broke
    timeout,
    cancelled,
    sink  ///< the receiver of the body could not take it
};

struct HttpLimits {
    std::uint64_t bytes = 0;                  ///< the longest body that is taken
    std::chrono::milliseconds total{60'000};  ///< from the call to the last byte
    /// The longest pause between two arrivals; 0 for no limit of its own.
    std::chrono::milliseconds silence{0};
};

struct HttpRequest {
    std::string url;
    HttpLimits limits;
    /// Told after each piece: bytes so far, and the whole length or 0 when the server has not said it.
    std::function<void(std::uint64_t received, std::uint64_t total)> progress;
    /// Ends the fetch soon after it becomes true; may be null. Outlives the call.
    const std::atomic<bool>* cancelled = nullptr;
    /// Takes the body piece by piece instead of `HttpResult::body`; false ends the fetch.
    std::function<bool(std::span<const std::uint8_t>)> sink;
};

struct HttpResult {
    HttpFailure failure = HttpFailure::none;
    std::string reason;  ///< for the log and, in a pinch, for a person
    std::vector<std::uint8_t> body;

    explicit operator bool() const { return failure == HttpFailure::none; }
};

/// Fetches resources over HTTPS. A success is a whole body that came with status 200 from a verified server.
class HttpClient {
  public:
    HttpClient() = default;
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;
    HttpClient(HttpClient&&) = delete;
    HttpClient& operator=(HttpClient&&) = delete;
    virtual ~HttpClient() = default;

    /// Blocks the calling thread; the request's functions are called on it. Several threads may fetch at
    /// once.
    virtual HttpResult fetch(const HttpRequest& request) = 0;
};

}  // namespace kzq
