#include "ctl/commands/conversion_progress.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/speech/format.h"
#include "ctl/speech/json_output.h"
#include "loops/facts.h"

namespace kzq::ctl {

std::function<void(std::uint64_t frames)> conversionProgress(const Context& context, std::string what,
                                                             std::string source) {
    if (!context.options.json) {
        return [&context, what = std::move(what)](std::uint64_t frames) {
            context.output.progress(what + ": " + clockText(frames / framesPerSecond));
        };
    }
    constexpr std::uint64_t between = 10 * std::uint64_t{framesPerSecond};
    return [&context, source = std::move(source), next = between](std::uint64_t frames) mutable {
        if (frames < next) {
            return;
        }
        next = frames + between;
        printJson(context.output,
                  {{"event", "progress"}, {"action", "convert"}, {"source", source}, {"samples", frames}});
    };
}

}  // namespace kzq::ctl
