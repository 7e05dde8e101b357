#include "ctl/speech/json_output.h"

#include <nlohmann/json.hpp>

namespace kzq::ctl {

std::string jsonText(const nlohmann::json& value, bool indented) {
    return value.dump(indented ? 2 : -1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void printJson(Output& output, nlohmann::json object, bool indented) {
    object["schema"] = jsonSchema;
    output.json(jsonText(object, indented));
}

nlohmann::json noteJson(const ConversionNote& note) {
    nlohmann::json json{{"verdict", note.verdict}};
    if (note.flaw) {
        json["flaw"] = troubleName(note.flaw->kind);
        json["missing"] =
            note.flaw->words.empty() ? nlohmann::json() : nlohmann::json(std::stoull(note.flaw->words));
    }
    if (note.gain != 1) {
        json["gain"] = gainDecibels(note);
    }
    if (note.silenced) {
        json["silenced"] = true;
    }
    return json;
}

nlohmann::json finishedJson(ExitCode code, std::string_view reason, const std::string& message) {
    nlohmann::json details{{"event", "finished"}, {"exit", static_cast<int>(code)}, {"message", message}};
    if (code != ExitCode::ok) {
        details["trouble"] = reason;
    }
    return details;
}

}  // namespace kzq::ctl
