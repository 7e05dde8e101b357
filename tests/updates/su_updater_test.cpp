#include "updates/su_updater.h"

#include <gtest/gtest.h>
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
        publish("0.2");
        start();
    }

    FeedItem signedItem(const std::string& version, const std::string& url = packageUrl) const {
        auto item = itemFor(package, version, url);
        current.sign(item);
        return item;
    }
    void publish(const std::string& version) { publish({signedItem(version)}); }
    void publish(const std::vector<FeedItem>& items) { shelf.resources[feedUrl] = release::feedText(items); }
    void start() { start(shelf); }
    void start(HttpClient& http) {
        const UpdateDesktop desktop = {
            [this](const std::filesystem::path& path) { return note("package " + path.filename().string()); },
            [this](const std::string& url) { return note("website " + url); },
            [this](const std::filesystem::path& path) {
                return note("relaunch " + path.filename().string());
            }};
        updater = std::make_shared<SUUpdater>(
            UpdaterEnvironment{executor, http, desktop, build, installation, folder / "apps", folder / "home",
                               [this](const auto& program) {
                                   EXPECT_EQ(readText(program), package);
                                   EXPECT_EQ(readText(app), "old program") << "tried first";
                                   return selfCheck;
                               }});
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

    const std::string package = std::string(
                                    "\x7F"
                                    "ELF\2\1\1\0AI\2",
                                    11) +
                                std::string(100'000, 'n') + "new program";
    Result<std::string> selfCheck = std::string("7306 Loop Manager 0.2 starts");
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
        publish(version);
        EXPECT_EQ(check(), UpdateState::upToDate) << version;
        updater->install();
        EXPECT_EQ(state(), UpdateState::upToDate);
    }
    EXPECT_EQ(shelf.asked, Strings(2, feedUrl));
}

TEST_F(SUUpdaterTest, InstallsNothingThatIsNotVerified) {
    const Signer stranger;
    const std::pair<const char*, std::function<void(FeedItem&)>> changes[] = {
        {"plain http", [](auto& item) { item.url.erase(4, 1); }},
        {"no length", [](auto& item) { item.length = 0; }},
        {"no signature", [](auto& item) { item.signature.clear(); }},
        {"more than a signature", [](auto& item) { item.signature += "AAAA"; }},
        {"a stranger's signature", [&](auto& item) { stranger.sign(item); }},
        {"an older package as a new version", [](auto& item) { item.version = "99.0"; }},
        {"another length", [](auto& item) { ++item.length; }},
        {"another digest", [](auto& item) { item.sha256.front() ^= 1; }},
        {"of a channel", [this](auto& item) {
             item.channel = "beta";
             current.sign(item);
             item.channel.clear();
         }}};
    for (const auto& [what, change] : changes) {
        auto item = signedItem("0.2");
        change(item);
        publish({item});
        check();
        expectUntouched(what);
    }
    EXPECT_EQ(shelf.asked, Strings(std::size(changes), feedUrl)) << "such a package is not even fetched";

    auto altered = package;
    altered[50'000] ^= 1;
    publish("0.2");
    for (const auto& served : {altered, package.substr(1), package + "x"}) {
        shelf.resources[packageUrl] = served;
        checkAndInstall();
        expectUntouched(std::to_string(served.size()));
    }
    EXPECT_EQ(namesIn(folder / "apps"), Strings{"loops.AppImage"});
    shelf.resources[packageUrl] = package;
    auto item = itemFor(package, "0.2", packageUrl);
    next.sign(item);
    publish({item});
    EXPECT_EQ(checkAndInstall(), UpdateState::ready) << "the next key counts as well";
}

TEST_F(SUUpdaterTest, InstallsNoAppImageThatDoesNotWork) {
    for (const auto& said : {Result<std::string>(Trouble{Trouble::Kind::unverified, "it ends with an error"}),
                             Result<std::string>("7306 Loop Manager 0.1 starts")}) {
        selfCheck = said;
        checkAndInstall();
        expectUntouched("tried first");
        EXPECT_EQ(std::filesystem::status(app).permissions(), std::filesystem::perms(0751));
        EXPECT_EQ(namesIn(folder / "apps"), Strings{"loops.AppImage"});
    }
    const std::string script = "#!/bin/sh\necho 7306 Loop Manager 0.2 starts\n";
    shelf.resources[packageUrl] = script;
    auto item = itemFor(script, "0.2", packageUrl);
    current.sign(item);
    publish({item});
    checkAndInstall();
    expectUntouched("no AppImage");
}

TEST_F(SUUpdaterTest, WhatIsNotForUsHidesNothingAndNothingGoesBack) {
    auto beta = signedItem("0.6");
    beta.channel = "beta";
    auto elsewhere = signedItem("0.5");
    elsewhere.os = "macos";
    auto machine = signedItem("0.5");
    machine.os = "linux-riscv128";
    auto tooNew = signedItem("0.4");
    tooNew.minimumSystem = "99.1";
    const auto debian = signedItem("0.3", "https://maker/new.deb");
    publish({beta, elsewhere, machine, tooNew, debian, signedItem("0.2"),
             itemFor("x", "0.9", "https://maker/x.dmg")});
    EXPECT_EQ(checkAndInstall(), UpdateState::ready) << updater->status().reason;
    EXPECT_EQ(updater->status().version, "0.2");

    start();
    publish("0.1.5");
    EXPECT_EQ(check(), UpdateState::upToDate) << "older than what was installed, for the old program as well";
    build.channel = "beta";
    current.sign(beta);
    publish({signedItem("0.2"), beta});
    start();
    EXPECT_EQ(check(), UpdateState::offered);
    EXPECT_EQ(updater->status().version, "0.6");
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
    EXPECT_EQ(pinnedKeys(current.publicText() + ";" + next.publicText()),
              (std::vector{current.key, next.key}));
    auto item = signedItem("0.2");
    EXPECT_TRUE(isSignedByOne(pinnedKeys(current.publicText()), item));
    const auto broken = pinnedKeys(current.publicText() + ";no key");
    EXPECT_FALSE(broken.empty() || isSignedByOne(broken, item));
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
