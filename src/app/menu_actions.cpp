#include "app/menu_actions.h"

#include <QClipboard>
#include <QMimeData>
#include <utility>

#include "app/app_delegate.h"
#include "app/app_parts.h"
#include "app/main_window.h"
#include "app/save_report.h"
#include "app/user_guide.h"
#include "ui/panels/backup_panel.h"
#include "ui/status/status_line.h"

namespace kzq {

namespace {

/// Makes functions that do nothing once the controller has gone, and answer no.
class WhileThere {
  public:
    explicit WhileThere(const std::shared_ptr<AppDelegate>& controller) : weak_(controller) {}

    template <class Act>
    auto operator()(Act act) const {
        return [weak = weak_, act = std::move(act)](auto... with) {
            using Answer = decltype(act(with...));
            const auto there = weak.lock();
            return there ? act(with...) : Answer();
        };
    }

  private:
    std::weak_ptr<AppDelegate> weak_;
};

bool showsImport(const AppParts& parts) {
    return parts.window.tabs()->currentIndex() == 0;
}

/// What is done to the loops of a tab, or to its files, is done in sight.
void turnTo(AppDelegate& controller, const AppParts& parts, bool import) {
    if (showsImport(parts) != import) {
        import ? controller.selectImportTab() : controller.selectExportTab();
    }
}

bool clipboardHasFiles() {
    const auto* const clipboard = QGuiApplication::clipboard()->mimeData();
    return clipboard != nullptr && clipboard->hasUrls();
}

void addFileAndEdit(MenuBarActions& actions, AppDelegate& controller, AppParts& parts,
                    const WhileThere& there) {
    const auto& window = parts.window;
    actions.importLoops = {there([&] {
                               turnTo(controller, parts, true);
                               controller.importButtonClicked();
                           }),
                           there([&] { return window.importButton()->isEnabled(); })};
    actions.exportFiles = {there([&] {
                               turnTo(controller, parts, false);
                               controller.exportButtonClicked();
                           }),
                           there([&] { return window.exportButton()->isEnabled(); })};
    actions.backUp = there([&] { parts.backingUp.open(BackupPanel::Kind::backUp); });
    actions.restore = there([&] { parts.backingUp.open(BackupPanel::Kind::restore); });
    actions.saveReport = {there([&] { saveReport(parts); })};
    actions.quit = there([&] { parts.environment.quit(); });
    actions.selectAll = {there([&] {
                             turnTo(controller, parts, true);
                             controller.selectAll();
                         }),
                         there([&] { return window.selectAllButton()->isEnabled(); })};
    actions.selectNone = {there([&] {
                              turnTo(controller, parts, true);
                              controller.deselectAll();
                          }),
                          there([&] { return !parts.model.selection().empty(); })};
    actions.pasteFiles = {there([&] { parts.carryIn.paste(); }), clipboardHasFiles};
    actions.bringBack = {there([&] { parts.bringBack.open(); })};
    actions.keepsCopies = [kept = parts.kept] { return kept.on(); };
    actions.keepCopies = there([&](bool on) { return parts.bringBack.keep(on); });
    actions.explainKeep = there([&](bool shown) { parts.bringBack.explain(shown); });
}

void addLoop(MenuBarActions& actions, AppParts& parts, const WhileThere& there) {
    const auto onRow = [&](auto able, auto act) {
        const auto can = [&rows = parts.rows, able] {
            const auto* const row = rows.focused();
            return row != nullptr && able(*row);
        };
        return MenuEntry{there([&rows = parts.rows, act] { act(*rows.focused()); }), there(can)};
    };
    actions.play = onRow([](const Slot& row) { return row.canPlay(); }, [](Slot& row) { row.playClicked(); });
    actions.rename = onRow([](const Slot& row) { return !row.isExport() && row.occupied(); },
                           [](Slot& row) { row.field()->startRenaming(); });
    actions.chooseFile = onRow([](const Slot& row) { return row.isExport() && row.button()->isEnabled(); },
                               [](Slot& row) { row.button()->click(); });
    actions.remove = onRow([](const Slot& row) { return row.isExport() && row.exporting().has_value(); },
                           [](Slot& row) { row.doNotExport(); });
    actions.verifyAfterExport = there([&](bool on) { parts.verifyAfterExport = on; });
}

}  // namespace

MenuBarActions menuActions(const std::shared_ptr<AppDelegate>& owner, AppParts& parts) {
    const WhileThere there(owner);
    auto& controller = *owner;
    MenuBarActions actions;
    actions.covered = there([&] { return parts.window.shield() != nullptr; });
    addFileAndEdit(actions, controller, parts, there);
    addLoop(actions, parts, there);
    actions.importTab = {there([&] { controller.selectImportTab(); })};
    actions.exportTab = {there([&] { controller.selectExportTab(); })};
    actions.results = {there([&] { parts.window.statusLine().openList(Qt::ShortcutFocusReason); })};
    actions.size = &parts.window.sizeOnScreen();
    actions.userGuide = {there([&] { openUserGuide(parts); })};
    actions.doctor = {there([&] { parts.doctor.open(); }), there([&] { return parts.doctor.isThere(); })};
    actions.about = {there([&] { controller.openAboutBox(); })};
    return actions;
}

}  // namespace kzq
