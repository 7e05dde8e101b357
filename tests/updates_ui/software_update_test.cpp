#include "updates/windows/software_update.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

#include "shelf.h"
#include "signer.h"
#include "updates/windows/lamp_bar.h"

using namespace kzq;
using namespace kzq::test;
using namespace std::chrono_literals;

namespace {

/// The widget of that name in `window`, which must exist.
template <typename Kind>
Kind& control(QWidget& window, const char* name) {
    auto* const found = window.findChild<Kind*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
}

struct SoftwareUpdateTest : testing::Test {
    SoftwareUpdateTest() {
        QFile file(folder.filePath("loops.AppImage"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        shelf.resources["https://maker/new.AppImage"] = package;
        publish("0.2");
        start({"0.1.0", {signer.key}, false, "https://maker/"});
    }
    ~SoftwareUpdateTest() override { executor.endJobs(); }

    void publish(const std::string& version) {
        auto item = itemFor(package, version, "https://maker/new.AppImage");
        item.notes = "<ul><li>New</ul>";
        signer.sign(item);
        shelf.resources["https://maker/feed"] = release::feedText({item});
    }
    void start(UpdateBuild build) {
        const UpdateDesktop desktop = {[](const std::filesystem::path&) { return true; },
                                       [this](const std::string& url) { return note(url); },
                                       [this](const std::filesystem::path&) { return note("relaunch"); }};
        const std::filesystem::path home = folder.path().toStdString();
        updater = std::make_shared<SUUpdater>(
            UpdaterEnvironment{executor,
                               shelf,
                               desktop,
                               std::move(build),
                               {PackageKind::appImage, home / "loops.AppImage"},
                               home,
                               home,
                               [](const auto&) { return "7306 Loop Manager 0.2 starts"; }});
        updater->setFeedURL("https://maker/feed");
        update = SoftwareUpdate::softwareUpdate({updater, "0.1.0", [this] { return busy; }});
    }
    bool note(const std::string& event) {
        events.push_back(event);
        return true;
    }
    QWidget& window() const { return update->window(); }
    QString headline() const { return control<QLabel>(window(), "headline").text(); }
    QString detail() const { return control<QLabel>(window(), "detail").text(); }
    /// The labels of the visible buttons.
    QStringList buttons() const {
        QStringList words;
        for (const auto* name : {"acceptButton", "cancelButton"}) {
            auto& button = control<QAbstractButton>(window(), name);
            words += button.isVisibleTo(&window()) ? QStringList(button.text()) : QStringList();
        }
        return words;
    }
    void check() {
        update->checkForUpdates();
        executor.advance(10s);
    }

    const std::string package = std::string(
                                    "\x7F"
                                    "ELF\2\1\1\0AI\2",
                                    11) +
                                std::string(1'999'989, 'n');
    Signer signer;
    QTemporaryDir folder;
    VirtualExecutor executor;
    Shelf shelf{executor, 2};
    bool busy = false;
    std::vector<std::string> events;
    std::shared_ptr<SUUpdater> updater;
    std::unique_ptr<SoftwareUpdate> update;
};

}  // namespace

TEST_F(SoftwareUpdateTest, LeadsFromTheOfferToTheRestart) {
    EXPECT_FALSE(window().isVisible());
    update->checkForUpdates();
    EXPECT_TRUE(window().isVisible()) << "the user sees that the question was heard";
    EXPECT_EQ(buttons(), QStringList{"Cancel"});
    executor.advance(10s);
    EXPECT_EQ(
        headline(),
        u"7306 Loop Manager 0.2 is now available\u2014you have 0.1.0. Would you like to install it now?");
    EXPECT_EQ(control<QTextEdit>(window(), "notes").toPlainText(), u"\u2022\tNew");
    EXPECT_EQ(buttons(), (QStringList{"Install", "Later"}));

    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    EXPECT_EQ(window().focusWidget(), &control<QWidget>(window(), "acceptButton"));
    QTest::keyClick(&window(), Qt::Key_Return);
    executor.advance(1s);
    EXPECT_EQ(detail(), u"1 MB of 2 MB \u2013 50 %");
    EXPECT_EQ(control<LampBar>(window(), "bar").doubleValue(), 0.5);
    EXPECT_EQ(buttons(), QStringList{"Cancel"});
    QTest::keyClick(window().focusWidget(), Qt::Key_Return);
    QTest::keyClick(window().focusWidget(), Qt::Key_Space);
    EXPECT_EQ(buttons(), QStringList{"Cancel"}) << "a key too many cancels nothing";
    executor.advance(10s);
    EXPECT_EQ(buttons(), (QStringList{"Restart", "Later"})) << headline().toStdString();

    busy = true;
    QTest::keyClick(&window(), Qt::Key_Return);
    EXPECT_NE(detail(), QString()) << "a pedal at work is not left alone";
    EXPECT_TRUE(events.empty());
    busy = false;
    update->accept();
    EXPECT_EQ(events, std::vector<std::string>{"relaunch"});
}

TEST_F(SoftwareUpdateTest, SaysWhyThereIsNothingToInstall) {
    publish("0.1.0");
    check();
    EXPECT_EQ(headline(), "You're up to date!");
    EXPECT_EQ(buttons(), QStringList{"OK"});
    shelf.resources.erase("https://maker/feed");
    check();
    EXPECT_EQ(headline(), "The program could not be updated.");
    EXPECT_TRUE(detail().size() > 1 && detail().front().isUpper() && detail().endsWith('.'))
        << detail().toStdString();

    publish("0.2");
    start({"0.1.0", {}, false, "https://maker/"});
    check();
    EXPECT_EQ(buttons(), (QStringList{"Website", "Later"})) << "unsigned, it is only announced";
    update->accept();
    EXPECT_EQ(events, std::vector<std::string>{"https://maker/"});
}
