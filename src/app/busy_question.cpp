#include "app/busy_question.h"

#include <utility>

#include "device/kzq7306.h"

namespace kzq {

namespace {

constexpr auto patience = std::chrono::milliseconds(500);

bool pedalIsBusy(const Link& link) {
    const auto looper = link();
    return !looper || looper->busy();
}

}  // namespace

void BusyQuestion::ask(std::function<void(bool busy)> answer) {
    const auto tell = [answer = std::make_shared<decltype(answer)>(std::move(answer))](bool busy) {
        if (const auto once = std::exchange(*answer, {})) {
            once(busy);
        }
    };
    executor_.mainAfter(patience, [tell] { tell(true); });
    if (!std::exchange(*unanswered_, true)) {
        executor_.background(Priority::high,
                             [&executor = executor_, link = link_, unanswered = unanswered_, tell] {
                                 const bool busy = pedalIsBusy(link);
                                 executor.main([unanswered, tell, busy] {
                                     *unanswered = false;
                                     tell(busy);
                                 });
                             });
    }
}

}  // namespace kzq
