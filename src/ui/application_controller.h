#pragma once

#include <filesystem>

namespace kzq {

/// What the panels and rows ask of the application. Main thread.
class ApplicationController {
  public:
    ApplicationController() = default;
    ApplicationController(const ApplicationController&) = delete;
    ApplicationController& operator=(const ApplicationController&) = delete;
    ApplicationController(ApplicationController&&) = delete;
    ApplicationController& operator=(ApplicationController&&) = delete;
    virtual ~ApplicationController() = default;

    virtual void openMainWindow() = 0;
    virtual void closeMenu() = 0;
    virtual void openAbout() = 0;
    virtual void checkForSoftwareUpdates() = 0;
    virtual void openFirmwareUpdater() = 0;
    /// Installs the downloaded firmware.
    virtual void installFirmware() = 0;
    /// Installs a firmware file from disk.
    virtual void installFirmware(const std::filesystem::path& image) = 0;
    virtual void goToWebsite() = 0;
};

}  // namespace kzq
