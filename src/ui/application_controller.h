#pragma once

#include <filesystem>

#include "platform/fixed.h"

namespace kzq {

/// What the panels and rows ask of the application. Main thread.
class ApplicationController : Fixed {
  public:
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
