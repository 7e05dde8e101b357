#include "app/set_up.h"

#include "app/app_parts.h"
#include "device/kzq7306.h"
#include "troubleshooting/doctor.h"
#include "ui/qt_words.h"

namespace kzq {

namespace {

constexpr auto importJob = "import";

/// What is set up, and how, for an alert.
Alert alertFor(const Trouble& trouble, bool installs) {
    const auto told = toldMissingRule(trouble);
    Alert alert{.headline = words("%1: %2.", told.what, told.why), .finePrint = {}, .buttons = {}};
    for (const auto& line : setUpFiles(trouble)) {
        alert.finePrint += line + "\n";
    }
    if (installs) {
        alert.finePrint += words("This sets it up, with your password: %1", trouble.remedy);
        alert.buttons = {{words("Set Up")}, {words("Not Now")}};
    } else {
        alert.finePrint += words("Run in a terminal: %1", trouble.remedy);
        alert.buttons = {{words("OK")}, {words("Cancel"), false}};
    }
    return alert;
}

/// One attempt. Its parts are used on the main thread only, while the window is there.
struct Attempt {
    AppParts& parts;
    Trouble trouble;
    TypedNames loops;

    void notInstalled(const std::string& why) const {
        parts.teller.tell({.what = words("The system rule was not installed"),
                           .why = why,
                           .detail = words("Run in a terminal: %1", trouble.remedy),
                           .failure = true},
                          importJob, settingUp(parts, trouble, loops));
    }

    void installed(const std::vector<Finding>& findings) const {
        if (const auto missing = missingSetUp(findings)) {
            parts.teller.tell(
                {.what = words("The system rule is installed, but something else is in the way"),
                 .detail =
                     inTurn(missing->words, missing->remedy.empty() ? "" : words("Run: %1", missing->remedy)),
                 .failure = true},
                importJob, settingUp(parts, *missing, loops));
            return;
        }
        const auto looper = parts.environment.link();
        const bool connected = looper && !looper->disconnected();
        parts.teller.tell(
            {.what = connected ? words("Loops can be imported now") : words("The system rule is installed")},
            importJob, {words("Try again"), [&everything = parts, names = loops] {
                            return selectAgain(everything, names);
                        }});
    }
};

void install(const std::shared_ptr<Attempt>& attempt) {
    const auto& environment = attempt->parts.environment;
    const auto work = attempt->parts.teller.newWork();
    attempt->parts.teller.working(work, words("Setting up\u2026"));
    const auto post = attempt->parts.teller.poster();
    const SetUp order{environment.executor, environment.asRoot, environment.examine};
    environment.executor.background(Priority::standard,
                                    [post, attempt, work, order, trouble = attempt->trouble] {
                                        post([attempt, work, found = setUpSystem(order, trouble)] {
                                            if (found) {
                                                attempt->installed(*found);
                                            } else {
                                                attempt->notInstalled(found.error().words);
                                            }
                                            attempt->parts.teller.idle(work);
                                        });
                                    });
}

}  // namespace

Remedy settingUp(AppParts& parts, const Trouble& trouble, const TypedNames& loops) {
    return {words("Set up"), [attempt = std::make_shared<Attempt>(Attempt{parts, trouble, loops})] {
                const auto& environment = attempt->parts.environment;
                const bool installs =
                    environment.asRoot != nullptr && !setUpCommands(attempt->trouble).empty();
                const auto post = attempt->parts.teller.poster();
                const auto answer = environment.dialogs.run(alertFor(attempt->trouble, installs));
                if (installs && answer == alertFirstButton) {
                    post([attempt] { install(attempt); });  // the window may have gone under the alert
                }
                return true;
            }};
}

}  // namespace kzq
