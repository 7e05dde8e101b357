#include "words/words.h"

#include <utility>

namespace kzq {

namespace {

/// Never destroyed: the program ends while other threads may still be at work.
Catalogue& catalogueInUse() {
    static auto& catalogue = *new Catalogue;
    return catalogue;
}

std::string formOf(const Text& text) {
    const auto& catalogue = catalogueInUse();
    auto found = catalogue ? catalogue(text) : std::string();
    if (!found.empty()) {
        return found;
    }
    return text.one != nullptr && text.count == 1 ? text.one : text.english;
}

}  // namespace

void setCatalogue(Catalogue catalogue) {
    catalogueInUse() = std::move(catalogue);
}

std::string worded(const Text& text, std::initializer_list<std::string> arguments) {
    const auto form = formOf(text);
    std::string result;
    for (std::size_t at = 0; at < form.size(); ++at) {
        const char place = form[at] == '%' && at + 1 < form.size() ? form[at + 1] : ' ';
        const auto index = static_cast<std::size_t>(place - '1');
        if (place >= '1' && place <= '9' && index < arguments.size()) {
            result += arguments.begin()[index];
            ++at;
        } else if (place == 'n' && text.one != nullptr) {
            result += std::to_string(text.count);
            ++at;
        } else {
            result += form[at];
        }
    }
    return result;
}

}  // namespace kzq
