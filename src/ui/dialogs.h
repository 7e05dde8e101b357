#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/fixed.h"
#include "ui/alert.h"

namespace kzq {

/// The files that a chooser shows.
struct FileKind {
    std::string name;                ///< "Audio files"
    std::vector<std::string> types;  ///< extensions without the dot, in lower case
};

/// The answer to an open panel.
constexpr int panelOk = 1;
constexpr int panelContinue = -1002;
constexpr int panelCancelled = 0;

/// Everything that is modal or leaves the program. Main thread. `run` and the choosers run an event loop:
/// after them, use only values taken before, as anything else may have been destroyed. The title of a chooser
/// says what is chosen for what: "Choose an audio file for Loop 5".
class Dialogs : Fixed {
  public:
    struct Chosen {
        int answer = panelCancelled;
        std::filesystem::path path;  ///< empty if cancelled
    };

    virtual ~Dialogs() = default;

    /// Shows `alert` until it is answered: alertFirstButton, alertSecondButton or alertThirdButton.
    virtual int run(const Alert& alert) = 0;
    /// The same for one with a check box: `ticked` is its state, before and after.
    virtual int run(const Alert& alert, bool& ticked) = 0;
    /// One existing file of an allowed type.
    virtual Chosen chooseFile(const std::string& title, const FileKind& allowed) = 0;
    /// The chosen folder itself. `prompt` is the word on the accepting button.
    virtual Chosen chooseFolder(const std::string& title, const std::string& prompt) = 0;
    /// Where to save a file that would be called `name`. It may exist: then the user agreed to replace it.
    /// Others than of the `usual` kind can be shown.
    virtual Chosen chooseNewFile(const std::string& title, const std::string& name,
                                 const FileKind& usual) = 0;
    /// Opens a web address in the user's browser. False: there is none.
    virtual bool openAddress(const std::string& url) = 0;
    /// Starts the program at `bundle`, detached; returns whether that succeeded.
    virtual bool openApplication(const std::filesystem::path& bundle) = 0;
};

}  // namespace kzq
