#include "updates/update_download.h"

#include <gtest/gtest.h>

#include "signer.h"
#include "tls_server.h"
#include "updates/update_job.h"

using namespace kzq;
using namespace kzq::test;

namespace {

TEST(UpdateDownload, OnePlaceIsForOneDownloadAndForNobodyElse) {
    const TestFolder folder;
    writeText(folder / "package.part", "left over");
    std::filesystem::permissions(folder / "package.part", std::filesystem::perms(0666));
    UpdateDownload first(folder / "package");
    ASSERT_TRUE(first.open());
    EXPECT_EQ(std::filesystem::status(first.part()).permissions(), std::filesystem::perms(0600));
    const std::vector<std::uint8_t> bytes(10, 'x');
    EXPECT_TRUE(first.append(bytes));
    {
        UpdateDownload second(folder / "package");
        const auto opened = second.open();
        ASSERT_FALSE(opened);
        EXPECT_EQ(opened.error().where, "another program is downloading the same file");
    }
    EXPECT_EQ(readText(first.part()), "xxxxxxxxxx") << "neither cut nor removed by the second";
}

TEST(UpdateDownload, WhatWasVerifiedIsWhatIsPlaced) {
    const TestFolder folder;
    const Signer signer;
    const std::string package = "the program";
    auto item = itemFor(package, "1", "https://maker/package.deb");
    signer.sign(item);
    const auto bytes = bytesOf(package);
    for (const bool exchanged : {true, false}) {
        std::optional<UpdateDownload> made(folder / "package");
        auto& download = *made;
        ASSERT_TRUE(download.open() && download.append(bytes));
        ASSERT_TRUE(download.verify(item, std::vector{signer.key}));
        if (exchanged) {
            writeText(folder / "other", "another program");
            std::filesystem::rename(folder / "other", download.part());
        }
        EXPECT_EQ(download.place(std::filesystem::perms(0644)).has_value(), !exchanged);
        EXPECT_EQ(std::filesystem::exists(folder / "package"), !exchanged);
        const auto part = download.part();
        made.reset();
        EXPECT_EQ(std::filesystem::remove(part), exchanged) << "what is not ours is not removed";
    }
    EXPECT_EQ(readText(folder / "package"), package);

    UpdateDownload started(folder / "package");
    auto longer = item;
    ++longer.length;
    signer.sign(longer);
    ASSERT_TRUE(started.open() && started.append(bytes) && !started.verify(longer, std::vector{signer.key}));
    ASSERT_TRUE(started.verify(item, std::vector{signer.key}));
    ASSERT_TRUE(started.seal(std::filesystem::perms(0555)));
    EXPECT_EQ(std::filesystem::status(started.part()).permissions(), std::filesystem::perms(0755))
        << "a leftover has to be open to the next download";
}

}  // namespace
