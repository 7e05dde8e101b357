#include "updates/firmware_updates.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/digest.h"
#include "platform/log.h"
#include "signer.h"
#include "tls_server.h"
#include "updates/qt_http_client.h"
#include "virtual_executor.h"

using namespace kzq;
using namespace kzq::test;
using namespace std::chrono_literals;
using Strings = std::vector<std::string>;

namespace {

constexpr const char* manifestPath = "/firmware/_.json";
constexpr const char* imagePath = "/firmware/pedal-1.06.bin";

std::string md5(const std::string& text) {
    return MD5String({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}).value_or("");
}

/// The updater on a virtual clock, a real server and a pedal of three variables.
struct FirmwareUpdatesTest : testing::Test {
    FirmwareUpdatesTest() {
        server.set(imagePath, {image});
        offer("1.06");
        start();
    }

    void start() { start(client); }
    void start(HttpClient& http) {
        FirmwareEnvironment environment{executor,
                                        http,
                                        [this] { return blank; },
                                        [this] { return version; },
                                        "0.1.0",
                                        home.path(),
                                        {server.url(manifestPath), keys},
                                        [this](const std::string& text) {
                                            EXPECT_TRUE(executor.onMainThread());
                                            headline = text;
                                            notes.clear();
                                        },
                                        [this](const std::string& text) { notes += text; }};
        environment.server.silence = silence;
        updates = FirmwareUpdates::updater(std::move(environment));
    }
    /// Publishes a signed entry.
    void publish(const Signer& signer, std::uint64_t serial,
                 const std::function<void(FirmwareEntry&)>& after = {}) {
        auto entry = release::describe("pedal-1.06.bin", bytesOf(image), "1.06", {});
        entry.serial = serial;
        ASSERT_TRUE(signer.sign(entry));
        if (after) {
            after(entry);
        }
        server.set(manifestPath, {release::withEntry("", entry).value()});
    }

    std::string entry(const std::string& offered) const {
        return R"({"name":"pedal-1.06.bin","hash":")" + md5(image) + R"(","size":)" +
               std::to_string(image.size()) + R"(,"version":")" + offered + R"(","changes":["One","Two"]})";
    }
    void offer(const std::string& offered) { server.set(manifestPath, {"[" + entry(offered) + "]"}); }
    /// Runs one check; returns what it requested from the server.
    Strings check() {
        updates->check();
        executor.settle();
        EXPECT_FALSE(updates->busy());
        return server.takeRequests();
    }
    std::string offered() const { return updates->update().value_or("").filename(); }

    const std::string image = std::string(12'345, 'f') + "end";
    TestFolder home;
    const std::filesystem::path cache = home / "Library/Application Support/com.kzq.7306/updates/firmware";
    const std::filesystem::path file = cache / "pedal-1.06.bin";
    TlsServer server;
    QtHttpClient client{TestAuthority::usual().authority};
    VirtualExecutor executor;
    std::vector<UpdateKey> keys;
    std::chrono::milliseconds silence = 20s;
    bool blank = false;
    std::optional<std::string> version = "1.05";
    std::string headline;
    std::string notes;
    std::shared_ptr<FirmwareUpdates> updates;
};

TEST_F(FirmwareUpdatesTest, OffersWhatIsNewerThanThePedalAndAsksNoMoreThanItNeeds) {
    const Strings nothing;
    const Strings manifestOnly = {manifestPath};
    const Strings both = {manifestPath, imagePath};
    version.reset();
    EXPECT_EQ(check(), nothing) << "no pedal";
    version = "1.5";
    EXPECT_EQ(check(), nothing) << "a pedal of unknown version";
    version = "1.06";
    EXPECT_EQ(check(), manifestOnly) << "as new as the offer";
    EXPECT_EQ(offered(), "");

    version = "1.05";
    EXPECT_EQ(check(), both);
    EXPECT_EQ(updates->update(), file);
    EXPECT_EQ(readText(file), image);
    EXPECT_EQ(headline, "KZQ7306 1.6 is now available\u2014you have 1.5. Would you like to install it now?");
    EXPECT_EQ(notes, "\u2022\tOne\n\u2022\tTwo");
    EXPECT_EQ(check(), manifestOnly) << "a good file is not fetched again";

    version = "1.06";
    EXPECT_EQ(check(), manifestOnly);
    EXPECT_EQ(offered(), "") << "taken back from a pedal that is up to date";
    offer("1.04");
    blank = true;
    version.reset();
    EXPECT_EQ(check(), manifestOnly);
    EXPECT_EQ(updates->update(), file) << "an empty pedal is offered the newest entry, however old";
    EXPECT_EQ(headline, "KZQ7306 1.4 is now available\u2014you have 0.0. Would you like to install it now?");
    updates->clearUpdate();
    EXPECT_EQ(offered(), "");
    EXPECT_EQ(namesIn(cache), Strings{"pedal-1.06.bin"});
}

TEST_F(FirmwareUpdatesTest, ABadManifestOffersNothingAndTakesNothingBack) {
    const auto with = [this](const std::string& key, const std::string& value) {
        std::string text = "[" + entry("1.06") + "]";
        const auto begin = text.find('"' + key + "\":") + key.size() + 3;
        return text.replace(begin, text.find(',', begin) - begin, value);
    };
    const auto good = entry("1.06");
    Strings bad = {"",
                   "[",
                   "[[]]",
                   "[" + good + ",{}]",
                   std::string(200'000, '['),
                   std::string(2'000'000, ' ') + "[" + good + "]"};
    const std::pair<const char*, Strings> badValues[] = {
        {"version", {R"("1.5")", R"("0.00")", "1.06"}},
        {"name", {R"("..")", R"("../firmware/pedal-1.06.bin")", R"("/etc/passwd")", R"("a\u0000b")"}},
        {"hash", {R"("")", '"' + md5("else") + '"'}},
        {"size", {"0", "-1", "50000001", "12348.5", "18446744073709551617", "12347"}}};
    for (const auto& [key, values] : badValues) {
        for (const auto& value : values) {
            bad.push_back(with(key, value));
        }
    }
    check();
    ASSERT_EQ(offered(), "pedal-1.06.bin");
    std::filesystem::remove(file);
    for (const auto& manifest : bad) {
        server.set(manifestPath, {manifest});
        check();
        EXPECT_EQ(offered(), "pedal-1.06.bin") << manifest.substr(0, 200);
        EXPECT_EQ(namesIn(cache), Strings{}) << manifest.substr(0, 200);
    }
    EXPECT_EQ(namesIn(home.path()), Strings{"Library"}) << "nothing escaped from the cache";
}

TEST_F(FirmwareUpdatesTest, HandsOutOnlyWhatIsStillTheOfferedImage) {
    EXPECT_EQ(updates->offeredImage(), std::nullopt);
    check();
    EXPECT_EQ(updates->offeredImage(), FirmwareImage(image.begin(), image.end()));
    for (const auto& content : {image.substr(1), std::string(image.size(), 'w')}) {
        writeText(file, content);
        EXPECT_EQ(updates->offeredImage(), std::nullopt) << "changed after it was verified";
        check();
        EXPECT_NE(updates->offeredImage(), std::nullopt) << "fetched again";
    }
    updates->clearUpdate();
    EXPECT_EQ(updates->offeredImage(), std::nullopt);
}

/// Something else happens during the download of the image.
struct Meanwhile : HttpClient {
    explicit Meanwhile(HttpClient& client) : real(client) {}
    HttpResult fetch(const HttpRequest& request) override {
        auto result = real.fetch(request);
        if (request.url.ends_with(imagePath)) {
            event();
        }
        return result;
    }
    HttpClient& real;
    std::function<void()> event;
};

TEST_F(FirmwareUpdatesTest, OffersNothingToAPedalThatWasFlashedInTheMeantime) {
    Meanwhile meanwhile(client);
    start(meanwhile);
    for (const auto& after : {std::optional<std::string>("1.06"), std::optional<std::string>()}) {
        std::filesystem::remove(file);
        version = "1.05";
        meanwhile.event = [&] {
            version = after;
            if (!after) {
                updates->clearUpdate();
            }
        };
        EXPECT_EQ(check(), (Strings{manifestPath, imagePath}));
        EXPECT_EQ(offered(), "") << after.value_or("restarting");
        EXPECT_EQ(headline, "");
    }
    version = "1.05";
    updates->pedalRead();
    executor.settle();
    EXPECT_EQ(updates->update(), file);
}

TEST_F(FirmwareUpdatesTest, AnImageThatIsMissingIsNotOfferedAndSaidOnce) {
    int told = 0;
    const auto sink = setLogSink([&](LogCategory, std::string_view) { ++told; });
    server.set(imagePath, {"", 404});
    check();
    check();
    setLogSink(sink);
    EXPECT_EQ(told, 1) << "not every 15 seconds";
    EXPECT_EQ(offered(), "");
}

TEST_F(FirmwareUpdatesTest, AnImageGoesOnWhereItBroke) {
    silence = 100ms;
    start();
    const auto partial = [this](std::size_t cut, bool ranges, const std::string& body) {
        server.set(imagePath, {body, 200, {}, cut, true, false, true, ranges});
    };
    partial(5000, true, image);
    EXPECT_EQ(check(), (Strings{manifestPath, imagePath}));
    partial(4000, true, image);
    EXPECT_EQ(check(), (Strings{manifestPath, imagePath + std::string(" from 5000")}));
    EXPECT_EQ(offered(), "");
    start();
    partial(image.size(), true, image);
    EXPECT_EQ(check(), (Strings{manifestPath, imagePath + std::string(" from 9000")}))
        << "another run goes on";
    EXPECT_EQ(readText(file), image);
    EXPECT_EQ(offered(), "pedal-1.06.bin");
    EXPECT_EQ(namesIn(cache.parent_path() / "downloads"), Strings{});
    EXPECT_EQ(namesIn(cache), Strings{"pedal-1.06.bin"});

    std::filesystem::remove(file);
    partial(5000, false, std::string(image.size(), 'w'));
    check();
    partial(image.size(), true, image);
    EXPECT_EQ(check().back(), imagePath + std::string(" from 5000"));
    EXPECT_FALSE(std::filesystem::exists(file)) << "halves of two images";
    partial(5000, false, image);
    EXPECT_EQ(check().back(), imagePath);
    partial(image.size(), false, image);
    EXPECT_EQ(check().back(), imagePath + std::string(" from 5000"));
    EXPECT_EQ(readText(file), image) << "a server that always begins at the beginning";
}

TEST_F(FirmwareUpdatesTest, WithAPinnedKeyOnlyWhatTheMakerSignedLastCounts) {
    const Signer maker;
    const Signer stranger;
    check();
    EXPECT_EQ(offered(), "pedal-1.06.bin") << "without a key the list alone counts";
    keys = {maker.key};
    start();
    check();
    EXPECT_EQ(offered(), "") << "unsigned";
    const std::pair<const char*, std::function<void(FirmwareEntry&)>> changes[] = {
        {"name", [](auto& entry) { entry.name = "pedal-1.05.bin"; }},
        {"size", [](auto& entry) { --entry.size; }},
        {"digest", [](auto& entry) { entry.sha256.front() ^= 1; }},
        {"version", [](auto& entry) { entry.version = "9.99"; }},
        {"serial", [](auto& entry) { ++entry.serial; }},
        {"signature", [&](auto& entry) { stranger.sign(entry); }}};
    for (const auto& [what, change] : changes) {
        publish(maker, 7, change);
        EXPECT_EQ(check(), Strings{manifestPath}) << what;
        EXPECT_EQ(offered(), "") << what;
    }
    publish(maker, 7);
    std::filesystem::remove(file);
    server.set(imagePath, {std::string(image.size(), 'w')});
    check();
    EXPECT_EQ(offered(), "");
    server.set(imagePath, {image});
    check();
    EXPECT_EQ(offered(), "pedal-1.06.bin");
    start();
    publish(maker, 6);
    check();
    EXPECT_EQ(offered(), "") << "an older list, also for a later run";
    const TlsServer rehearsal;
    const UpdateFloor floor(home.path());
    EXPECT_EQ(floor.firmwareSerial(server.url(manifestPath)), 7U);
    EXPECT_EQ(floor.firmwareSerial(rehearsal.url(manifestPath)), 0U) << "another host";
}

TEST_F(FirmwareUpdatesTest, WhatWasJustInstalledIsNotOfferedAgain) {
    check();
    blank = true;
    updates->clearUpdate();
    check();
    EXPECT_EQ(offered(), "") << "still in its loader";
    blank = false;
    version.reset();
    updates->pedalRead();
    check();
    EXPECT_EQ(offered(), "") << "on its way back";
    version = "1.06";
    updates->pedalRead();
    executor.settle();
    EXPECT_EQ(server.takeRequests().back(), manifestPath) << "checked as soon as its version is known";
    EXPECT_EQ(offered(), "");
    version = "1.05";
    updates->pedalRead();
    executor.settle();
    EXPECT_EQ(offered(), "pedal-1.06.bin") << "another pedal";
    version = "1.06";
    updates->pedalRead();
    EXPECT_EQ(offered(), "") << "taken back before any check";
}

TEST_F(FirmwareUpdatesTest, WhatIsNoFileStaysAndCostsNoDownload) {
    const auto target = home / "target";
    writeText(target, image);
    const auto refused = [&](const char* what) {
        EXPECT_EQ(check(), Strings{manifestPath}) << what;
        EXPECT_EQ(offered(), "") << what;
        EXPECT_EQ(namesIn(cache), Strings{"pedal-1.06.bin"}) << what;
    };
    std::filesystem::create_symlink(target, file);
    refused("a link, even to the right bytes");
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(readText(target), image);
    std::filesystem::remove(file);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    refused("a pipe");
    std::filesystem::remove(file);
    check();
    EXPECT_EQ(offered(), "pedal-1.06.bin");
}

TEST_F(FirmwareUpdatesTest, ALostFolderCostsNoDownload) {
    std::filesystem::remove_all(home / "Library");
    writeText(home / "Library", "a file where the folder should be");
    EXPECT_EQ(check(), Strings{manifestPath}) << "nothing is fetched that cannot be stored";
    EXPECT_EQ(offered(), "");
}

TEST_F(FirmwareUpdatesTest, ChecksEvery15SecondsForItsLife) {
    executor.advance(15s - 1ns);
    EXPECT_EQ(server.takeRequests(), Strings{});
    executor.advance(1ns);
    EXPECT_EQ(server.takeRequests(), (Strings{manifestPath, imagePath}));
    executor.advance(45s);
    EXPECT_EQ(server.takeRequests().size(), 3U);
    EXPECT_EQ(executor.mainThreadWaits(), 0U);

    updates->check();
    updates->check();
    executor.settle();
    EXPECT_EQ(server.takeRequests().size(), 1U) << "one that waits is enough";
    updates->check();
    updates.reset();
    headline.clear();
    executor.advance(60s);
    EXPECT_EQ(server.takeRequests(), Strings{}) << "gone before its job ran";
    EXPECT_EQ(headline, "");
}

}  // namespace
