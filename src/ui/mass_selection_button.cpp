#include "ui/mass_selection_button.h"

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

}  // namespace kzq
