#include "app/unused_files.h"

#include <utility>

namespace kzq {

void UnusedFiles::tell(const Told& told, QList<QUrl> files, const std::optional<Drop>& drop, Remedy remedy) {
    const auto job = "files " + std::to_string(++last_);
    entries_.push_back({job, std::move(files), drop});
    teller_.tell(told, job, std::move(remedy));
}

void UnusedFiles::staged(const Drop& drop) {
    settleIf([&drop](Entry& entry) {
        const bool sameRow = entry.drop && entry.drop->slot == drop.slot;
        if (sameRow && entry.drop->order == drop.order) {
            entry.used = true;
            return false;
        }
        entry.files.removeAll(drop.file);
        return entry.files.isEmpty() || (sameRow && drop.order > entry.drop->order);
    });
}

void UnusedFiles::written(SlotNumber slot) {
    settleIf([slot](const Entry& entry) { return entry.used && entry.drop->slot == slot; });
}

template <typename Condition>
void UnusedFiles::settleIf(Condition over) {
    std::erase_if(entries_, [&](Entry& entry) {
        const bool settled = over(entry);
        if (settled) {
            teller_.settle(entry.job);
        }
        return settled;
    });
}

}  // namespace kzq
