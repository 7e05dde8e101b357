#include "words/words.h"

#include <utility>

namespace kzq {

namespace {

/// Never destroyed: the program ends while other threads may still be at work.
Catalogue& catalogueInUse() {
    static auto& catalogue = *new Catalogue;
    return catalogue;
}

/// Each place is filled once: what an argument holds is not looked at.
std::string filled(std::string_view form, const Text& text, std::initializer_list<std::string> arguments) {
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

}  // namespace

void setCatalogue(Catalogue catalogue) {
    catalogueInUse() = std::move(catalogue);
}

std::string inEnglish(const Text& text, std::initializer_list<std::string> arguments) {
    return filled(text.one != nullptr && text.count == 1 ? text.one : text.english, text, arguments);
}

std::string worded(const Text& text, std::initializer_list<std::string> arguments) {
    const auto& catalogue = catalogueInUse();
    const auto form = catalogue ? catalogue(text) : std::string();
    return form.empty() ? inEnglish(text, arguments) : filled(form, text, arguments);
}

std::string inTurn(const std::string& first, const std::string& then) {
    return first.empty() ? then : then.empty() ? first : words("%1 %2", first, then);
}

std::string capital(std::string phrase) {
    constexpr unsigned distance = 'a' - 'A';
    const auto byte = [&phrase](std::size_t at) {
        return at < phrase.size() ? static_cast<unsigned char>(phrase[at]) : 0U;
    };
    constexpr unsigned latin = 0xC3;  // the first byte of these letters in UTF-8
    const std::size_t at = byte(0) == latin ? 1 : 0;
    const unsigned first = at == 0 ? 'a' : 0xA0;  // "à"
    const unsigned last = at == 0 ? 'z' : 0xBE;   // "þ"
    constexpr unsigned division = 0xB7;           // among the letters
    if (byte(at) >= first && byte(at) <= last && (at == 0 || byte(at) != division)) {
        phrase[at] = static_cast<char>(byte(at) - distance);
    }
    return phrase;
}

}  // namespace kzq
