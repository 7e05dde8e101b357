#pragma once

#include <memory>
#include <utility>

#include "app/absence.h"
#include "app/app_environment.h"
#include "app/backing_up.h"
#include "app/bring_back_flow.h"
#include "app/carry_in.h"
#include "app/carry_out.h"
#include "app/doctor_visit.h"
#include "app/firmware_notices.h"
#include "app/flow/flows.h"
#include "app/handed_files.h"
#include "app/key_order.h"
#include "app/listening.h"
#include "app/menu_closing.h"
#include "app/menu_control.h"
#include "app/model/loop_model.h"
#include "app/open_questions.h"
#include "app/panels.h"
#include "app/presenter.h"
#include "app/rows.h"
#include "app/staging.h"
#include "app/teller.h"
#include "app/transfer_panel.h"
#include "app/unused_files.h"
#include "operations/kept_copies.h"
#include "platform/fixed.h"
#include "slots/slot_field_editor.h"

namespace kzq {

class MainWindow;

/// Where the copies of what is erased or replaced are kept; empty without a home folder.
inline std::filesystem::path keptPlace(const std::filesystem::path& home) {
    return home.empty() ? home : home / ".local/share/kzq7306";
}

/// All that the controller owns. What a new panel or flow adds to the window is added here, and made in
/// launch.cpp. Main thread.
struct AppParts : Fixed {
    AppParts(AppEnvironment given, MainWindow& mainWindow)
        : environment(std::move(given)), window(mainWindow) {}

    const AppEnvironment environment;
    MainWindow& window;
    LoopModel model;
    std::unique_ptr<SlotFieldEditor> fieldEditor;
    Panels panels;
    Rows rows;
    Presenter presenter{window, rows, model, panels.about};
    Teller teller{environment, window, model};
    UnusedFiles unusedFiles{teller};
    const std::shared_ptr<Staging> staging =
        std::make_shared<Staging>(environment, model, presenter, teller, unusedFiles);
    HandedFiles handedFiles{model, *staging, teller, unusedFiles};
    OpenQuestions questions{environment.executor};
    MenuControl menu{environment, window, panels, teller};
    CarryIn carryIn{*this};
    CarryOut carryOut{*this};
    FirmwareNotices firmware{*this};
    Listening listening{*this};
    TransferPanel transferPanel{environment, window, menu, panels};
    const KeptCopies kept{keptPlace(environment.home)};
    BringingBack bringBack{*this};
    BackingUp backingUp{*this};
    DoctorVisit doctor{*this};
    KeyOrder keyOrder{*this};
    std::unique_ptr<Flows> flows;    ///< since the launch
    bool verifyAfterExport = false;  ///< as the menu has it
    std::shared_ptr<Absence> absence;
    std::unique_ptr<MenuClosing> menuClosing;
    std::unique_ptr<QObject> connections;  ///< from the window's buttons; end with it
};

}  // namespace kzq
