#include "ui/fonts.h"

#include <QDir>
#include <QFontDatabase>
#include <QFontInfo>

#include "platform/log.h"

namespace kzq {

namespace {

constexpr auto folder = ":/fonts";
constexpr auto family = "Fira Sans";

struct Style {
    QFont::Weight weight;
    const char* name;
};

Style styleOf(FiraWeight weight) {
    switch (weight) {
        case FiraWeight::light:
            return {QFont::Light, "Light"};
        case FiraWeight::regular:
            break;
        case FiraWeight::medium:
            return {QFont::Medium, "Medium"};
    }
    return {QFont::Normal, "Regular"};
}

}  // namespace

void registerFonts() {
    static const bool once = [] {
        for (const auto& file : QDir(folder).entryInfoList({"*.ttf"}, QDir::Files)) {
            if (QFontDatabase::addApplicationFont(file.filePath()) < 0) {
                log(LogCategory::tool, "font not loaded: " + file.fileName().toStdString());
            }
        }
        return true;
    }();
    static_cast<void>(once);
}

std::optional<QFont> firaSans(FiraWeight weight, int pixels) {
    registerFonts();
    const auto [value, name] = styleOf(weight);
    QFont font(family);
    font.setPixelSize(pixels);
    font.setWeight(value);
    // the weight found proves nothing, as it repeats the request
    const QFontInfo found(font);
    if (found.family() != family || found.styleName() != name) {
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

QFont wordFont(int pixels) {
    return firaSans(FiraWeight::medium, pixels).value_or(textFont(pixels));
}

}  // namespace kzq
