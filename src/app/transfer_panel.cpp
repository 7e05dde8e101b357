#include "app/transfer_panel.h"

#include <QString>

#include "app/main_window.h"
#include "app/menu_control.h"
#include "app/panels.h"
#include "loops/facts.h"
#include "slots/slot.h"

namespace kzq {

void TransferPanel::open(std::uint64_t total, std::size_t loops, std::int32_t context) {
    const std::string which = context != Slot::importContext ? "Ex" : "Im";
    open(total, "7306 " + which + "port",
         which + "porting " + loopsText(loops) + (which == "Ex" ? " to" : " from") + " the 7306...");
}

void TransferPanel::open(std::uint64_t total, const std::string& title, const std::string& subtitle) {
    const auto& progress = panels_.progress;
    if (total == 0 || !progress) {
        return;
    }
    menu_.close();
    progress->placeOver(window_);
    progress->setTitle(QString::fromStdString(title));
    progress->setSubtitle(QString::fromStdString(subtitle));
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
