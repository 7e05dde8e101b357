#include "updates/su_updater.h"

#include <gtest/gtest.h>
#include <sodium.h>
#include <sys/resource.h>

#include <csignal>

#include "shelf.h"
#include "signer.h"
#include "test_folder.h"
#include "virtual_executor.h"

using namespace kzq;
using namespace kzq::test;
using namespace std::chrono_literals;
using Strings = std::vector<std::string>;

namespace {

constexpr const char* feedUrl = "https://maker/feed";
constexpr const char* packageUrl = "https://maker/new.AppImage";

struct Delegate : SUUpdaterDelegate {
    explicit Delegate(Strings& list) : events(list) {}
    void updaterWillRelaunchApplication(SUUpdater& updater) override {
        EXPECT_EQ(updater.status().state, UpdateState::ready);
        events.emplace_back("will relaunch");
    }
    Strings& events;
};

struct SUUpdaterTest : testing::Test {
    SUUpdaterTest() {
        std::filesystem::create_directory(folder / "apps");
        writeText(app, "old program");
        std::filesystem::permissions(app, std::filesystem::perms(0751));
        shelf.resources[packageUrl] = package;
        publish("0.2", packageUrl, package.size(), current.sign(package));
        start();
    }

    void publish(const std::string& version, const std::string& url, std::size_t length,
                 const std::string& signature) {
        shelf.resources[feedUrl] =
            "<rss><channel><item><description>Notes</description><enclosure version=\"" + version +
            "\" url=\"" + url + "\" length=\"" + std::to_string(length) + "\" edSignature=\"" + signature +
            "\"/></item></channel></rss>";
    }
    void start() { start(shelf); }
    void start(HttpClient& http) {
        const UpdateDesktop desktop = {
            [this](const std::filesystem::path& path) { return note("package " + path.filename().string()); },
            [this](const std::string& url) { return note("website " + url); },
            [this](const std::filesystem::path& path) {
                return note("relaunch " + path.filename().string());
            }};
        updater = std::make_shared<SUUpdater>(
            UpdaterEnvironment{executor, http, desktop, build, installation, folder / "apps"});
        updater->setFeedURL(feedUrl);
        updater->setDelegate(delegate);
        states.clear();
        updater->setObserver([this](const UpdateStatus& status) {
            EXPECT_TRUE(executor.onMainThread());
            if (states.empty() || states.back() != status.state) {
                states.push_back(status.state);
            }
        });
    }
    bool note(const std::string& event) {
        events.push_back(event);
        return desktopWorks;
    }
    UpdateState state() const { return updater->status().state; }
    UpdateState check() {
        updater->checkForUpdates();
        executor.advance(1min);
        return state();
    }
    UpdateState checkAndInstall() {
        EXPECT_EQ(check(), UpdateState::offered) << updater->status().reason;
        updater->install();
        executor.advance(1min);
        return state();
    }
    void expectUntouched(const std::string& what) {
        EXPECT_EQ(state(), UpdateState::failed) << what;
        EXPECT_NE(updater->status().reason, "") << what;
        EXPECT_EQ(readText(app), "old program") << what;
        EXPECT_FALSE(std::filesystem::exists(app.string() + ".part")) << what;
    }

    const std::string package = std::string(100'000, 'n') + "new program";
    TestFolder folder;
    const std::filesystem::path app = folder / "apps/loops.AppImage";
    VirtualExecutor executor;
    Shelf shelf{executor, 4};
    Signer current;
    Signer next;
    UpdateBuild build{"0.1.0", {current.key, next.key}, false, "https://maker/"};
    Installation installation{PackageKind::appImage, app};
    Strings events;
    bool desktopWorks = true;
    std::shared_ptr<Delegate> delegate = std::make_shared<Delegate>(events);
    std::vector<UpdateState> states;
    std::shared_ptr<SUUpdater> updater;
};

TEST_F(SUUpdaterTest, ReplacesTheAppImageAndKeepsThePreviousOne) {
    updater->checkForUpdates();
    updater->checkForUpdates();
    EXPECT_EQ(state(), UpdateState::checking);
    executor.advance(1min);
    EXPECT_EQ(shelf.asked, Strings{feedUrl}) << "one check at a time";
    const auto& status = updater->status();
    EXPECT_EQ(status, (UpdateStatus{UpdateState::offered, "0.2", "Notes", true, 0, 0, ""}));

    updater->install();
    updater->install();
    executor.advance(2s);
    EXPECT_EQ(state(), UpdateState::downloading);
    EXPECT_EQ(status.total, package.size());
    EXPECT_GT(status.received, 0U);
    EXPECT_LT(status.received, package.size());
    EXPECT_EQ(namesIn(folder / "apps"), (Strings{"loops.AppImage", "loops.AppImage.part"}));
    EXPECT_EQ(readText(app), "old program");
    executor.advance(1min);
    EXPECT_EQ(state(), UpdateState::ready) << status.reason;
    EXPECT_EQ(readText(app), package);
    EXPECT_EQ(readText(app.string() + ".previous"), "old program");
    EXPECT_EQ(std::filesystem::status(app).permissions(), std::filesystem::perms(0751));
    EXPECT_EQ(namesIn(folder / "apps"), (Strings{"loops.AppImage", "loops.AppImage.previous"}));
    EXPECT_EQ(shelf.asked.size(), 2U);

    EXPECT_FALSE(updater->cancel());
    EXPECT_EQ(check(), UpdateState::ready);
    updater->relaunch();
    EXPECT_EQ(events, (Strings{"will relaunch", "relaunch loops.AppImage"}));
    desktopWorks = false;
    delegate.reset();
    updater->relaunch();
    EXPECT_EQ(state(), UpdateState::ready) << "the delegate is gone, the program did not start";
    EXPECT_NE(status.reason, "");
}

TEST_F(SUUpdaterTest, RefusesWhatIsNotNewer) {
    for (const auto* version : {"0.1", "0.0.9"}) {
        publish(version, packageUrl, package.size(), current.sign(package));
        EXPECT_EQ(check(), UpdateState::upToDate) << version;
        updater->install();
        EXPECT_EQ(state(), UpdateState::upToDate);
    }
    EXPECT_EQ(shelf.asked, Strings(2, feedUrl));
}

TEST_F(SUUpdaterTest, InstallsNothingThatIsNotVerified) {
    const auto signature = current.sign(package);
    const struct {
        const char* what;
        std::string url;
        std::size_t length;
        std::string signature;
    } entries[] = {{"plain http", "http://maker/new.AppImage", package.size(), signature},
                   {"no length", packageUrl, 0, signature},
                   {"no signature", packageUrl, package.size(), ""},
                   {"more than a signature", packageUrl, package.size(), signature + "AAAA"}};
    for (const auto& entry : entries) {
        publish("0.2", entry.url, entry.length, entry.signature);
        check();
        expectUntouched(entry.what);
    }
    EXPECT_EQ(shelf.asked, Strings(4, feedUrl)) << "such a package is not even fetched";

    const Signer stranger;
    auto altered = package;
    altered[50'000] ^= 1;
    const struct {
        const char* what;
        std::string served;
        std::string signature;
    } packages[] = {{"a stranger's signature", package, stranger.sign(package)},
                    {"another package's signature", package, current.sign("else")},
                    {"one bit", altered, signature},
                    {"too short", package.substr(1), current.sign(package.substr(1))},
                    {"too long", package + "x", current.sign(package + "x")}};
    for (const auto& [what, served, made] : packages) {
        publish("0.2", packageUrl, package.size(), made);
        shelf.resources[packageUrl] = served;
        checkAndInstall();
        expectUntouched(what);
    }
    EXPECT_EQ(namesIn(folder / "apps"), Strings{"loops.AppImage"});
    shelf.resources[packageUrl] = package;
    publish("0.2", packageUrl, package.size(), next.sign(package));
    EXPECT_EQ(checkAndInstall(), UpdateState::ready) << "the next key counts as well";
}

TEST_F(SUUpdaterTest, OnlyTellsWhereItMayNotInstall) {
    const auto told = [this](const char* what) {
        shelf.asked.clear();
        events.clear();
        start();
        EXPECT_EQ(check(), UpdateState::offered) << what;
        EXPECT_FALSE(updater->status().installable) << what;
        EXPECT_EQ(updater->status().notes, "Notes");
        updater->install();
        executor.advance(1min);
        EXPECT_EQ(state(), UpdateState::idle) << what;
        EXPECT_EQ(events, Strings{"website https://maker/"}) << what;
        EXPECT_EQ(shelf.asked, Strings{feedUrl}) << what;
    };
    const auto usual = build;
    build.keys.clear();
    told("no key");
    build = usual;
    build.distribution = true;
    told("a distribution's");
    build = usual;
    installation = {};
    told("run from a build folder");
    EXPECT_FALSE(canInstall(UpdateBuild::ofThisProgram(), {PackageKind::appImage, app}))
        << "without settings a build has no key";
}

TEST_F(SUUpdaterTest, StopsWhereTheUserSaysSo) {
    updater->checkForUpdates();
    executor.advance(500ms);
    EXPECT_TRUE(updater->cancel());
    executor.advance(1min);
    EXPECT_EQ(state(), UpdateState::idle);

    check();
    updater->install();
    executor.advance(2500ms);
    EXPECT_EQ(state(), UpdateState::downloading);
    EXPECT_TRUE(updater->cancel());
    EXPECT_EQ(state(), UpdateState::idle);
    states.clear();
    executor.advance(1min);
    EXPECT_TRUE(states.empty()) << "nothing more is heard of it";
    EXPECT_EQ(namesIn(folder / "apps"), Strings{"loops.AppImage"});

    check();
    updater->install();
    executor.advance(4500ms);
    EXPECT_EQ(updater->status().received, package.size());
    EXPECT_TRUE(updater->cancel());
    executor.advance(1min);
    EXPECT_EQ(readText(app), "old program") << "also when all of it was there";
}

TEST_F(SUUpdaterTest, ObstaclesAndAFullDiskLeaveTheOldProgram) {
    const std::filesystem::path part = app.string() + ".part";
    const std::filesystem::path previous = app.string() + ".previous";
    writeText(folder / "target", "target");
    std::filesystem::create_symlink(folder / "target", part);
    checkAndInstall();
    EXPECT_EQ(state(), UpdateState::failed);
    EXPECT_EQ(readText(folder / "target"), "target");
    EXPECT_TRUE(std::filesystem::is_symlink(part));
    std::filesystem::remove(part);
    std::filesystem::create_directory(previous);
    checkAndInstall();
    expectUntouched("a folder in the previous one's place");
    std::filesystem::remove(previous);
    std::filesystem::create_hard_link(folder / "target", part);
    checkAndInstall();
    EXPECT_EQ(state(), UpdateState::failed);
    EXPECT_EQ(readText(folder / "target"), "target") << "a leftover with a second name";
    std::filesystem::remove(part);

    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit full = before;
    full.rlim_cur = 60'000;
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &full), 0);
    checkAndInstall();
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    expectUntouched("a full disk");
    EXPECT_EQ(namesIn(folder / "apps"), Strings{"loops.AppImage"});

    writeText(part, std::string(package.size() + 1, 'x'));
    std::filesystem::create_hard_link(app, previous);
    EXPECT_EQ(checkAndInstall(), UpdateState::ready);
    EXPECT_EQ(readText(app), package);
    EXPECT_EQ(readText(previous), "old program");
}

}  // namespace
