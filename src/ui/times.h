#pragma once

#include <QDateTime>
#include <QString>
#include <chrono>
#include <string>

namespace kzq {

// Times as the window shows them: in the local time zone and in the user's language.

/// By a pattern of QLocale's, with the names that days and months have in that language.
QString dated(const QDateTime& when, const std::string& pattern);

/// "14:07"
QString timeOfDay(const QDateTime& when);
QString timeOfDay(std::chrono::system_clock::time_point when);

}  // namespace kzq
