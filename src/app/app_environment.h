#pragma once

#include <QtCore/qnamespace.h>

#include <QList>
#include <QUrl>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/bus/desktop_shell.h"
#include "device/finding.h"
#include "device/link.h"
#include "listening/audio_output.h"
#include "loops/frames.h"
#include "platform/asleep.h"
#include "platform/awake.h"
#include "platform/executor.h"
#include "platform/free_space.h"
#include "platform/new_file.h"
#include "platform/run_folder.h"
#include "troubleshooting/doctor.h"
#include "troubleshooting/report.h"
#include "ui/dialogs.h"
#include "ui/panels/product.h"
#include "updates/http_client.h"
#include "updates/su_updater.h"

namespace kzq {

class AboutWindow;

/// What the application runs on. Executor, dialogs and client outlive it; the functions are called on the
/// main thread unless noted otherwise.
struct AppEnvironment {
    Executor& executor;
    Dialogs& dialogs;
    HttpClient& http;
    Link link;  ///< KZQ7306::load was called before

    std::filesystem::path home;  ///< the user's home folder; empty for none
    Product product;
    std::string firmwareManifest;  ///< https address
    /// The https address of the program's own update feed, for a home folder.
    std::function<std::string(const std::filesystem::path& home)> feedAddress;
    // Of the program's own updates.
    UpdateDesktop desktop;
    UpdateBuild build;
    Installation installation;
    std::filesystem::path downloads;  ///< an existing folder that outlives the program
    /// Where backups go unless the user chooses another folder; it need not be there.
    std::filesystem::path backups = {};

    /// Converts an audio file and returns the path of the working copy. On a background thread; several may
    /// run at once.
    std::function<Result<std::string>(const std::string& path)> convert;
    /// The same with what there is of a file that is damaged. Empty: such files are refused only.
    std::function<Result<std::string>(const std::string& path)> salvage = {};
    /// How long an audio file is, by a quick look at it; nothing if that shows only in converting it. A
    /// failure is one that converting it would have. On a background thread. Empty: no length is known.
    std::function<Result<std::optional<Frames>>(const std::string& path)> lengthOf = {};
    /// Lets the user drag files out of the window, and returns whether they were taken. Runs an event loop.
    /// Empty: by the toolkit.
    std::function<bool(const QList<QUrl>& files)> dragFiles = {};
    /// Looks for why no pedal is available, for Absence, which the controller starts at launch. On a
    /// background thread. May be empty.
    std::function<std::vector<Finding>()> diagnose;
    /// On a background thread. Empty: there is no program that asks for the password.
    RootShell asRoot = {};
    /// Whether loops of any pedal were ever backed up; at once. Empty: not known.
    std::function<bool()> wasEverBackedUp = {};
    /// From now on one was. On a background thread. Empty: nobody remembers it.
    std::function<void()> backedUp = {};
    /// Keeps the computer awake while the window transfers. On a background thread. Empty: it may sleep.
    std::function<AwakeLock(AwakeFor)> keepAwake = {};
    /// What the doctor finds. On a background thread; may take seconds.
    std::function<std::vector<Finding>()> examine = {};
    /// What goes into a report but for the outcomes. On a background thread; may take seconds.
    std::function<TroubleReport()> report = {};
    /// The guide for users, to be opened; empty if it is not installed.
    std::filesystem::path guide = {};
    /// The modifier keys held now. Empty: the window system is asked.
    std::function<Qt::KeyboardModifiers()> modifiers;
    /// Saves a file under a free name. On a background thread.
    std::function<Result<std::filesystem::path>(const std::filesystem::path& folder, std::string_view name,
                                                std::string_view extension, ByteView bytes)>
        writeFile = [](const auto& folder, auto name, auto extension, auto bytes) {
            return writeNewFile(folder, name, extension, bytes);
        };
    /// On a background thread.
    FreeSpace freeSpace = kzq::freeSpace;
    /// What makes loops heard; outlives the application. Null: there is no such device.
    AudioOutput* sound = nullptr;
    /// What the desktop shows beside the window; outlives the application. Null: nothing.
    DesktopShell* shell = nullptr;
    /// The window of the About panel if it is on the screen already. Null: it is made at launch.
    std::shared_ptr<AboutWindow> splash = nullptr;
    /// How long the computer has slept in all. On any thread.
    std::function<Executor::Duration()> asleep = timeAsleep;
    /// Where copies of loops stay until the program ends; nothing if there is no place. On a background
    /// thread.
    std::function<std::optional<std::filesystem::path>()> runFolder = [] {
        return RunFolder::ofThisRun().path();
    };
    /// Asks the main loop to end; applicationWillTerminate follows from there.
    std::function<void()> quit;
};

}  // namespace kzq
