#include "ui/action_button.h"

namespace kzq {

void ActionButton::mouseDragged(bool inside) {
    if (isEnabled() && width() != 0 && inside != hovering()) {
        setHovering(inside);
    }
}

void ActionButton::mouseUp() {
    if (isEnabled() && hovering() && !sendAction()) {
        return;
    }
    setDown(false);
    update();
}

}  // namespace kzq
