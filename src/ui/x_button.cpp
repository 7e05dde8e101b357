#include "ui/x_button.h"

namespace kzq {

QString XButton::pictureName() const {
    if (objectName().isEmpty()) {
        return {};
    }
    return hovering() ? "Export_X_Hover" : "Export_X";
}

}  // namespace kzq
