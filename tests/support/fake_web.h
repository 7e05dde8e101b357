#pragma once

#include <map>
#include <string>
#include <vector>

#include "updates/http_client.h"

namespace kzq::test {

/// The maker's server: bodies by the last part of their address; all else fails.
struct FakeWeb : HttpClient {
    HttpResult fetch(const HttpRequest& request) override {
        requested.push_back(request.url);
        const auto body = bodies.find(request.url.substr(request.url.rfind('/') + 1));
        if (body == bodies.end()) {
            return {HttpFailure::network, "no connection", {}};
        }
        HttpResult result{HttpFailure::none, {}, {body->second.begin(), body->second.end()}};
        if (request.sink) {
            result.failure = request.sink(result.body) ? HttpFailure::none : HttpFailure::sink;
            result.body.clear();
        }
        return result;
    }
    std::map<std::string, std::string> bodies;
    std::vector<std::string> requested;
};

}  // namespace kzq::test
