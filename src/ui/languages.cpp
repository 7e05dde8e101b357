#include "ui/languages.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include "words/words.h"

namespace kzq {

namespace {

constexpr auto context = "words";  // the only one of our catalogues

/// Texts of the descriptions of windows are asked for in contexts of their own.
class Translator : public QTranslator {
  public:
    using QTranslator::QTranslator;
    QString translate(const char* /*context*/, const char* text, const char* one, int count) const override {
        return QTranslator::translate(kzq::context, text, one, count);
    }
};

/// Plural forms depend on the last digits at most.
int countOf(std::uint64_t count) {
    constexpr std::uint64_t digits = 1'000'000;
    return static_cast<int>(count < digits ? count : digits + count % digits);
}

/// The first part of "de-AT".
QString languageOf(const QString& name) {
    return name.section(u'-', 0, 0);
}

void useQtsOwn(const QString& language) {
    auto* const qts = new QTranslator(QCoreApplication::instance());
    if (qts->load("qtbase_" + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(qts);
    }
}

}  // namespace

bool QtCatalogue::use(const QLocale& locale) {
    for (const auto& name : locale.uiLanguages()) {
        const auto language = languageOf(name);
        // never destroyed: other threads may be at work when the program ends
        auto* const translator = new Translator;
        if (language == u"en" || language == u"C" || !translator->load(":/languages/" + language)) {
            delete translator;
            if (language == u"en") {
                return false;
            }
            continue;
        }
        useQtsOwn(language);
        QCoreApplication::installTranslator(translator);
        setCatalogue([translator](const Text& text) {
            return translator
                ->translate(context, text.english, text.one, text.one == nullptr ? -1 : countOf(text.count))
                .toStdString();
        });
        return true;
    }
    return false;
}

}  // namespace kzq
