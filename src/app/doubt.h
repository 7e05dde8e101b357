#pragma once

#include <functional>

#include "app/app_environment.h"
#include "device/kzq7306.h"
#include "listening/shelf.h"

namespace kzq {

/// What says that the pedal's loops may be others than they were. The answer may be asked on any thread.
inline std::function<Doubt()> doubtOf(const AppEnvironment& environment) {
    return [link = environment.link, asleep = environment.asleep] {
        const auto looper = link();
        return Doubt{looper ? looper->doubts() : 0, asleep()};
    };
}

}  // namespace kzq
