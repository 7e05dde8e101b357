#include "app/handed_files.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "app/model/loop_model.h"
#include "app/staging.h"
#include "app/teller.h"
#include "app/unused_files.h"
#include "words/words.h"

namespace kzq {

namespace {

std::string whyLeft(const std::vector<LeftOut>& left, bool others) {
    if (std::ranges::all_of(left, &std::string::empty, &LeftOut::reason)) {
        return others ? words("no other row is free") : words("no row is free");
    }
    return left.size() == 1 ? words("\"%1\" is %2", left.front().name, left.front().reason)
                            : words("the others do not fit or cannot be read");
}

/// `left` are those of `given` files that go to no row.
Told toldLeft(const std::vector<LeftOut>& left, std::size_t given) {
    const auto used = given - left.size();
    std::string list;
    std::vector<std::string> names;
    for (const auto& [name, reason, file] : left) {
        names.push_back(name);
        const auto entry = reason.empty() ? words("\"%1\"", name) : words("\"%1\" (%2)", name, reason);
        list = list.empty() ? entry : words("%1, %2", list, entry);
    }
    return {.what = used == 0
                        ? words("No file was used")
                        : words(used, "Only %n of %1 files was used", "Only %n of %1 files were used", given),
            .why = whyLeft(left, used != 0),
            .detail = words("Left out: %1.", list),
            .failure = true,
            .names = std::move(names)};
}

}  // namespace

void HandedFiles::add(const QList<QUrl>& files, const std::vector<LeftOut>& leftOut) {
    waiting_ += files;
    leftOut_.insert(leftOut_.end(), leftOut.begin(), leftOut.end());
    place();
}

void HandedFiles::place() {
    const bool nothing = waiting_.isEmpty() && leftOut_.empty();
    if (nothing || (!waiting_.isEmpty() && !model_.table().complete)) {
        teller_.waiting(static_cast<std::size_t>(waiting_.size()));
        return;
    }
    auto files = std::exchange(waiting_, {});
    auto left = std::exchange(leftOut_, {});
    teller_.waiting(0);
    const auto given = left.size() + static_cast<std::size_t>(files.size());
    for (const auto slot : staging_.freeRows()) {
        if (!files.isEmpty()) {
            staging_.put(slot, files.takeFirst());
        }
    }
    for (const auto& file : files) {
        left.push_back({file.fileName().toStdString(), {}, file});
    }
    if (!left.empty()) {
        QList<QUrl> unused;
        std::ranges::transform(left, std::back_inserter(unused), &LeftOut::file);
        unused_.tell(toldLeft(left, given), unused, {});
    }
}

}  // namespace kzq
