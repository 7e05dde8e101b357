#pragma once

#include <functional>

class QMenuBar;

namespace kzq {

/// What the entries of the menu bar do.
struct MenuBarActions {
    std::function<void()> selectAll;
    std::function<void(bool)> verifyAfterExport;
    std::function<void()> openAboutBox;
    std::function<void()> openResults;
    std::function<void()> saveReport;
    std::function<void()> quit;
};

/// Paints the bar in the window's own colours, the same on every desktop.
void dressMenuBar(QMenuBar& bar);
/// File with Quit, Edit with Select All, Loop with Verify After Export, which is off, View with Recent
/// Results, Help with Save Report and About. Once.
void fillMenuBar(QMenuBar& bar, const MenuBarActions& actions);

}  // namespace kzq
