#include <system_error>

#include "app/app_delegate.h"
#include "app/start_up.h"

namespace kzq {

void AppDelegate::applicationWillTerminate() {
    const auto staged = selectedExportSlots_;
    for (const auto& [slot, info] : staged) {
        std::error_code ignored;
        std::filesystem::remove(info.source, ignored);
    }
}

void AppDelegate::updaterWillRelaunchApplication(SUUpdater& /*updater*/) {
    writeBundleNameMarker(environment_.home);
}

void AppDelegate::quit() {
    environment_.quit();
}

}  // namespace kzq
