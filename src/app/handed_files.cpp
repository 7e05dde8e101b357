#include "app/handed_files.h"

#include <string>
#include <utility>
#include <vector>

#include "app/model/loop_model.h"
#include "app/staging.h"
#include "app/teller.h"
#include "app/unused_files.h"

namespace kzq {

namespace {

/// `left` are those of `given` files for which there was no row.
Told toldLeft(const QList<QUrl>& left, qsizetype given) {
    const auto used = given - left.size();
    std::string list;
    std::vector<std::string> names;
    for (const auto& file : left) {
        names.push_back(file.fileName().toStdString());
        list += (list.empty() ? "" : ", ") + ("\"" + names.back() + "\"");
    }
    return {.what = used == 0 ? "No file was used"
                              : "Only " + std::to_string(used) + " of " + std::to_string(given) + " files " +
                                    (used == 1 ? "was" : "were") + " used",
            .why = used == 0 ? "no row is free" : "no other row is free",
            .detail = "Left out: " + list + ".",
            .failure = true,
            .names = std::move(names)};
}

}  // namespace

void HandedFiles::add(const QList<QUrl>& files) {
    waiting_ += files;
    place();
}

void HandedFiles::place() {
    if (waiting_.isEmpty() || !model_.table().complete) {
        teller_.waiting(static_cast<std::size_t>(waiting_.size()));
        return;
    }
    auto left = std::exchange(waiting_, {});
    teller_.waiting(0);
    const auto given = left.size();
    for (std::uint64_t number = 1; number <= loopSlots && !left.isEmpty(); ++number) {
        const auto slot = *SlotNumber::of(number);
        if (!model_.table().contains(slot) && !model_.staging().contains(slot) &&
            !staging_.isExpected(slot)) {
            staging_.put(slot, left.takeFirst());
        }
    }
    if (!left.isEmpty()) {
        unused_.tell(toldLeft(left, given), left, {});
    }
}

}  // namespace kzq
