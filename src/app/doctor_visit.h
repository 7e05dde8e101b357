#pragma once

#include <memory>
#include <string>
#include <vector>

#include "device/finding.h"
#include "platform/fixed.h"

namespace kzq {

class DoctorPanel;
struct AppParts;

/// Help > Doctor: looks for what keeps the pedal from being used and shows what was found, beside the window,
/// which stays free. Main thread.
class DoctorVisit : Fixed {
  public:
    /// `parts` outlives it.
    explicit DoctorVisit(AppParts& parts);
    ~DoctorVisit();

    /// Whether there is a doctor.
    bool isThere() const;
    /// Shows the panel and looks, in the background; anew each time, unless that is still going on.
    void open();
    /// Null before it was opened.
    DoctorPanel* panel() const { return panel_.get(); }

  private:
    void makePanel();
    void examine();
    void found(const std::vector<Finding>& findings);

    AppParts& parts_;
    std::unique_ptr<DoctorPanel> panel_;
    std::string report_;  ///< what was found last, as the tool says it
    bool looking_ = false;
};

}  // namespace kzq
