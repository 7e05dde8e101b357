#include "ctl/udev_rule.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace kzq::ctl {
namespace {

TEST(UdevRule, isFoundByWhatItSays) {
    std::string pattern = std::filesystem::temp_directory_path() / "udev_rule_test_XXXXXX";
    const std::filesystem::path folder = ::mkdtemp(pattern.data());
    const std::vector<std::filesystem::path> folders = {folder / "missing", folder};
    const std::string rule = R"(ATTR{idVendor}=="308a", ATTR{idProduct}=="0104", TAG+="uaccess")";
    std::ofstream(folder / "notes.txt") << rule << "\n";
    std::ofstream(folder / "10-off.rules") << "# " << rule << "\n";
    std::ofstream(folder / "20-other.rules") << R"(ATTR{idVendor}=="308b", ATTR{idProduct}=="0104")"
                                             << "\n";
    EXPECT_FALSE(udevRuleInstalled(folders));
    std::ofstream(folder / "70-pedal.rules") << "# a pedal\n" << rule << "\n";
    EXPECT_TRUE(udevRuleInstalled(folders));
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace kzq::ctl
