#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QTextEdit>

namespace kzq::test {

/// The widget of that name in `window`, which must exist.
template <typename Kind>
Kind& control(QWidget& window, const char* name) {
    auto* const found = window.findChild<Kind*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
}

}  // namespace kzq::test
