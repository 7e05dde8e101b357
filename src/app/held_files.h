#pragma once

#include <QList>
#include <QUrl>
#include <functional>
#include <memory>
#include <vector>

#include "app/app_environment.h"
#include "app/model/carry_plan.h"

namespace kzq {

/// Files that are held over the window, or were dropped there, as far as they have been looked at.
struct HeldFiles {
    QList<QUrl> urls;
    std::vector<CarriedFile> files;  ///< one for each
    bool complete = false;           ///< all have been looked at
    bool dropped = false;            ///< they wait only for this
    bool pasted = false;
};

/// Has the files looked at in the background, one after the other, as long as somebody keeps the answer;
/// `changed` is called here after each of them and at the end. Main thread.
std::shared_ptr<HeldFiles> lookAt(const AppEnvironment& environment, const QList<QUrl>& urls,
                                  const std::function<void(const std::shared_ptr<HeldFiles>&)>& changed);

}  // namespace kzq
