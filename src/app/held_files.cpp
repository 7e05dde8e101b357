#include "app/held_files.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "slots/slot_drop_target.h"

namespace kzq {

namespace {

CarriedFile fileAt(const QUrl& url) {
    const auto name = url.fileName(QUrl::FullyDecoded);
    const auto dot = name.lastIndexOf(QLatin1Char('.'));
    return {.name = name.toStdString(),
            .shown = (dot > 0 ? name.left(dot) : name).toStdString(),
            .readable = isAudioFile(url),
            .length = {}};
}

}  // namespace

std::shared_ptr<HeldFiles> lookAt(const AppEnvironment& environment, const QList<QUrl>& urls,
                                  const std::function<void(const std::shared_ptr<HeldFiles>&)>& changed) {
    auto held = std::make_shared<HeldFiles>(HeldFiles{.urls = urls, .files = {}});
    std::ranges::transform(urls, std::back_inserter(held->files), fileAt);
    if (!environment.lengthOf) {
        held->complete = true;
        return held;
    }
    environment.executor.background(
        Priority::high, [&executor = environment.executor, weak = std::weak_ptr(held), urls, changed,
                         lengthOf = environment.lengthOf] {
            for (qsizetype i = 0; i <= urls.size() && !weak.expired(); ++i) {
                const bool last = i == urls.size();
                auto length = last || !isAudioFile(urls[i]) ? Result<std::optional<Frames>>(std::nullopt)
                                                            : lengthOf(urls[i].toLocalFile().toStdString());
                executor.main([weak, i, last, changed, length = std::move(length)] {
                    const auto still = weak.lock();
                    if (!still) {
                        return;
                    }
                    if (!last) {
                        auto& file = still->files[static_cast<std::size_t>(i)];
                        file.readable = file.readable && length.has_value();
                        file.length = length.value_or(std::nullopt);
                    }
                    still->complete = still->complete || last;
                    changed(still);
                });
            }
        });
    return held;
}

}  // namespace kzq
