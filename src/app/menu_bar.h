#pragma once

#include <functional>

class QMenuBar;

namespace kzq {

class WindowSize;

/// What the entries of the menu bar do.
struct MenuBarActions {
    std::function<void()> selectAll;
    std::function<void()> bringBack;
    std::function<bool()> keepsCopies;      ///< as it is now
    std::function<bool(bool)> keepCopies;   ///< false: it stays as it was
    std::function<void(bool)> explainKeep;  ///< while the pointer is on it
    std::function<void(bool)> verifyAfterExport;
    std::function<void()> openAboutBox;
    std::function<void()> selectImportTab;
    std::function<void()> selectExportTab;
    WindowSize* size = nullptr;  ///< without it, the menu offers no sizes
    std::function<void()> openResults;
    std::function<void()> saveReport;
    std::function<void()> backUp;
    std::function<void()> restore;
    std::function<void()> quit;
};

/// Paints the bar in the window's own colours, the same on every desktop, at the size of the program.
void dressMenuBar(QMenuBar& bar);
/// File with Back Up, Restore and Quit, Edit with Select All, Bring Back and Keep Copies, Loop with Verify
/// After Export, which is off, View with the tabs, Recent Results and the sizes, Help with Save Report and
/// About. Once.
void fillMenuBar(QMenuBar& bar, const MenuBarActions& actions);

}  // namespace kzq
