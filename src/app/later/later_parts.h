#pragma once

#include <memory>
#include <string>
#include <tl/expected.hpp>

#include "listening/audio_output.h"
#include "updates/http_client.h"

namespace kzq {

/// What the program needs only when its first window is on the screen, and that window would have to wait
/// for: loading the libraries behind it takes longer than painting. They come with a module,
/// kzq7306-later.so. Nothing in it may depend on what the program has set, such as the language: the module
/// has its own.
struct LaterParts {
    std::unique_ptr<AudioOutput> (*sound)();                      ///< a QtAudioOutput
    std::unique_ptr<HttpClient> (*web)(std::string authorities);  ///< a QtHttpClient
    bool (*hasTls)();                                             ///< whether the web can be used
};

/// Loads the module; it stays. Or why it cannot be loaded, as a sentence. Needs a QCoreApplication.
tl::expected<LaterParts, std::string> loadLaterParts();

}  // namespace kzq
