#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "ui/dialogs.h"
#include "ui/key_guard.h"

class QFileDialog;

namespace kzq {

/// The dialogs users see: our own alert panel, the desktop's choosers and its opener. A chooser begins where
/// the last one was accepted, the first one in the Music folder.
class QtDialogs : public Dialogs {
  public:
    /// `keys` outlives it. `parent` returns the window that a dialog belongs to, or null; called for each
    /// dialog.
    QtDialogs(KeyGuard& keys, std::function<QWidget*()> parent);

    int run(const Alert& alert) override;
    int run(const Alert& alert, bool& ticked) override;
    Chosen chooseFile(const std::string& title, const FileKind& allowed) override;
    Chosen chooseFolder(const std::string& title, const std::string& prompt) override;
    Chosen chooseNewFile(const std::string& title, const std::string& name, const FileKind& usual) override;
    bool openAddress(const std::string& url) override;
    bool openApplication(const std::filesystem::path& bundle) override;

  private:
    QFileDialog* chooser(const std::string& title);
    QString choose(QFileDialog* chooser);

    KeyGuard& keys_;
    std::function<QWidget*()> parent_;
    QString folder_;  ///< where the last chooser was accepted; empty before
};

}  // namespace kzq
