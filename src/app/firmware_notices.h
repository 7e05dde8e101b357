#pragma once

#include <string>

#include "operations/told.h"
#include "platform/fixed.h"

namespace kzq {

struct AppParts;

/// What the user hears of firmware beside its installation: how that ended, that a pedal was found in its
/// loader, what is being downloaded. It is said in the status line, and some of it in a small window that
/// blocks nothing. Main thread, since the launch.
class FirmwareNotices : Fixed {
  public:
    /// `parts` outlives it.
    explicit FirmwareNotices(AppParts& parts) : parts_(parts) {}

    /// An installation goes on, so that a pedal in its loader is no surprise; its number. It is over much
    /// later than its ending is known if the pedal does not come back.
    unsigned begins();
    void isOver();
    bool isLatest(unsigned number) const { return number == latest_; }
    /// How one ended. `again`: whether the same image, which is still verified, may be sent again.
    void ended(const FlashEnd& end, const Told& told, bool again);

    void arrived(char stage);
    void left();
    /// Of FirmwareUpdates.
    void newsChanged();

  private:
    std::string offered() const;
    bool inLoader() const;
    void pedalWaits();
    void offerRepair();
    void endRepair();

    AppParts& parts_;
    int installations_ = 0;  ///< that go on
    unsigned latest_ = 0;
    bool waiting_ = false;    ///< the pedal is in its loader, and not by an installation
    bool asked_ = false;      ///< the user was asked about this pedal
    std::string askedAbout_;  ///< the version; empty: there was none
};

}  // namespace kzq
