// Feeds hostile texts to the reader of backup indexes.

#include "fuzz_check.h"
#include "loops/facts.h"
#include "operations/backup_index.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    const std::string text(input, input + size);
    for (const auto& whole :
         {text, R"({"format": "kzq7306-backup", "formatVersion": 1, "loops": [)" + text + "]}"}) {
        const auto index = kzq::indexFromText(whole);
        if (!index) {
            continue;
        }
        for (const auto& [slot, entry] : index->loops) {
            require(entry.file.find('/') == std::string::npos && entry.file != "..", "a name in the folder");
            require(entry.samples != 0 && entry.sha256.size() == 64, "a loop with audio");
        }
        const auto again = kzq::indexFromText(kzq::indexText(*index));
        require(again && again->loops == index->loops, "what was read can be written and read");
    }
    return 0;
}
