#include <QDesktopServices>
#include <QIcon>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>

#include "app/app_delegate.h"
#include "app/app_environment.h"
#include "app/application.h"
#include "app/bus/bus_desktop_shell.h"
#include "app/bus/chooser_portal.h"
#include "app/bus/first_window.h"
#include "app/later/later_parts.h"
#include "app/main_window.h"
#include "app/program/hand_over.h"
#include "app/program/options.h"
#include "app/program/recorded_bus.h"
#include "app/program/relaunch.h"
#include "app/program/self_check_run.h"
#include "app/program/self_report.h"
#include "app/program/simulation_menu.h"
#include "app/program/splash.h"
#include "app/program/termination.h"
#include "app/start_up.h"
#include "app/user_guide.h"
#include "audio/convert.h"
#include "audio/converted_audio.h"
#include "audio/promised_length.h"
#include "device/kzq7306.h"
#include "device/libusb/diagnosis.h"
#include "device/libusb/libusb_port.h"
#include "device/simulator/simulation.h"
#include "operations/backup.h"
#include "operations/sentences.h"
#include "operations/told.h"
#include "platform/awake.h"
#include "platform/process.h"
#include "platform/qt_executor.h"
#include "platform/run_folder.h"
#include "troubleshooting/log_tail.h"
#include "troubleshooting/root_shell.h"
#include "ui/fonts.h"
#include "ui/key_guard.h"
#include "ui/languages.h"
#include "ui/panels/front_window.h"
#include "ui/qt_dialogs.h"
#include "updates/app_image.h"
#include "updates/authorities.h"
#include "updates/maker.h"

namespace {

using namespace kzq;

constexpr auto desktopEntry = "example.kzq.kzq7306";
constexpr int usageStatus = 2;
constexpr int fileStatus = 6;
/// How long to wait for the main thread after it was asked to end.
constexpr auto longestEnd = std::chrono::milliseconds(1500);

/// Workers may be blocked in a transfer that never ends, so the process does not wait for them.
[[noreturn]] void leave(int status) {
    RunFolder::ofThisRun().remove();
    std::_Exit(status);
}

/// On a thread of its own, once the program was asked to end.
void leaveSoon(Executor& executor) {
    executor.sleep(longestEnd);
    leave(EXIT_SUCCESS);
}

/// In English, as all that a terminal shows.
int complain(int status, const std::string& sentence) {
    std::cerr << "kzq7306: " << sentence << std::endl;
    return status;
}

QString text(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

bool openBundle(const std::filesystem::path& bundle) {
    return QProcess::startDetached("/usr/bin/open", {"-W", "-n", text(bundle)});
}

/// Those of a simulated pedal are never among the others.
std::filesystem::path backupFolder(bool simulated) {
    const auto documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return std::filesystem::path(documents.toStdString()) /
           (simulated ? "7306 simulated backups" : "7306 backups");
}

/// Where a package stays until the desktop's installer has read it.
std::filesystem::path downloadFolder() {
    for (const auto place : {QStandardPaths::DownloadLocation, QStandardPaths::TempLocation}) {
        const auto folder = QStandardPaths::writableLocation(place);
        std::error_code ignored;
        if (!folder.isEmpty() && std::filesystem::is_directory(folder.toStdString(), ignored)) {
            return folder.toStdString();
        }
    }
    return "/var/tmp";
}

bool open(const QUrl& address) {
    return QDesktopServices::openUrl(address);
}

UpdateDesktop desktop() {
    return {.openPackage = [](const auto& package) { return open(QUrl::fromLocalFile(text(package))); },
            .openWebsite = [](const auto& address) { return open(QUrl(QString::fromStdString(address))); },
            .relaunch =
                [](const auto& program) {
                    const bool started = relaunchAfterThis(program);
                    if (started) {
                        QCoreApplication::quit();
                    }
                    return started;
                }};
}

Product productOf(const ProgramOptions& options) {
    return {.version = KZQ_VERSION, .website = websiteAddress(options.host)};
}

AppEnvironment environmentOf(const ProgramOptions& options, Executor& executor, Dialogs& dialogs,
                             HttpClient& http, AudioOutput& sound, DesktopShell& shell,
                             const std::shared_ptr<AboutWindow>& splash,
                             const std::shared_ptr<LogTail>& log) {
    auto build = UpdateBuild::ofThisProgram();
    return {
        .executor = executor,
        .dialogs = dialogs,
        .http = http,
        .link = &KZQ7306::looper,
        .home = homeFolder(),
        .product = productOf(options),
        .firmwareManifest = firmwareManifestAddress(options.host),
        .feedAddress = [host = options.host](const auto& home) { return softwareFeedAddress(home, host); },
        .desktop = desktop(),
        .build = std::move(build),
        .installation = Installation::ofThisProgram(),
        .downloads = downloadFolder(),
        .backups = backupFolder(options.simulate),
        .convert = &convertedFile,
        .salvage = &salvagedFile,
        .lengthOf = [](const std::string& path) { return promisedLength(path); },
        .diagnose = options.simulate ? decltype(AppEnvironment::diagnose)() : [] { return diagnose(); },
        .asRoot = rootShell(),
        .wasEverBackedUp = options.simulate ? decltype(AppEnvironment::wasEverBackedUp)()
                                            : [] { return wasEverBackedUp(homeFolder()); },
        .backedUp =
            options.simulate ? decltype(AppEnvironment::backedUp)() : [] { rememberBackup(homeFolder()); },
        .keepAwake = options.simulate ? nullptr : keepAwake,
        .examine = [simulate = options.simulate] { return examined(simulate); },
        .report = [simulate = options.simulate, log] { return selfReport(simulate, *log); },
        .guide = guideOf("/proc/self/exe"),
        .modifiers = {},
        .sound = &sound,
        .shell = &shell,
        .splash = splash,
        .quit = &QCoreApplication::quit};
}

/// Other starts come to this window, which begins with the files of its own.
void receive(FirstWindow& first, const std::shared_ptr<AppDelegate>& delegate,
             const ProgramOptions& options) {
    first.setReceiver([weak = std::weak_ptr(delegate)](const auto& files) {
        if (const auto self = weak.lock()) {
            self->comeForward();
            self->openFiles(files);
        }
    });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &first, &FirstWindow::release);
    delegate->openFiles(filesOf(options));
}

int runWindow(Application& application, FirstWindow& first, const ProgramOptions& options,
              QtExecutor& executor, const std::string& certificates, simulator::Simulation* simulation,
              const std::shared_ptr<LogTail>& log) {
    std::unique_ptr<UsbPort> bus;
    if (simulation == nullptr) {
        bus = std::make_unique<LibusbPort>(options.readsInFlight);
    }
    UsbPort& port = simulation != nullptr ? static_cast<UsbPort&>(simulation->port()) : *bus;
    std::weak_ptr<AppDelegate> teller;
    RecordedBus recorded;
    if (!options.record.empty()) {
        auto made = recordedBus(executor, port, options.record, [&teller](const Trouble& trouble) {
            if (const auto delegate = teller.lock()) {
                delegate->parts().teller.tell(toldRecordingEnd(trouble));
            }
        });
        if (!made) {
            return complain(fileStatus, recordingSentence(made.error()));
        }
        recorded = std::move(*made);
        keepLog(log, options.verbose, recorded.note);
    }
    KZQ7306::load({.executor = executor,
                   .usb = recorded.port ? *recorded.port : port,
                   .systemMinorVersion = systemMinorVersion,
                   .arrivalPatience = std::chrono::seconds(3)});
    const auto splash = showSplash(productOf(options));
    quitOnSignals(executor, [&executor] { leaveSoon(executor); });
    const auto later = loadLaterParts();
    if (!later) {
        leave(complain(EXIT_FAILURE, later.error()));
    }
    Application::setWindowIcon(QIcon(":/pictures/Icon.svg"));
    MainWindow window;
    KeyGuard keys(executor);
    application.setKeyGuard(&keys);
    QtDialogs dialogs(keys, [&window] { return frontWindow(&window); });
    ChooserPortal portal(QDBusConnection::sessionBus(), qgetenv("QT_QPA_PLATFORMTHEME"));
    dialogs.setDesktopChooser([&portal] { return portal.missing(); });
    QObject::connect(&portal, &ChooserPortal::ended, [&dialogs] { dialogs.desktopChooserEnded(); });
    const auto http = later->web(certificates);
    const auto sound = later->sound();
    BusDesktopShell shell(QDBusConnection::sessionBus(), "7306 Loop Manager", desktopEntry);
    const auto delegate = std::make_shared<AppDelegate>(
        environmentOf(options, executor, dialogs, *http, *sound, shell, splash, log), window);
    teller = delegate;
    application.setDelegate(delegate.get());
    QObject::connect(&application, &QCoreApplication::aboutToQuit, [&executor] {
        executor.background(Priority::high, [&executor] { leaveSoon(executor); });
    });
    if (simulation != nullptr && !options.unplugged) {
        simulation->pedal().plugIn();
    }
    delegate->applicationDidFinishLaunching();
    receive(first, delegate, options);
    if (simulation != nullptr) {
        showSimulation(window, simulation->pedal(), !options.unplugged);
    }
    const int status = Application::exec();
    delegate->applicationWillTerminate();
    leave(status);
}

/// Qt aborts if there is no display; the user gets a message instead.
bool hasScreen() {
    return std::ranges::any_of(std::array{"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"},
                               [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

int run(const ProgramOptions& options, int argc, char** argv) {
    if (options.selfCheck) {
        return runSelfCheck(argc, argv, hasScreen());
    }
    const auto log = std::make_shared<LogTail>();
    keepLog(log, options.verbose, {});
    std::error_code unknown;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", unknown);
    startOthersUnpackedAs(program);
    if (handOverToRenamedBundle({.home = homeFolder(), .program = program, .open = openBundle})) {
        return EXIT_SUCCESS;
    }
    setUserDefaults(usualSettings(homeFolder()));
    if (!hasScreen()) {
        return complain(EXIT_FAILURE, "no display was found. kzq7306ctl works without one.");
    }
    const auto certificates = authoritiesIn(options.authorities);
    if (!certificates) {
        return complain(fileStatus, "cannot read " + options.authorities.string());
    }
    const bool records = !options.record.empty();
    const Start start{records ? QList<QUrl>() : filesOf(options), startTokens()};
    Application application(argc, argv);
    Application::setApplicationName("kzq7306");
    Application::setApplicationDisplayName("");  // leaves window titles as they are
    Application::setDesktopFileName(desktopEntry);
    Application::setQuitOnLastWindowClosed(false);  // the splash closes before the window opens
    QtCatalogue::use(QLocale::system());
    FirstWindow first(QDBusConnection::sessionBus(), nameOnBus(options));
    if (isHandedOver(first, start)) {  // which has the pedal, and cannot record any more
        return records ? complain(usageStatus, "close the window that is open, then record.") : EXIT_SUCCESS;
    }
    registerFonts();
    RunFolder::ofThisRun().sweep();
    QtExecutor executor;
    std::unique_ptr<simulator::Simulation> simulation;
    if (options.simulate) {
        auto made =
            simulator::Simulation::make(executor, {options.simulatedFolder, options.faults, convertedAudio});
        if (!made) {
            const bool badFault = made.error().kind == Trouble::Kind::badFault;
            return complain(badFault ? usageStatus : fileStatus, simulationSentence(made.error()));
        }
        simulation = std::move(*made);
    }
    return runWindow(application, first, options, executor, *certificates, simulation.get(), log);
}

}  // namespace

int main(int argc, char** argv) {
    if (!occupyStandardStreams()) {
        std::_Exit(fileStatus);
    }
    ignoreWriteSignals();
    returnFreedLoops();
    const auto parsed = parseProgramOptions({argv + std::min(argc, 1), argv + argc});
    if (parsed.options) {
        return run(*parsed.options, argc, argv);
    }
    (parsed.status == EXIT_SUCCESS ? std::cout : std::cerr) << parsed.text << std::flush;
    return parsed.status;
}
