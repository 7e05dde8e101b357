#pragma once

#include <memory>

#include "ui/panels/about.h"
#include "ui/panels/menu.h"
#include "ui/panels/progress.h"
#include "updates/su_updater.h"
#include "updates/windows/firmware_notice.h"
#include "updates/windows/firmware_updater.h"
#include "updates/windows/software_update.h"

namespace kzq {

/// The main window's menu and the windows beside it; made at launch, each null if that fails.
struct Panels {
    std::unique_ptr<Menu> menu;
    std::unique_ptr<About> about;
    std::unique_ptr<Progress> progress;
    std::unique_ptr<FirmwareUpdater> firmwareUpdater;
    std::unique_ptr<FirmwareNoticeWindow> firmwareNotice;
    std::shared_ptr<SUUpdater> sparkle;
    std::unique_ptr<SoftwareUpdate> softwareUpdate;
};

}  // namespace kzq
