#pragma once

#include <QWidget>
#include <functional>

#include "ui/dialogs.h"
#include "ui/key_guard.h"

namespace kzq {

/// The dialogs users see: our own alert panel, the desktop's choosers and its opener.
class QtDialogs : public Dialogs {
  public:
    /// `keys` outlives it. `parent` returns the window that a dialog belongs to, or null; called for each
    /// dialog.
    QtDialogs(KeyGuard& keys, std::function<QWidget*()> parent);

    int run(const Alert& alert) override;
    int run(const Alert& alert, bool& ticked) override;
    Chosen chooseFile(const FileTypes& allowed) override;
    Chosen chooseFolder(const std::string& prompt) override;
    Chosen chooseNewFile(const std::string& name) override;
    void openAddress(const std::string& url) override;
    bool openApplication(const std::filesystem::path& bundle) override;

  private:
    KeyGuard& keys_;
    std::function<QWidget*()> parent_;
};

}  // namespace kzq
