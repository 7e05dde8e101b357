#include "updates/windows/firmware_updater.h"

#include <QTemporaryDir>
#include <QTest>

#include "controls.h"
#include "platform/digest.h"
#include "shelf.h"
#include "updates/windows/notes_view.h"

using namespace kzq;
using namespace kzq::test;
using namespace std::chrono_literals;

namespace {

struct FirmwareUpdaterTest : testing::Test, FirmwareUpdaterDelegate {
    FirmwareUpdaterTest() {
        shelf.resources["https://maker/image"] = image;
        offer(R"(One <img src='file:///x'> & more","Two)");
        updater = FirmwareUpdater::updater({executor,
                                            shelf,
                                            [] { return false; },
                                            [] { return std::optional<std::string>("1.05"); },
                                            "0.1.0",
                                            home.path().toStdString(),
                                            {"https://maker/_.json"},
                                            nullptr,
                                            nullptr});
        updater->setDelegate(this);
    }
    ~FirmwareUpdaterTest() override { executor.endJobs(); }

    void installFirmware() override { ++installations; }
    void offer(const std::string& changes) {
        const auto hash = MD5String({reinterpret_cast<const std::uint8_t*>(image.data()), image.size()});
        shelf.resources["https://maker/_.json"] = R"([{"name":"image","hash":")" + hash.value_or("") +
                                                  R"(","size":)" + std::to_string(image.size()) +
                                                  R"(,"version":"1.06","changes":[")" + changes + R"("]}])";
    }

    const std::string image = "firmware";
    QTemporaryDir home;
    VirtualExecutor executor;
    Shelf shelf{executor, 2};
    std::unique_ptr<FirmwareUpdater> updater;
    int installations = 0;
};

}  // namespace

TEST_F(FirmwareUpdaterTest, ShowsTheOfferAsTextAndPassesTheAnswerOn) {
    executor.advance(14s);
    EXPECT_FALSE(updater->updates()->busy());
    executor.advance(10s);
    ASSERT_TRUE(updater->update());
    EXPECT_EQ(updater->blurb().text(),
              u"KZQ7306 1.6 is now available\u2014you have 1.5. Would you like to install it now?");
    EXPECT_EQ(updater->notes().toPlainText(), u"\u2022\tOne <img src='file:///x'> & more\n\u2022\tTwo");
    EXPECT_FALSE(updater->window().isVisible()) << "only the user opens it";

    updater->showWindow();
    EXPECT_TRUE(updater->window().isVisible());
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(&updater->window(), &held);  // since before the window came
    }
    EXPECT_EQ(installations, 0);
    ASSERT_TRUE(updater->window().isVisible());
    for (auto* const target : {&updater->window(), static_cast<QWidget*>(&updater->notes()),
                               updater->window().findChild<QWidget*>("button")}) {
        QTest::keyClick(target, Qt::Key_Return);
    }
    QTest::mouseClick(updater->window().findChild<QWidget*>("button"), Qt::LeftButton);
    EXPECT_EQ(installations, 4) << "wherever the focus is";
    updater->setDelegate(nullptr);
    updater->install();
    EXPECT_TRUE(updater->window().isVisible()) << "who installs closes it";
    QTest::keyClick(&updater->notes(), Qt::Key_Escape);
    EXPECT_FALSE(updater->window().isVisible());
    EXPECT_EQ(installations, 4);
}
