#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <regex>
#include <set>
#include <tuple>

#include "sweep.h"

namespace kzq::test {

namespace {

/// What differs only for the pedal is one row.
const char* groupOf(Mishap mishap) {
    switch (mishap) {
        case Mishap::none:
            return "nothing";
        case Mishap::refusal:
            return "the pedal refuses";
        case Mishap::hostRefusal:
            return "this computer refuses";
        case Mishap::claimLost:
        case Mishap::reset:
            return "the claim is lost, or another program resets it";
        case Mishap::silence:
            return "it falls silent";
        case Mishap::silenceThenCancel:
            return "it falls silent, and the user cancels";
        case Mishap::silenceThenUnplug:
        case Mishap::unplug:
        case Mishap::backAsNormal:
        case Mishap::backAsLoader:
            return "unplugged, and perhaps back";
        case Mishap::backAsAnother:
            return "another pedal in its place";
        case Mishap::cancel:
            return "cancelled";
        default:
            return "a call or its answer is lost, cut, too long or zeros";
    }
}

constexpr std::array phases = {"before", "a request", "data", "in between", "reading back", "afterwards"};

/// Without its numbers.
std::string blurred(const std::string& line) {
    static const std::regex number("[0-9]+([.][0-9]+)?");
    return std::regex_replace(line, number, "…");
}

std::string rowsOf(const std::string& name) {
    using End = std::tuple<std::string, std::string, std::string, int>;
    std::vector<std::pair<std::string, End>> rows;  // in the order in which they come up
    std::map<std::pair<std::string, End>, std::set<std::size_t>> when;
    for (const auto& each : swept(name)) {
        const std::pair row{std::string(groupOf(each.mishap)),
                            End{each.pedal, each.computer, blurred(each.line), each.exit}};
        if (!when.contains(row)) {
            rows.push_back(row);
        }
        const auto* const phase = std::ranges::find(phases, each.phase);
        when[row].insert(static_cast<std::size_t>(phase - phases.begin()));
    }
    std::ranges::stable_sort(rows, {}, [](const auto& row) { return row.first; });
    std::string text;
    for (const auto& row : rows) {
        const auto& [pedal, computer, line, exit] = row.second;
        std::string places;
        for (const auto place : when[row]) {
            places +=
                (places.empty() ? "" : ", ") + std::string(place < phases.size() ? phases.at(place) : "–");
        }
        for (const auto& cell :
             {row.first, places, pedal, computer, line, exit < 0 ? "–" : std::to_string(exit)}) {
            text.append("| ").append(cell).append(" ");
        }
        text += "|\n";
    }
    return text;
}

/// The part of doc/promises.md that says what came of all of it.
std::string table() {
    std::string text;
    for (const auto& [name, make] : operations()) {
        text += "\n### " + name +
                "\n\n| what happens | when | pedal | computer | said first | exit code |\n" +
                "|---|---|---|---|---|---|\n" + rowsOf(name);
    }
    return text;
}

/// doc/promises.md is made of it: see tools/promises.
TEST(Promises, AreWhatTheSweepShows) {
    if (std::getenv("SWEEP") != nullptr) {  // NOLINT(*-mt-unsafe)
        GTEST_SKIP() << "longer loops have other phases";
    }
    const std::filesystem::path file = std::filesystem::path(KZQ_SOURCE) / "doc/promises.md";
    const std::string mark = "<!-- tools/promises writes what follows -->\n";
    const auto text = readText(file);
    const auto start = text.find(mark);
    ASSERT_NE(start, std::string::npos);
    const bool writes = std::getenv("WRITE_PROMISES") != nullptr;  // NOLINT(*-mt-unsafe)
    const auto now = text.substr(0, start + mark.size()) + table();
    if (writes) {
        writeText(file, now);
    }
    EXPECT_TRUE(readText(file) == now) << "run tools/promises, and look at what differs";
}

}  // namespace
}  // namespace kzq::test
