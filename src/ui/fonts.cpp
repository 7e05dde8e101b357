#include "ui/fonts.h"

#include <QDir>
#include <QFontDatabase>
#include <QFontInfo>
#include <string>

#include "platform/log.h"

namespace kzq {

namespace {

constexpr auto folder = ":/fonts";

QFont::Weight weightOf(FiraWeight weight) {
    switch (weight) {
        case FiraWeight::light:
            return QFont::Light;
        case FiraWeight::regular:
            return QFont::Normal;
        case FiraWeight::medium:
            return QFont::Medium;
    }
    return QFont::Normal;
}

}  // namespace

void registerFonts() {
    static const bool once = [] {
        for (const auto& file : QDir(folder).entryInfoList({"*.ttf"}, QDir::Files)) {
            if (QFontDatabase::addApplicationFont(file.filePath()) < 0) {
                log(LogCategory::tool, "font not taken: " + file.fileName().toStdString());
            }
        }
        return true;
    }();
    static_cast<void>(once);
}

std::optional<QFont> firaSans(FiraWeight weight, int pixels) {
    registerFonts();
    QFont font("Fira Sans");
    font.setPixelSize(pixels);
    font.setWeight(weightOf(weight));
    const QFontInfo found(font);
    if (found.family() != "Fira Sans" || found.weight() != weightOf(weight)) {
        return std::nullopt;
    }
    return font;
}

QFont textFont(int pixels) {
    if (auto font = firaSans(FiraWeight::regular, pixels)) {
        return *font;
    }
    QFont font;
    font.setPixelSize(pixels);
    return font;
}

}  // namespace kzq
