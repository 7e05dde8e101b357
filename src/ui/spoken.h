#pragma once

#include <QString>
#include <QWidget>

namespace kzq {

// What assistive technology reads out about a widget. The toolkit announces a change each time that it is
// set, even if it is the same again.

inline void callIt(QWidget& part, const QString& name) {
    if (part.accessibleName() != name) {
        part.setAccessibleName(name);
    }
}

inline void describeAs(QWidget& part, const QString& description) {
    if (part.accessibleDescription() != description) {
        part.setAccessibleDescription(description);
    }
}

}  // namespace kzq
