#include "doctor_shots.h"

#include <algorithm>
#include <iterator>

#include "stage.h"
#include "ui/panels/doctor_panel.h"

namespace kzq::gallery {

namespace {

const std::vector<DoctorCheck> good{{false, "udev is running."},
                                    {false, "A pedal is on the USB bus."},
                                    {false, "You have permission to use the pedal."},
                                    {false, "No other program is using the pedal."},
                                    {false, "Loops can be imported."}};
const std::vector<DoctorCheck> bad{
    {true, "You do not have permission to use the pedal: its udev rule is not installed.",
     "sudo install -m 644 /usr/share/kzq7306/70-kzq7306.rules /etc/udev/rules.d && sudo udevadm control "
     "--reload && sudo udevadm trigger --action=add --subsystem-match=usb --attr-match=idVendor=308a"},
    {true,
     "The pedal is in use by kzq7306ctl (process 4711). Close that program, or wait until it has "
     "finished."}};

Shot found(const QString& caption, const std::vector<DoctorCheck>& checks) {
    DoctorPanel panel(nullptr);
    panel.setChecks(checks);
    return shoot(caption, panel);
}

}  // namespace

Shots doctor() {
    auto some = good;
    std::ranges::copy(bad, std::back_inserter(some));
    auto many = some;
    for (int i = 0; i < 3; ++i) {
        std::ranges::copy(bad, std::back_inserter(many));
    }
    DoctorPanel looking(nullptr);
    return {shoot("Doctor, looking", looking), found("Nothing wrong", good), found("Two problems", some),
            found("More than fits", many)};
}

}  // namespace kzq::gallery
