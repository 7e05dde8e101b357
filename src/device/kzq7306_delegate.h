#pragma once

#include "loops/status.h"
#include "platform/fixed.h"

namespace kzq {

class KZQ7306;

/// Is notified when the pedal arrives, leaves or changes; always on the main thread.
class KZQ7306Delegate : Fixed {
  public:
    virtual ~KZQ7306Delegate() = default;

    /// A pedal was acquired and runs its firmware or its loader. Called with the device lock held.
    virtual void looperIsConnected(KZQ7306& looper) = 0;
    /// The pedal left the bus. Called with the device lock held.
    virtual void looperHasBeenDisconnected() = 0;
    /// A poll found a status that differs from the last one, or `refresh` was called.
    virtual void looperInternalStateChanged(const Status& status) = 0;
    /// It said that it is busy, or its sequence byte moved: see KZQ7306::doubts.
    virtual void looperMayHaveChanged() {}
};

}  // namespace kzq
