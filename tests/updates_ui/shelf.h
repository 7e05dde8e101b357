#pragma once

#include <map>
#include <string>

#include "updates/http_client.h"
#include "virtual_executor.h"

namespace kzq::test {

/// A web server of fixed answers, each of which comes in two pieces a second apart.
struct Shelf : HttpClient {
    explicit Shelf(VirtualExecutor& clock) : executor(clock) {}

    HttpResult fetch(const HttpRequest& request) override {
        const auto found = resources.find(request.url);
        if (found == resources.end()) {
            return {HttpFailure::refused, "status 404", {}};
        }
        const std::vector<std::uint8_t> whole(found->second.begin(), found->second.end());
        const auto half = static_cast<std::ptrdiff_t>(whole.size() / 2);
        HttpResult result;
        for (const auto& piece : {std::vector(whole.begin(), whole.begin() + half),
                                  std::vector(whole.begin() + half, whole.end())}) {
            executor.sleep(std::chrono::seconds(1));
            if (*request.cancelled) {
                return {HttpFailure::cancelled, "cancelled", {}};
            }
            if (request.sink) {
                request.sink(piece);
            } else {
                result.body.insert(result.body.end(), piece.begin(), piece.end());
            }
            received += piece.size();
            if (request.progress) {
                request.progress(received, whole.size());
            }
        }
        received = 0;
        return result;
    }

    VirtualExecutor& executor;
    std::map<std::string, std::string> resources;
    std::uint64_t received = 0;
};

}  // namespace kzq::test
