#include "ui/alert.h"

#include <utility>

namespace kzq {

namespace {

const Alert::Button invisibleCancel = {"Cancel", false};

}  // namespace

Alert alertWithHeadline(std::string headline, const std::optional<std::string>& finePrint) {
    return {std::move(headline), finePrint.value_or(""), {{"OK"}, invisibleCancel}, false};
}

Alert yesOrNoAlertWithHeadline(std::string headline, const std::optional<std::string>& finePrint) {
    return {std::move(headline), finePrint.value_or(""), {{"Yes"}, {"No"}, invisibleCancel}, true};
}

}  // namespace kzq
