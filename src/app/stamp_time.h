#pragma once

#include <QDateTime>
#include <string>

namespace kzq {

/// When something with this Stamp was made ("2026-11-21 14-02-09", and more for another of that second).
inline QDateTime timeOfStamp(const std::string& stamp) {
    constexpr qsizetype length = 19;
    return QDateTime::fromString(QString::fromStdString(stamp).left(length), "yyyy-MM-dd HH-mm-ss");
}

}  // namespace kzq
