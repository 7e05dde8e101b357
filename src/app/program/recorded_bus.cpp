#include "app/program/recorded_bus.h"

#include <utility>

#include "device/recorder/recording_port.h"
#include "device/recorder/recordings.h"

namespace kzq {

Result<RecordedBus> recordedBus(Executor& executor, UsbPort& port, const std::filesystem::path& file,
                                std::function<void(const Trouble&)> ended) {
    const auto endedThere = [&executor, ended = std::move(ended)](const Trouble& trouble) {
        executor.main([ended, trouble] { ended(trouble); });
    };
    return recorder::begin(executor, file, "kzq7306 " KZQ_VERSION, endedThere)
        .map([&port](const std::shared_ptr<recorder::SessionRecorder>& recorder) {
            return RecordedBus{std::make_unique<recorder::RecordingPort>(port, recorder),
                               [recorder](std::string_view line) { recorder->note(line); }};
        });
}

}  // namespace kzq
