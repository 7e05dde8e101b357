#include "app/bus/activation.h"

#include <QGuiApplication>

namespace kzq {

void letComeForward(const QByteArray& token) {
    if (!token.isEmpty() && QGuiApplication::platformName().startsWith("wayland")) {
        qputenv("XDG_ACTIVATION_TOKEN", token);
    }
}

}  // namespace kzq
