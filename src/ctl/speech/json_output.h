#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "ctl/speech/exit_codes.h"
#include "ctl/speech/output.h"
#include "operations/conversion_note.h"

namespace kzq::ctl {

/// Of everything that --json prints; doc/json.md describes it. It grows when a reader of the old form could
/// no longer understand the new one.
inline constexpr int jsonSchema = 1;

/// One line, or indented; bytes that are not UTF-8 are replaced.
std::string jsonText(const nlohmann::json& value, bool indented = false);

/// Prints `object` with its "schema".
void printJson(Output& output, nlohmann::json object, bool indented = false);

/// "verdict"; and what else there is to say, in "flaw" and "missing", "gain" and "silenced".
nlohmann::json noteJson(const ConversionNote& note);

/// The "finished" event of a command that ends with this code and, unless it is ok, for this reason.
nlohmann::json finishedJson(ExitCode code, std::string_view reason, const std::string& message);

}  // namespace kzq::ctl
