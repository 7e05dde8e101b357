#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

namespace kzq {

// What the window shows, in the user's language. A text is looked up by its English form, which also serves
// where a catalogue has none. Any thread.
//
// A text is a whole sentence, or a phrase that stands alone; never half of what is put together elsewhere,
// since other languages put it together differently. JSON, log tags, names of files and "Loop 7" stay as
// they are. Numbers are written as in the language of the texts, whatever the locale: in a German sentence
// 1.500 reads as fifteen hundred. tools/texts finds the literals in calls of words() and english(); run it
// after a change.

/// A text as it is looked up.
struct Text {
    const char* english;
    const char* one = nullptr;  ///< the English form for 1; null if the text does not depend on a number
    std::uint64_t count = 0;
};

/// What a text is in the user's language, with its %1; empty if it is not known. Called on any thread.
using Catalogue = std::function<std::string(const Text& text)>;

/// Who is asked; nobody is until this is called, and never in the tool. To be called before any other thread
/// runs and before the first text is made, which is why no text may be a static constant.
void setCatalogue(Catalogue catalogue);

/// The text with its arguments: %1 is the first, %9 the ninth, %n the number.
std::string inEnglish(const Text& text, std::initializer_list<std::string> arguments);
/// The same in the user's language.
std::string worded(const Text& text, std::initializer_list<std::string> arguments);

/// What can stand in a text. No bool and no char, which would come out as numbers.
template <typename T>
concept Wordable = std::convertible_to<const T&, std::string_view> ||
    (std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char>);

template <Wordable T>
std::string asWord(const T& argument) {
    if constexpr (std::integral<T>) {
        return std::to_string(argument);
    } else {
        return std::string(std::string_view(argument));
    }
}

/// `english` in the user's language; %1 to %9 stand for the arguments, in any order.
template <Wordable... Arguments>
std::string words(const char* english, const Arguments&... arguments) {
    return worded({english}, {asWord(arguments)...});
}

/// With %n for `n`, in the language's form for that many: in English `one` for 1, otherwise `many`.
template <Wordable... Arguments>
std::string words(std::uint64_t n, const char* one, const char* many, const Arguments&... arguments) {
    return worded({many, one, n}, {asWord(arguments)...});
}

/// One sentence after the other; either may be empty.
std::string inTurn(const std::string& first, const std::string& then);

/// A phrase as the beginning of a sentence, where its language has capitals.
std::string capital(std::string phrase);

/// Marks a text that reaches words() as a variable, such as one in a table.
constexpr const char* english(const char* text) {
    return text;
}

}  // namespace kzq
