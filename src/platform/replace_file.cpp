#include "platform/replace_file.h"

#include <cerrno>

#include "platform/draft.h"
#include "platform/plain_file.h"

namespace kzq {
Result<void> replaceFile(const std::filesystem::path& folder, const std::string& name, ByteView bytes) {
    if (!isPlaceForFile(folder / name)) {
        return Trouble{Trouble::Kind::file, Draft::placing, EEXIST};
    }
    Draft draft(folder, Draft::Road::renameNoReplace);
    // If the name becomes a link just now, the rename replaces the link and leaves its target alone.
    auto replaced = draft.open()
                        .and_then([&] { return draft.write(bytes); })
                        .and_then([&] { return draft.sync(); })
                        .and_then([&] { return draft.replace(name); });
    if (replaced) {
        draft.syncFolder();
    }
    return replaced;
}

}  // namespace kzq
