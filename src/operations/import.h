#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "operations/outcome.h"
#include "operations/pedal.h"
#include "platform/bytes.h"
#include "platform/free_space.h"
#include "platform/new_file.h"

namespace kzq {

/// Saves a file under a free name.
using WriteFile = std::function<Result<std::filesystem::path>(
    const std::filesystem::path& folder, std::string_view name, std::string_view extension, ByteView bytes)>;

struct ImportOrder {
    struct Item {
        SlotNumber slot;
        std::string name;    ///< of the file, without its ".wav"
        Frames frames = {};  ///< as the table has it; 0 for an empty slot
    };

    std::vector<Item> loops = {};  ///< read in this order
    std::filesystem::path folder;
    WriteFile write = [](const auto& where, auto name, auto extension, auto bytes) {
        return writeNewFile(where, name, extension, bytes);
    };
    FreeSpace freeSpace = kzq::freeSpace;
    /// A loop that comes with another length than the table had is not saved: changedWhileRead.
    bool exact = false;
    Batches batches = Batches::one;
};

/// Copies loops into files, if there is room for all of them (diskFull). A loop that cannot be read, or
/// saved, is left out; with `Batches::each` a file that cannot be written ends the import, as the next would
/// fail as well.
Outcome runImport(Pedal& pedal, const ImportOrder& order, const Events& events);

}  // namespace kzq
