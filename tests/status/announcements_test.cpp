#include "ui/status/announcements.h"

#include <gtest/gtest.h>

#include "virtual_executor.h"

namespace kzq {
namespace {

using namespace std::chrono_literals;

class AnnouncementsTest : public testing::Test {
  protected:
    AnnouncementsTest() {
        announcements.setRest("at rest");
        announcements.setListeners({}, [this](const Announcement& told) { spoken.push_back(told.what); });
    }

    std::string line() const { return announcements.line().sentence; }
    void fails(const std::string& what, const std::string& job = {}) {
        announcements.tell(
            {.what = what, .failure = true, .job = job, .actionLabel = "Again", .action = [this] {
                 ++tries;
                 return possible;
             }});
    }
    void succeeds(const std::string& what, const std::string& job = {}) {
        announcements.tell({.what = what, .job = job});
    }
    void useLine() { announcements.use(announcements.line().number); }

    test::VirtualExecutor executor;
    Announcements announcements{executor, [] { return std::chrono::system_clock::time_point(); }};
    std::vector<std::string> spoken;
    int tries = 0;
    bool possible = true;
};

TEST_F(AnnouncementsTest, AFailureStaysUntilItIsSettled) {
    fails("no import", "import");
    succeeds("exported", "export");
    executor.advance(1h);
    EXPECT_EQ(line(), "no import") << "another job settles nothing";
    announcements.setWork("importing");
    EXPECT_EQ(line(), "importing");
    bool stopped = false;
    announcements.setWork("importing", "Stop", [&] { stopped = true; });
    EXPECT_EQ(announcements.line().actionLabel, "Stop");
    useLine();
    EXPECT_TRUE(stopped);
    announcements.setWork({});
    EXPECT_EQ(line(), "no import");
    announcements.tell({.what = "cancelled", .cancelled = true, .job = "import"});
    EXPECT_EQ(line(), "no import") << "a cancel is no success";
    succeeds("imported", "import");
    EXPECT_EQ(line(), "imported");

    fails("no erase");
    possible = false;
    useLine();
    EXPECT_EQ(line(), "no erase") << "nothing was done";
    possible = true;
    useLine();
    EXPECT_EQ(tries, 2);
    EXPECT_EQ(line(), "at rest");

    fails("seen");
    announcements.setListOpen(true);
    EXPECT_EQ(line(), "seen") << "the line keeps still under the list";
    announcements.setListOpen(false);
    EXPECT_EQ(line(), "at rest");

    announcements.tell({.what = "5 lost", .failure = true, .job = "import", .asked = {5}, .missing = {5}});
    announcements.tell({.what = "6 imported", .job = "import", .asked = {6}});
    EXPECT_EQ(line(), "5 lost") << "nobody tried that one again";
    announcements.tell({.what = "both imported", .job = "import", .asked = {5, 6}});
    EXPECT_EQ(line(), "both imported");
}

TEST_F(AnnouncementsTest, OfManyFailuresTheNewestIsShownAndTheOthersAreNotLost) {
    for (int i = 1; i <= 25; ++i) {
        fails("failure " + std::to_string(i));
    }
    EXPECT_EQ(announcements.list().size(), Announcements::kept);
    EXPECT_EQ(spoken.size(), 25U);
    EXPECT_EQ(line(), "failure 25");
    useLine();
    EXPECT_EQ(line(), "failure 24");
    const auto misses = [this](const std::string& what, std::set<unsigned> asked,
                               std::set<unsigned> missing) {
        announcements.tell({.what = what,
                            .failure = true,
                            .job = "import",
                            .asked = std::move(asked),
                            .missing = std::move(missing),
                            .action = [] { return true; }});
    };
    misses("1 and 3", {1, 2, 3}, {1, 3});
    fails("another job", "export");
    misses("3 again", {1, 3}, {3});
    misses("4", {4}, {4});
    for (const auto* const shown : {"4", "3 again", "another job", "failure 24"}) {
        EXPECT_EQ(line(), shown) << "what was tried again stands no longer, unlike the rest";
        useLine();
    }
    while (announcements.line().number != 0) {
        useLine();
    }
    EXPECT_EQ(line(), "at rest");
}

TEST_F(AnnouncementsTest, WhatTheProgramDoesByItselfGivesASuccessItsTime) {
    succeeds("saved");
    announcements.setBackground("downloading");
    executor.advance(9s);
    EXPECT_EQ(line(), "saved");
    executor.advance(1s);
    EXPECT_EQ(line(), "downloading");
    succeeds("exported");
    EXPECT_EQ(line(), "exported");
    executor.advance(10s);
    EXPECT_EQ(line(), "downloading");
}

TEST_F(AnnouncementsTest, ASuccessStaysTenSecondsAndAsLongAsItIsHeld) {
    succeeds("first");
    executor.advance(4s);
    succeeds("second");
    EXPECT_EQ(line(), "first");
    executor.advance(6s);
    EXPECT_EQ(line(), "second");
    announcements.setHeld(true);
    fails("failed");
    announcements.setWork("working");
    EXPECT_EQ(line(), "second") << "it is being read, or about to be pressed";
    executor.advance(1h);
    EXPECT_EQ(line(), "second");
    announcements.setWork({});
    announcements.setHeld(false);
    EXPECT_EQ(line(), "failed");
}

TEST_F(AnnouncementsTest, APreviewStandsBeforeEverythingAndLeavesNothing) {
    fails("no import", "import");
    announcements.setHeld(true);
    announcements.setPreview("4 of 5 files fit. Song is too long: 22:40",
                             "4 of 5 files fit, Song is too long", true);
    announcements.setPreview("4 of 5 files fit. Song is too long: 22:40",
                             "4 of 5 files fit, Song is too long", true);
    EXPECT_EQ(line(), "4 of 5 files fit. Song is too long: 22:40");
    EXPECT_EQ(announcements.line().kind, Announcements::Kind::work);
    EXPECT_EQ(spoken, (std::vector<std::string>{"no import", "4 of 5 files fit, Song is too long"}));
    announcements.setPreview({});
    EXPECT_EQ(line(), "no import");
}

}  // namespace
}  // namespace kzq
