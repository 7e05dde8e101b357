#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>

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

    /// `missing`: whether nothing shows the desktop's choosers, where that is left to another program. Then
    /// the toolkit's own take their place, and they do for one that is open when `desktopChooserEnded` is
    /// called.
    void setDesktopChooser(std::function<bool()> missing) { desktopChooserMissing_ = std::move(missing); }
    void desktopChooserEnded();

  private:
    using Dress = std::function<void(QFileDialog& chooser)>;
    QString choose(const std::string& title, const Dress& dress);
    std::optional<QStringList> ask(const std::string& title, const Dress& dress, bool desktops);
    QStringList answer(QFileDialog& chooser);

    KeyGuard& keys_;
    std::function<QWidget*()> parent_;
    QString folder_;  ///< where the last chooser was accepted; empty before
    std::function<bool()> desktopChooserMissing_;
    QPointer<QFileDialog> desktops_;  ///< that the desktop shows now
    bool ended_ = false;              ///< with its program
};

}  // namespace kzq
