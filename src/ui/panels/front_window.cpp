#include "ui/panels/front_window.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>

namespace kzq {
namespace {

bool floats(const QWidget* window) {
    const auto type = window->windowType();
    return window->isVisible() && (type == Qt::Window || type == Qt::Dialog) &&
           window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

}  // namespace

QWidget* frontWindow(QWidget* usual) {
    if (auto* const dialog = QApplication::activeModalWidget()) {
        return dialog;
    }
    if (auto* const active = QApplication::activeWindow(); active != nullptr && floats(active)) {
        return active;
    }
    const auto windows = QApplication::topLevelWidgets();
    const auto floating = std::find_if(windows.begin(), windows.end(), floats);
    return floating == windows.end() ? usual : *floating;
}

}  // namespace kzq
