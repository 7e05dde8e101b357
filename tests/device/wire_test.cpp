#include "device/wire.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>

namespace kzq::test {
namespace {

TEST(CommandTable, IsTheOneInTheDocumentation) {
    using wire::Word;
    const std::map<std::string, Word> words = {{"0", Word::zero},
                                               {"1", Word::one},
                                               {"address", Word::address},
                                               {"the loop's channel byte", Word::channel},
                                               {"1 if it replaces a loop, else 0", Word::occupied},
                                               {"low 16 bits", Word::lowLength},
                                               {"high 16 bits", Word::highLength}};
    const std::regex row(R"(\| 0x(E.) \| ([^|]+) \| [^|]+ \| ([^|]+) \| ([^|]+) \| (\d+) \| (\d+)[^|]* \|)");
    std::ifstream page(KZQ_USB_PAGE);
    std::size_t rows = 0;
    for (std::string line; std::getline(page, line);) {
        std::smatch cells;
        if (std::regex_match(line, cells, row)) {
            ASSERT_LT(rows, wire::commands.size()) << line;
            const auto& command = wire::commands.at(rows++);
            EXPECT_EQ(command.code, std::stoi(cells[1], nullptr, 16)) << line;
            EXPECT_EQ(command.name, cells[2].str()) << line;
            EXPECT_EQ(command.value, words.at(cells[3])) << line;
            EXPECT_EQ(command.index, words.at(cells[4])) << line;
            EXPECT_EQ(command.needs, std::stoi(cells[5])) << line;
            EXPECT_EQ(command.reply, std::stoi(cells[6])) << line;
        }
    }
    EXPECT_EQ(rows, wire::commands.size());
}

}  // namespace
}  // namespace kzq::test
