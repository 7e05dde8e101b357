#include "app/transfer_panel.h"

#include <QString>

#include "app/main_window.h"
#include "app/menu_control.h"
#include "app/panels.h"
#include "slots/slot.h"

namespace kzq {

void TransferPanel::open(std::uint64_t total, std::size_t loops, std::int32_t context) {
    const auto& progress = panels_.progress;
    if (total == 0 || !progress) {
        return;
    }
    menu_.close();
    const bool exports = context != Slot::importContext;
    progress->placeOver(window_);
    progress->setTitle(exports ? "7306 Export" : "7306 Import");
    progress->setSubtitle(QString("%1porting %2 %3 %4 the 7306...")
                              .arg(exports ? "Ex" : "Im", QString::number(loops),
                                   loops == 1 ? "loop" : "loops", exports ? "to" : "from"));
    progress->setTotalBytes(total);
    progress->setPercent(0);
    progress->showWindow();
}

void TransferPanel::setPercent(double fraction) const {
    if (panels_.progress) {
        panels_.progress->setPercent(fraction);
    }
}

void TransferPanel::close() const {
    setPercent(1.0);
    if (panels_.progress) {
        panels_.progress->close();
    }
}

}  // namespace kzq
