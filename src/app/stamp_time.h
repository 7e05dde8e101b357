#pragma once

#include <QDateTime>
#include <QLocale>
#include <string>

#include "ui/qt_words.h"

namespace kzq {

/// When something with this Stamp was made ("2026-11-21 14-02-09", and more for another of that second).
inline QDateTime timeOfStamp(const std::string& stamp) {
    constexpr qsizetype length = 19;
    return QDateTime::fromString(QString::fromStdString(stamp).left(length), "yyyy-MM-dd HH-mm-ss");
}

/// In the names that days and months have in the user's language.
inline QString dated(const QDateTime& when, const std::string& pattern) {
    const auto language = toQt(words("en"));  // the code of the language of that text
    return (language == "en" ? QLocale::c() : QLocale(language)).toString(when, toQt(pattern));
}

}  // namespace kzq
