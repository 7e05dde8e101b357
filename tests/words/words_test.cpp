#include "words/words.h"

#include <gtest/gtest.h>

#include <map>

namespace kzq {
namespace {

/// A language with its verb first and, as Polish, three plural forms.
class Translated : public testing::Test {
  protected:
    Translated() {
        setCatalogue([](const Text& text) -> std::string {
            if (text.one != nullptr) {
                const auto last = text.count % 10;
                const bool few = last >= 2 && last <= 4 && (text.count < 12 || text.count > 14);
                return text.count == 1 ? "jedna pętla w %1" : few ? "%n pętle w %1" : "w %1: %n pętli";
            }
            const std::map<std::string, std::string> known = {{"%1 of %2 saved", "saved %2, thereof %1"}};
            const auto found = known.find(text.english);
            return found == known.end() ? "" : found->second;
        });
    }
    ~Translated() override { setCatalogue({}); }
};

TEST(Words, AreEnglishWithoutACatalogue) {
    EXPECT_EQ(words("%2 (%1), 50 % of %3%", "%2", std::string("b")), "b (%2), 50 % of %3%");
    EXPECT_EQ(words(1, "%n loop in %1", "%n loops in %1", "%n"), "1 loop in %n");
    EXPECT_EQ(words(std::size_t{0}, "%n loop in %1", "%n loops in %1", 7U), "0 loops in 7");
}

TEST_F(Translated, ArgumentsTakeTheOrderAndNumbersTheFormOfTheLanguage) {
    EXPECT_EQ(words("%1 of %2 saved", 2, "%1"), "saved %1, thereof 2");
    EXPECT_EQ(words("Not %1", "known"), "Not known");
    EXPECT_EQ(words(1, "%n loop in %1", "%n loops in %1", "A"), "jedna pętla w A");
    EXPECT_EQ(words(22, "%n loop in %1", "%n loops in %1", "A"), "22 pętle w A");
    EXPECT_EQ(words(12, "%n loop in %1", "%n loops in %1", "A"), "w A: 12 pętli");
}

}  // namespace
}  // namespace kzq
