#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "updates/http_client.h"
#include "virtual_executor.h"

namespace kzq::test {

/// A web server with fixed answers, each delivered in so many pieces, and the end, a second apart.
struct Shelf : HttpClient {
    Shelf(VirtualExecutor& clock, std::size_t number) : executor(clock), pieces(number) {}

    HttpResult fetch(const HttpRequest& request) override {
        asked.push_back(request.url);
        const auto found = resources.find(request.url);
        if (found == resources.end()) {
            return {HttpFailure::refused, "status 404", {}};
        }
        HttpResult result;
        const std::vector<std::uint8_t> whole(found->second.begin(), found->second.end());
        const std::size_t step = (whole.size() + pieces - 1) / pieces;
        for (std::size_t at = 0; at < whole.size(); at += step) {
            executor.sleep(std::chrono::seconds(1));
            if (*request.cancelled) {
                return {HttpFailure::cancelled, "cancelled", {}};
            }
            const auto piece = std::span(whole).subspan(at, std::min(step, whole.size() - at));
            if (!request.sink) {
                result.body.insert(result.body.end(), piece.begin(), piece.end());
            } else if (!request.sink(piece)) {
                return {HttpFailure::sink, "sink", {}};
            }
            if (request.progress) {
                request.progress(at + piece.size(), whole.size());
            }
        }
        executor.sleep(std::chrono::seconds(1));
        return result;
    }

    VirtualExecutor& executor;
    std::size_t pieces;
    std::map<std::string, std::string> resources;
    std::vector<std::string> asked;
};

}  // namespace kzq::test
