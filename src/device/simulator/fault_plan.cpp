#include "device/simulator/fault_plan.h"

#include <charconv>

namespace kzq::simulator {

namespace {

using Where = Fault::Where;

template <typename Number>
std::optional<Number> numberFromText(std::string_view text, int base) {
    Number number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return number;
}

std::optional<FaultKind> kindFromText(std::string_view text) {
    if (text == "refuse") {
        return FaultKind::refuse;
    }
    if (text == "stall") {
        return FaultKind::stall;
    }
    if (text == "shorten") {
        return FaultKind::shorten;
    }
    if (text == "silence") {
        return FaultKind::silence;
    }
    if (text == "unplug") {
        return FaultKind::unplug;
    }
    if (text == "overrun") {
        return FaultKind::overrun;
    }
    if (text == "alter") {
        return FaultKind::alter;
    }
    return std::nullopt;
}

bool placeFromText(std::string_view text, Fault& fault) {
    if (text == "in" || text == "out" || text == "control") {
        fault.where = text == "in" ? Where::bulkIn : text == "out" ? Where::bulkOut : Where::control;
        return true;
    }
    fault.where = Where::control;
    fault.code = numberFromText<std::uint8_t>(text, 16);
    return text.size() == 2 && fault.code;
}

bool makesSense(const Fault& fault) {
    if (fault.kind == FaultKind::refuse) {
        return fault.where == Where::control;
    }
    if (fault.kind == FaultKind::overrun || fault.kind == FaultKind::alter) {
        return fault.where != Where::control;
    }
    return true;
}

}  // namespace

std::optional<FaultKind> FaultPlan::next(Where where, std::uint8_t code) {
    std::optional<FaultKind> found;
    std::erase_if(pending_, [&](Fault& fault) {
        if (fault.where != where || (fault.code && *fault.code != code)) {
            return false;
        }
        if (fault.count > 1) {
            --fault.count;
            return false;
        }
        if (!found) {
            found = fault.kind;
        }
        return !fault.repeated;
    });
    return found;
}

std::optional<Fault> faultFromText(std::string_view text) {
    Fault fault;
    if (text.ends_with('+')) {
        fault.repeated = true;
        text.remove_suffix(1);
    }
    if (const std::size_t colon = text.find(':'); colon != std::string_view::npos) {
        const auto count = numberFromText<std::uint32_t>(text.substr(colon + 1), 10);
        if (!count || *count == 0) {
            return std::nullopt;
        }
        fault.count = *count;
        text = text.substr(0, colon);
    }
    const std::size_t at = text.find('@');
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    const auto kind = kindFromText(text.substr(0, at));
    if (!kind || !placeFromText(text.substr(at + 1), fault)) {
        return std::nullopt;
    }
    fault.kind = *kind;
    if (!makesSense(fault)) {
        return std::nullopt;
    }
    return fault;
}

}  // namespace kzq::simulator
