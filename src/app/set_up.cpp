#include "app/set_up.h"

#include "app/app_parts.h"
#include "device/kzq7306.h"

namespace kzq {

namespace {

constexpr auto job = "import";

/// For a shell that is root's.
std::string withoutSudo(std::string commands) {
    constexpr std::string_view sudo = "sudo ";
    for (auto at = commands.find(sudo); at != std::string::npos; at = commands.find(sudo, at)) {
        commands.erase(at, sudo.size());
    }
    return commands;
}

Alert alertFor(const Trouble& trouble, bool installs) {
    const auto told = toldMissingRule(trouble);
    Alert alert{.headline = told.what + ": " + told.why + ".",
                .finePrint = (installs ? "This sets it up, with your password: " : "Run in a terminal: ") +
                             trouble.remedy,
                .buttons = {}};
    if (installs) {
        alert.buttons = {{"Set Up"}, {"Not Now"}};
    } else {
        alert.buttons = {{"OK"}, {"Cancel", false}};
    }
    return alert;
}

/// One attempt. Its parts are used on the main thread only, while the window is there.
struct Attempt {
    AppParts& parts;
    Trouble trouble;
    TypedNames loops;

    Remedy again() const { return settingUp(parts, trouble, loops); }

    void notInstalled(const std::string& why) const {
        parts.teller.tell({.what = "The system rule was not installed",
                           .why = why,
                           .detail = "Run in a terminal: " + trouble.remedy,
                           .failure = true},
                          job, again());
    }

    /// `obstacle` is what is found now.
    void installed(const std::string& obstacle) const {
        if (!obstacle.empty()) {
            parts.teller.tell({.what = "The system rule is installed, but something else is in the way",
                               .detail = obstacle,
                               .failure = true},
                              job, again());
            return;
        }
        const auto looper = parts.environment.link();
        const bool connected = looper && !looper->disconnected();
        parts.teller.tell(
            {.what = connected ? "Loops can be imported now" : "The system rule is installed"}, job,
            {"Try again", [&everything = parts, names = loops] { return selectAgain(everything, names); }});
    }
};

void install(const std::shared_ptr<Attempt>& attempt) {
    const auto& environment = attempt->parts.environment;
    const auto work = attempt->parts.teller.newWork();
    attempt->parts.teller.working(work, "Setting up\u2026");
    const auto post = attempt->parts.teller.poster();
    environment.executor.background(Priority::standard, [post, attempt, work, asRoot = environment.asRoot,
                                                         diagnose = environment.diagnose,
                                                         commands = withoutSudo(attempt->trouble.remedy)] {
        const auto done = asRoot(commands);
        const auto obstacle = done && diagnose ? obstacleLine(diagnose()) : std::string();
        post([attempt, work, done, obstacle] {
            attempt->parts.teller.idle(work);
            if (done) {
                attempt->installed(obstacle);
            } else {
                attempt->notInstalled(done.error().words);
            }
        });
    });
}

}  // namespace

Remedy settingUp(AppParts& parts, const Trouble& trouble, const TypedNames& loops) {
    return {"Set up", [attempt = std::make_shared<Attempt>(Attempt{parts, trouble, loops})] {
                const auto& environment = attempt->parts.environment;
                const bool installs = environment.asRoot != nullptr && !attempt->trouble.remedy.empty();
                const auto post = attempt->parts.teller.poster();
                const auto answer = environment.dialogs.run(alertFor(attempt->trouble, installs));
                if (installs && answer == alertFirstButton) {
                    post([attempt] { install(attempt); });  // the window may have gone under the alert
                }
                return true;
            }};
}

}  // namespace kzq
