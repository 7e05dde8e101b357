#include <algorithm>
#include <iterator>
#include <ranges>
#include <utility>

#include "app/app_delegate.h"
#include "device/kzq7306.h"

namespace kzq {

void AppDelegate::eraseButtonClicked() {
    if (flow_ == Flow::starting) {
        return;
    }
    AskedLoops asked;
    for (const auto slot : selectedImportSlots_) {
        asked.emplace(slot, shownIn(slot));
    }
    const auto before = std::exchange(flow_, flow_ == Flow::none ? Flow::starting : flow_);
    const auto answer = environment_.dialogs.run(
        yesOrNoAlertWithHeadline("Erased loop audio cannot be restored. Would you like to continue?"));
    if (before == Flow::none) {
        endStart();
    }
    if (answer == alertFirstButton) {
        whenIdle([this, asked] { startErase(asked); });
    }
}

/// Only slots that the question was about and that are still selected.
void AppDelegate::startErase(AskedLoops asked) {
    std::erase_if(asked, [this](const auto& entry) { return !selectedImportSlots_.contains(entry.first); });
    std::vector<std::uint8_t> numbers;
    std::ranges::transform(std::views::keys(asked), std::back_inserter(numbers), &SlotNumber::number);
    if (numbers.empty()) {
        endStart();
        return;
    }
    endEditing();
    selectedImportSlots_.clear();
    beginRun();
    for (const auto& [slot, loop] : asked) {
        run_->deselected[slot] = row(slot, Slot::importContext)->customImportName();
    }
    const auto ready = [asked = std::move(asked)](KZQ7306& looper) {
        return unchangedTable(looper, asked, "Nothing was erased.").has_value();
    };
    onLink(ready, [numbers, finished = onMain(&AppDelegate::finishErase)](KZQ7306& looper) {
        return looper.eraseLoops(numbers, [finished](std::uint8_t /*count*/) { finished(); });
    });
}

void AppDelegate::finishErase() {
    if (const auto looper = KZQ7306::looper()) {
        looper->refresh();
    }
    endRun();
}

}  // namespace kzq
