#pragma once

#include <string>
#include <vector>

#include "gallery/bystanders.h"

namespace kzq::test {

/// Records, in one list with FakeDialogs, what the panels request.
using Calls = std::vector<std::string>;

class FakeController : public gallery::StillApplication {
  public:
    explicit FakeController(Calls& calls) : calls_(calls) {}

    using StillApplication::installFirmware;
    void openMainWindow() override { calls_.emplace_back("main window"); }
    void openFirmwareUpdater() override { calls_.emplace_back("updater"); }
    void installFirmware(const std::filesystem::path& image) override { calls_.push_back(image.string()); }

  private:
    Calls& calls_;
};

class FakeDialogs : public gallery::StillDialogs {
  public:
    explicit FakeDialogs(Calls& calls) : calls_(calls) {}

    Chosen chooseFile(const std::string& /*title*/, const FileKind& allowed) override {
        calls_.push_back("choose " + (allowed.types.size() == 1 ? allowed.types.front() : "one of several"));
        return chosen;
    }

    Chosen chosen;

  private:
    Calls& calls_;
};

}  // namespace kzq::test
