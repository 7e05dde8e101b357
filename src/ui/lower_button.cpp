#include "ui/lower_button.h"

#include <QHash>

#include "ui/qt_words.h"

namespace kzq {

namespace {

QString baseOf(const QString& identifier) {
    static const QHash<QString, QString> bases = {{"Erase (lower button)", "Erase"},
                                                  {"Import (lower button)", "Import"},
                                                  {"Export (lower button)", "Export"},
                                                  {"Cancel", "Cancel"}};
    return bases.value(identifier);
}

}  // namespace

QString LowerButton::pictureName() const {
    const auto base = baseOf(objectName());
    if (base.isEmpty()) {
        return {};
    }
    // Cancel never greys out, and stays pressed even if the pointer leaves it
    const auto* state = base == "Cancel" ? (isDown()     ? "On"
                                            : hovering() ? "hover"
                                                         : "Off")
                        : !isEnabled()   ? "Gray"
                        : !hovering()    ? "Off"
                        : isDown()       ? "On"
                                         : "hover";
    return QString("%1_button_%2").arg(base, state);
}

QString LowerButton::word() const {
    const auto base = baseOf(objectName());
    return toQt(base == "Erase"    ? words("Erase")
                : base == "Import" ? words("Import")
                : base == "Export" ? words("Export")
                                   : words("Cancel"));
}

}  // namespace kzq
