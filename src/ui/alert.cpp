#include "ui/alert.h"

#include <utility>

#include "words/words.h"

namespace kzq {

namespace {

Alert::Button invisibleCancel() {
    return {words("Cancel"), false};
}

}  // namespace

Alert alertWithHeadline(std::string headline, const std::optional<std::string>& finePrint) {
    return {std::move(headline), finePrint.value_or(""), {{words("OK")}, invisibleCancel()}, false};
}

Alert yesOrNoAlertWithHeadline(std::string headline, const std::optional<std::string>& finePrint) {
    return {std::move(headline),
            finePrint.value_or(""),
            {{words("Yes")}, {words("No")}, invisibleCancel()},
            true};
}

}  // namespace kzq
