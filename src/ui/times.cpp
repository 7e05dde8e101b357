#include "ui/times.h"

#include <QLocale>

#include "ui/qt_words.h"

namespace kzq {

QString dated(const QDateTime& when, const std::string& pattern) {
    const auto language = toQt(words("en"));  // the code of the language of that text
    return (language == "en" ? QLocale::c() : QLocale(language)).toString(when, toQt(pattern));
}

QString timeOfDay(const QDateTime& when) {
    return dated(when, words("HH:mm"));
}

QString timeOfDay(std::chrono::system_clock::time_point when) {
    return timeOfDay(QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(when)));
}

}  // namespace kzq
