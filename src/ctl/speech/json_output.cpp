#include "ctl/speech/json_output.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace kzq::ctl {

std::string jsonText(const nlohmann::json& value, bool indented) {
    return value.dump(indented ? 2 : -1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void printJson(Output& output, nlohmann::json object, bool indented) {
    object["schema"] = jsonSchema;
    output.json(jsonText(object, indented));
}

nlohmann::json finishedJson(const Explanation& explanation) {
    nlohmann::json details{{"event", "finished"},
                           {"exit", static_cast<int>(explanation.code)},
                           {"message", explanation.sentence}};
    if (explanation.code != ExitCode::ok) {
        details["trouble"] = troubleName(explanation);
    }
    return details;
}

}  // namespace kzq::ctl
