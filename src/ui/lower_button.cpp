#include "ui/lower_button.h"

#include <QHash>

namespace kzq {

QString LowerButton::pictureName() const {
    static const QHash<QString, QString> bases = {{"Erase (lower button)", "Erase"},
                                                  {"Import (lower button)", "Import"},
                                                  {"Export (lower button)", "Export"},
                                                  {"Cancel", "Cancel"}};
    const auto base = bases.value(objectName());
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

}  // namespace kzq
