#include "app/user_guide.h"

#include <system_error>

#include "app/app_parts.h"
#include "app/show_folder.h"
#include "words/words.h"

namespace kzq {

std::filesystem::path guideOf(const std::filesystem::path& program) {
    std::error_code error;
    auto folder = std::filesystem::canonical(program, error);
    while (!error && folder.has_relative_path()) {
        folder = folder.parent_path();
        for (const auto* const place : {"share/kzq7306/guide/guide.html", "packaging/guide/guide.html"}) {
            if (auto guide = folder / place; std::filesystem::exists(guide, error)) {
                return guide;
            }
        }
        error.clear();
    }
    return {};
}

void openUserGuide(AppParts& parts) {
    constexpr auto job = "guide";
    const auto& guide = parts.environment.guide;
    if (!guide.empty() && parts.environment.dialogs.openAddress(addressOf(guide))) {
        parts.teller.settle(job);
    } else if (!guide.empty()) {
        parts.teller.tell({.what = words("The user guide could not be opened"),
                           .detail = words("Open %1 in a browser.", guide.string()),
                           .failure = true},
                          job);
    } else {
        parts.teller.tell(
            {.what = words("The user guide is not installed"),
             .detail = words("The program looks for share/kzq7306/guide/guide.html below the folder it "
                             "is installed in. In the source it is doc/guide.md."),
             .failure = true},
            job);
    }
}

}  // namespace kzq
