#pragma once

#include <functional>

class QMenu;
class QMenuBar;

namespace kzq {

class WindowSize;

/// What an entry of the menu bar does.
struct MenuEntry {
    std::function<void()> act;
    std::function<bool()> can = {};  ///< whether it can do that now; empty: always
};

/// What the entries of the menu bar do. An entry that can do nothing when its menu opens is disabled there,
/// and its keys do nothing then.
struct MenuBarActions {
    std::function<bool()> covered;  ///< an operation covers the window: only Quit works

    // --- File

    MenuEntry importLoops;
    MenuEntry exportFiles;
    std::function<void()> backUp;  ///< without both of these, the menu offers no backups
    std::function<void()> restore;
    MenuEntry saveReport;
    std::function<void()> quit;

    // --- Edit

    MenuEntry selectAll;
    MenuEntry selectNone;
    MenuEntry pasteFiles;
    MenuEntry bringBack;
    std::function<bool()> keepsCopies;      ///< as it is now
    std::function<bool(bool)> keepCopies;   ///< false: it stays as it was
    std::function<void(bool)> explainKeep;  ///< while the pointer is on it

    // --- Loop, about the row with the keyboard

    MenuEntry play;
    MenuEntry rename;
    MenuEntry chooseFile;
    MenuEntry remove;
    std::function<void(bool)> verifyAfterExport;

    // --- View

    MenuEntry importTab;
    MenuEntry exportTab;
    MenuEntry results;
    WindowSize* size = nullptr;  ///< without it, the menu offers no sizes

    // --- Help

    MenuEntry userGuide;
    MenuEntry doctor;
    MenuEntry about;
};

/// Paints the bar in the window's own colours, the same on every desktop, at the size of the program.
void dressMenuBar(QMenuBar& bar);
/// Fills it with File, Edit, Loop, View and Help. Once.
void fillMenuBar(QMenuBar& bar, const MenuBarActions& actions);
/// A part of it.
void fillFileMenu(QMenu& menu, const MenuBarActions& actions);

}  // namespace kzq
