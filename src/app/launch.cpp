#include <QStackedWidget>
#include <utility>

#include "app/absence.h"
#include "app/app_delegate.h"
#include "app/busy_question.h"
#include "app/main_window.h"
#include "app/menu_bar.h"
#include "app/menu_closing.h"
#include "device/kzq7306.h"
#include "slots/slot_field_editor.h"
#include "ui/background.h"
#include "ui/lower_button.h"
#include "ui/mass_selection_button.h"
#include "ui/panels/about.h"
#include "ui/panels/menu.h"
#include "ui/panels/progress.h"
#include "ui/picture_button.h"
#include "updates/windows/software_update.h"

namespace kzq {

namespace {

std::optional<std::string> pedalVersion() {
    const auto looper = KZQ7306::looper();
    return looper ? looper->version() : std::nullopt;
}

bool pedalIsBlank() {
    const auto looper = KZQ7306::looper();
    return looper && looper->factoryBlank();
}

bool pedalIsAtWork() {
    const auto looper = KZQ7306::looper();
    return looper && looper->operation() != KZQ7306::idle;
}

}  // namespace

AppDelegate::AppDelegate(AppEnvironment environment, MainWindow& window)
    : environment_(std::move(environment)),
      window_(window),
      busyQuestion_(std::make_unique<BusyQuestion>(environment_.executor)) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    makeSoftwareUpdater();
    fieldEditor_ = std::make_unique<SlotFieldEditor>();
    selectedImportSlots_.clear();
    selectedExportSlots_.clear();
    menuClosing_ = std::make_unique<MenuClosing>([this] { closeMenu(); });
    if (!makeMenu()) {
        return;
    }
    makePanels();
    Slots importSlots;
    Slots exportSlots;
    if (!makeSlots(0, Slot::importContext, importSlots) || !makeSlots(1, Slot::exportContext, exportSlots)) {
        return;
    }
    importSlots_ = std::move(importSlots);
    exportSlots_ = std::move(exportSlots);
    window_.settleTabOrder();
    connectButtons();
    window_.centre();
    KZQ7306::initialize(shared_from_this());
    if (environment_.diagnose) {
        absence_ = Absence::watch(environment_.executor, window_, environment_.diagnose);
    }
    openAbout();
}

void AppDelegate::makeSoftwareUpdater() {
    sparkle_ = std::make_shared<SUUpdater>(
        UpdaterEnvironment{environment_.executor, environment_.http, environment_.desktop, environment_.build,
                           environment_.installation, environment_.downloads});
    sparkle_->setFeedURL(environment_.feedAddress(environment_.home));
    sparkle_->setDelegate(weak_from_this());
    softwareUpdate_ =
        SoftwareUpdate::softwareUpdate({sparkle_, environment_.product.version, &pedalIsAtWork});
}

bool AppDelegate::makeMenu() {
    menu_ = Menu::menu(*this, environment_.dialogs, window_.contentView(), environment_.product);
    if (!menu_) {
        return false;
    }
    if (environment_.modifiers) {
        menu_->setModifierProbe(environment_.modifiers);
    }
    auto& view = *menu_->view();
    const auto button = window_.menuButton()->geometry();
    view.hide();
    view.move(button.right() + 1 - view.width(), button.top());
    return true;
}

void AppDelegate::makePanels() {
    about_ =
        About::about(*this, environment_.executor, environment_.dialogs, &pedalVersion, environment_.product);
    progress_ = Progress::progress([weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->cancelTransfer();
        }
    });
    firmwareUpdater_ = FirmwareUpdater::updater({environment_.executor,
                                                 environment_.http,
                                                 &pedalIsBlank,
                                                 &pedalVersion,
                                                 environment_.product.version,
                                                 environment_.home,
                                                 environment_.firmwareManifest,
                                                 {},
                                                 {}});
    if (firmwareUpdater_) {
        firmwareUpdater_->setDelegate(this);
    }
}

/// The rows of a tab, in the order of their placeholders. False if one cannot be created.
bool AppDelegate::makeSlots(int tab, std::int32_t context, Slots& list) {
    const QString prefix = context == Slot::importContext ? "import slot " : "export slot ";
    for (auto* const child : window_.tabs()->widget(tab)->children()) {
        auto* const placeholder = qobject_cast<QWidget*>(child);
        if (placeholder == nullptr || !placeholder->objectName().startsWith(prefix)) {
            continue;
        }
        const auto number = placeholder->objectName().section(' ', -1).toUInt();
        auto slot = Slot::slotNumber(static_cast<std::uint8_t>(number), context, *this, placeholder);
        if (!slot) {
            return false;
        }
        slot->setDelegate(this);
        list.push_back(std::move(slot));
    }
    return true;
}

void AppDelegate::connectButtons() {
    connections_ = std::make_unique<QObject>();
    const auto act = [this](void (AppDelegate::*action)()) {
        return [weak = weak_from_this(), action] {
            if (const auto self = weak.lock()) {
                (self.get()->*action)();
            }
        };
    };
    const auto connect = [&](QAbstractButton* button, void (AppDelegate::*action)()) {
        QObject::connect(button, &QAbstractButton::clicked, connections_.get(), act(action));
    };
    connect(window_.importTabButton(), &AppDelegate::selectImportTab);
    connect(window_.exportTabButton(), &AppDelegate::selectExportTab);
    connect(window_.menuButton(), &AppDelegate::openMenu);
    connect(window_.eraseButton(), &AppDelegate::eraseButtonClicked);
    connect(window_.importButton(), &AppDelegate::importButtonClicked);
    connect(window_.exportButton(), &AppDelegate::exportButtonClicked);
    connect(window_.selectAllButton(), &AppDelegate::selectAll);
    connect(window_.deselectAllButton(), &AppDelegate::deselectAll);
    fillMenuBar(*window_.menuBar(),
                {act(&AppDelegate::selectAll), act(&AppDelegate::openAboutBox), act(&AppDelegate::quit)});
}

}  // namespace kzq
