#include <QString>

#include "app/app_delegate.h"
#include "app/main_window.h"
#include "ui/panels/progress.h"

namespace kzq {

void AppDelegate::openProgress(std::uint64_t total, std::int32_t context) {
    if (total == 0 || !progress_) {
        return;
    }
    closeMenu();
    const bool exports = context != Slot::importContext;
    const auto count = exports ? selectedExportSlots_.size() : selectedImportSlots_.size();
    progress_->placeOver(window_);
    progress_->setTitle(exports ? "7306 Export" : "7306 Import");
    progress_->setSubtitle(QString("%1porting %2 %3 %4 the 7306...")
                               .arg(exports ? "Ex" : "Im", QString::number(count),
                                    count == 1 ? "loop" : "loops", exports ? "to" : "from"));
    progress_->setTotalBytes(total);
    progress_->setPercent(0);
    progress_->showWindow();
}

}  // namespace kzq
