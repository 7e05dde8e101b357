#pragma once

#include <deque>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/executor.h"
#include "slots/slot_delegate.h"
#include "slots/slot_field_editor.h"
#include "ui/application_controller.h"
#include "ui/dialogs.h"
#include "updates/http_client.h"

namespace kzq::gallery {

// Stand-ins for what the widgets need around them; they do nothing, since nobody clicks in a picture.

/// Work waits until requested and then runs here; delayed work never runs.
class StillExecutor : public Executor {
  public:
    void main(Task task) override { tasks_.push_back(std::move(task)); }
    void mainAfter(Duration /*delay*/, Task /*task*/) override {}
    void background(Priority /*priority*/, Task task) override { tasks_.push_back(std::move(task)); }
    void service(std::string /*label*/, Task /*step*/) override {}
    TimePoint now() const override { return {}; }
    void sleep(Duration /*duration*/) override {}
    void wait(std::unique_lock<std::mutex>& /*lock*/, Condition& /*changed*/,
              const std::function<bool()>& /*ready*/) override {}

    void settle() {
        while (!tasks_.empty()) {
            const auto task = std::move(tasks_.front());
            tasks_.pop_front();
            task();
        }
    }

  private:
    std::deque<Task> tasks_;
};

class StillApplication : public ApplicationController {
  public:
    void openMainWindow() override {}
    void closeMenu() override {}
    void openAbout() override {}
    void checkForSoftwareUpdates() override {}
    void openFirmwareUpdater() override {}
    void installFirmware() override {}
    void installFirmware(const std::filesystem::path& /*image*/) override {}
    void goToWebsite() override {}
};

class StillDialogs : public Dialogs {
  public:
    int run(const Alert& /*alert*/) override { return 0; }
    int run(const Alert& /*alert*/, bool& /*ticked*/) override { return 0; }
    Chosen chooseNewFile(const std::string& /*title*/, const std::string& /*name*/,
                         const FileKind& /*usual*/) override {
        return {};
    }
    Chosen chooseFile(const std::string& /*title*/, const FileKind& /*allowed*/) override { return {}; }
    Chosen chooseFolder(const std::string& /*title*/, const std::string& /*prompt*/) override { return {}; }
    bool openAddress(const std::string& /*url*/) override { return true; }
    bool openApplication(const std::filesystem::path& /*bundle*/) override { return false; }
};

/// Returns the same body for every address.
class StillHttp : public HttpClient {
  public:
    explicit StillHttp(std::string_view body = {}) : body_(body.begin(), body.end()) {}
    HttpResult fetch(const HttpRequest& /*request*/) override { return {HttpFailure::none, {}, body_}; }

  private:
    std::vector<std::uint8_t> body_;
};

/// Lends the rows their editor.
class StillRows : public SlotDelegate {
  public:
    void checkboxStateChangedForImportSlot(Slot& /*slot*/) override {}
    void buttonClickedForExportSlot(Slot& /*slot*/) override {}
    void nameEditingBeganForSlot(Slot& /*slot*/) override {}
    void nameEditingEndedForSlot(Slot& /*slot*/) override {}
    void exportAboutToBeRemoved(Slot& /*slot*/) override {}
    void exportRemoved(Slot& /*slot*/) override {}
    void playClickedForSlot(Slot& /*slot*/) override {}
    void compareClickedForSlot(Slot& /*slot*/) override {}
    Slot* slotNumber(std::uint8_t /*number*/, std::int32_t /*context*/) override { return nullptr; }
    void slotReceivedDroppedURLs(Slot& /*slot*/, const QList<QUrl>& /*urls*/) override {}
    SlotFieldEditor* windowWillReturnFieldEditor(QWidget* /*window*/, QObject* /*object*/) override {
        return &editor_;
    }

  private:
    SlotFieldEditor editor_;
};

}  // namespace kzq::gallery
