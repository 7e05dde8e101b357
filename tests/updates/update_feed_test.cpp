#include "updates/update_feed.h"

#include <gtest/gtest.h>

#include "release/listings.h"

using namespace kzq;

namespace {

std::optional<std::vector<FeedItem>> parsed(const std::string& text) {
    return feedItems({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

std::string feed(const std::string& items) {
    return R"(<?xml version="1.0"?><rss version="2.0" xmlns:u="urn:updates"><channel><title>Updates</title>)" +
           items + "</channel></rss>";
}

TEST(UpdateFeed, ReadsItemsInEitherForm) {
    const auto items = parsed(feed(R"(
        <item><title>1.2</title><description><![CDATA[<b>New</b> &amp; old]]></description>
          <enclosure url="https://a/b.AppImage" length="1234" u:version="1.2.0" u:shortVersionString="1.2 beta"
                     u:edSignature="c2ln" sha256="5a" u:os="linux" u:minimumSystemVersion="2.36" type="application/octet-stream"/></item>
        <item><u:version> 1.3 </u:version><description>Plain &lt;text&gt;</description>
          <u:channel>beta</u:channel><enclosure url="https://a/b.deb" length="5"/><other><version>9</version></other></item>)"));
    ASSERT_TRUE(items);
    ASSERT_EQ(items->size(), 2U);
    EXPECT_EQ((*items)[0], (FeedItem{"1.2.0", "1.2 beta", "https://a/b.AppImage", 1234, "c2ln",
                                     "<b>New</b> &amp; old", "5a", "linux", "", "2.36"}));
    EXPECT_EQ((*items)[1],
              (FeedItem{"1.3", "1.3", "https://a/b.deb", 5, "", "Plain <text>", "", "", "beta", ""}));
    EXPECT_EQ(parsed(release::feedText(*items)), items) << "what the maker's program writes";
    EXPECT_EQ(parsed(feed("")), std::vector<FeedItem>{});
}

TEST(UpdateFeed, RefusesWhatIsNoFeed) {
    const auto good = feed("<item><version>1</version></item>");
    ASSERT_TRUE(parsed(good));
    for (std::size_t size = 0; size < good.size(); ++size) {
        EXPECT_FALSE(parsed(good.substr(0, size))) << size;
    }
    const auto withType = [&](const std::string& type) { return type + good.substr(good.find("<rss")); };
    for (const auto& text :
         {withType(R"(<!DOCTYPE rss [<!ENTITY a "b">]>)"),
          feed("<item><version>1</version><description>&l;</description></item>"), feed("<!DOCTYPE a>"),
          withType(R"(<!DOCTYPE rss SYSTEM "file:///etc/passwd">)"), good + "x",
          std::string("<feed><channel/></feed>"), good + std::string(largestFeed, ' ')}) {
        EXPECT_FALSE(parsed(text)) << text.substr(0, 100);
    }
}

}  // namespace
