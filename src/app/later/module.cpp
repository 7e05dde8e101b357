#include <QSslSocket>
#include <utility>

#include "app/later/later_parts.h"
#include "listening/sound/qt_audio_output.h"
#include "updates/qt_http_client.h"

namespace {

constexpr kzq::LaterParts parts{
    .sound = []() -> std::unique_ptr<kzq::AudioOutput> { return std::make_unique<kzq::QtAudioOutput>(); },
    .web = [](std::string authorities) -> std::unique_ptr<kzq::HttpClient> {
        return std::make_unique<kzq::QtHttpClient>(std::move(authorities));
    },
    .hasTls = &QSslSocket::supportsSsl};

}  // namespace

extern "C" Q_DECL_EXPORT const kzq::LaterParts* kzqLaterParts();

const kzq::LaterParts* kzqLaterParts() {
    return &parts;
}
