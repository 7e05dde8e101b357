#include "app/notice.h"

#include "app/app_environment.h"

namespace kzq {

void Notice::told(const std::string& sentence) {
    told_ = sentence;
    lookSoon();
}

void Notice::ended(Executor::Duration took) {
    ended_ = ended_ || took >= longAfter;
    lookSoon();
}

void Notice::lookSoon() {
    if (look_ == nullptr) {
        look_ = std::make_shared<int>();
        environment_.executor.main([this, weak = std::weak_ptr(look_)] {
            if (!weak.expired()) {
                show();
            }
        });
    }
}

void Notice::show() {
    if (ended_ && !told_.empty() && environment_.shell != nullptr && !environment_.shell->inFront()) {
        environment_.shell->notify(QString::fromStdString(told_));
    }
    told_.clear();
    ended_ = false;
    look_.reset();
}

}  // namespace kzq
