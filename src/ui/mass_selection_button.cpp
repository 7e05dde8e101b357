#include "ui/mass_selection_button.h"

#include "ui/qt_words.h"

namespace kzq {

void MassSelectionButton::mouseDragged(bool inside) {
    setHovering(inside);
}

void MassSelectionButton::mouseUp() {
    setDown(false);
    update();
    if (hovering()) {
        sendAction();
    }
}

QString MassSelectionButton::pictureName() const {
    if (objectName().isEmpty()) {
        return {};
    }
    const auto* state = !isEnabled() ? "Gray" : isDown() ? "Press" : hovering() ? "Hover" : "Base";
    return QString("%1_%2").arg(objectName(), state);
}

QString MassSelectionButton::word() const {
    return toQt(objectName() == "Select_All" ? words("All") : words("None"));
}

}  // namespace kzq
