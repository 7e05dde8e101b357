#pragma once

#include <string>
#include <vector>

#include "ui/application_controller.h"
#include "ui/dialogs.h"

namespace kzq::test {

/// Records, in one list with FakeDialogs, what the panels request.
using Calls = std::vector<std::string>;

class FakeController : public ApplicationController {
  public:
    explicit FakeController(Calls& calls) : calls_(calls) {}

    void openMainWindow() override { calls_.emplace_back("main window"); }
    void closeMenu() override { calls_.emplace_back("close menu"); }
    void openAbout() override { calls_.emplace_back("about"); }
    void checkForSoftwareUpdates() override { calls_.emplace_back("software"); }
    void openFirmwareUpdater() override { calls_.emplace_back("updater"); }
    void installFirmware() override { calls_.emplace_back("install"); }
    void installFirmware(const std::filesystem::path& image) override { calls_.push_back(image.string()); }
    void goToWebsite() override { calls_.emplace_back("website"); }

  private:
    Calls& calls_;
};

class FakeDialogs : public Dialogs {
  public:
    explicit FakeDialogs(Calls& calls) : calls_(calls) {}

    int run(const Alert& alert) override { return (calls_.push_back(alert.headline), alertFirstButton); }
    int run(const Alert& alert, bool& /*ticked*/) override { return run(alert); }
    Chosen chooseNewFile(const std::string& /*title*/, const std::string& name,
                         const FileKind& /*usual*/) override {
        return (calls_.push_back(name), chosen);
    }
    Chosen chooseFile(const std::string& /*title*/, const FileKind& allowed) override {
        calls_.push_back("choose " + (allowed.types.size() == 1 ? allowed.types.front() : "one of several"));
        return chosen;
    }
    Chosen chooseFolder(const std::string& /*title*/, const std::string& prompt) override {
        return (calls_.push_back(prompt), chosen);
    }
    bool openAddress(const std::string& url) override {
        calls_.push_back(url);
        return true;
    }
    bool openApplication(const std::filesystem::path& bundle) override {
        return (calls_.push_back(bundle.string()), true);
    }

    Chosen chosen;

  private:
    Calls& calls_;
};

}  // namespace kzq::test
