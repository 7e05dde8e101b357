#pragma once

#include <string>

#include "updates/http_client.h"

namespace kzq {

/// HTTPS through Qt Network. A fetch runs an event loop in the calling thread, so that thread is a worker, or
/// the main thread of a program without a window. Needs a QCoreApplication to exist.
///
/// Only https addresses are requested, even after redirects; at most five redirects are followed. Nothing is
/// kept between fetches: no cookies, no cache, no connection.
class QtHttpClient : public HttpClient {
  public:
    /// `authorities`, certificates in PEM, if any, are trusted instead of the system's own.
    explicit QtHttpClient(std::string authorities = {});

    HttpResult fetch(const HttpRequest& request) override;

  private:
    const std::string authorities_;
};

}  // namespace kzq
