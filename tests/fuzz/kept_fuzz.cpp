// Kept copies among folders with hostile names: what is kept last comes first and stays when others go, and
// what is not ours is not touched.

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>

#include "fuzz_check.h"
#include "operations/kept_copies.h"

namespace {

namespace fs = std::filesystem;

void fill(const fs::path& folder) {
    std::error_code ignored;
    fs::create_directory(folder, ignored);
    kzq::BackupIndex index;
    index.loops[*kzq::SlotNumber::of(3)] = {"Loop 3.wav", 1, 90, 1, std::string(64, 'a')};
    std::ofstream(folder / "Loop 3.wav") << "audio";
    std::ofstream(folder / "backup.json") << kzq::indexText(index);
}

bool isWhole(const fs::path& folder) {
    return fs::exists(folder / "Loop 3.wav") && fs::exists(folder / "backup.json");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    const auto parent = fs::temp_directory_path() / ("kept_fuzz_" + std::to_string(::getpid()));
    const kzq::KeptCopies copies(parent, 1);
    const auto all = *copies.open();
    fs::create_directory(all.path());
    auto names = linesOf(input, size);
    std::erase_if(names, [](const auto& name) {
        return name.empty() || name == "." || name == ".." || name.size() > 200 ||
               name.find('/') != std::string::npos;
    });
    for (const auto& name : names) {
        fill(all.path() / name);
    }
    const std::string stamp = "2026-11-22 14-02-31";
    const auto made = *all.makeUnfinished(stamp);
    fill(made);
    const auto last = all.name(made, stamp);
    const bool full =
        std::ranges::any_of(names, [](const auto& name) { return name.ends_with("-4294967295"); });
    require(last || full, "what is kept gets its name");
    require(!last || (copies.list().front().stamp == last->name && all.find("")->name == last->name),
            "last, so first");
    copies.tidy();
    require(!last || isWhole(last->folder.path()), "the newest stays");
    static const std::regex ours(R"((unfinished )?\d{4}-\d\d-\d\d \d\d-\d\d-\d\d(-\d+)?)");
    for (const auto& name : names) {
        require(std::regex_match(name, ours) || isWhole(all.path() / name), "what is not ours stays");
    }
    fs::remove_all(parent);
    return 0;
}
