#include "app/launch.h"

#include <utility>

#include "app/app_delegate.h"
#include "app/app_parts.h"
#include "app/main_window.h"
#include "app/menu_actions.h"
#include "app/menu_bar.h"
#include "device/kzq7306.h"
#include "ui/scale.h"
#include "words/words.h"

namespace kzq {

namespace {

void makeSoftwareUpdater(const std::shared_ptr<AppDelegate>& controller, AppParts& parts) {
    const auto& environment = parts.environment;
    auto& updater = parts.panels.sparkle;
    updater = std::make_shared<SUUpdater>(
        UpdaterEnvironment{environment.executor, environment.http, environment.desktop, environment.build,
                           environment.installation, environment.downloads, environment.home});
    updater->setFeedURL(environment.feedAddress(environment.home));
    updater->setDelegate(controller);
    const auto pedalIsAtWork = [link = environment.link] {
        const auto looper = link();
        return looper && looper->operation() != KZQ7306::idle;
    };
    parts.panels.softwareUpdate =
        SoftwareUpdate::softwareUpdate({updater, environment.product.version, pedalIsAtWork});
}

bool makeMenu(AppDelegate& controller, AppParts& parts) {
    const auto& environment = parts.environment;
    auto& menu = parts.panels.menu;
    menu = Menu::menu(controller, environment.dialogs, parts.window.contentView(), environment.product);
    if (!menu) {
        return false;
    }
    if (environment.modifiers) {
        menu->setModifierProbe(environment.modifiers);
    }
    auto& view = *menu->view();
    const auto button = placeOf(*parts.window.menuButton());
    const auto size = placeOf(view).size();
    view.hide();
    place(view, {QPoint(button.right() + 1 - size.width(), button.top()), size});
    return true;
}

void makePanels(const std::shared_ptr<AppDelegate>& controller, AppParts& parts) {
    const auto& environment = parts.environment;
    auto& panels = parts.panels;
    const auto pedalVersion = [link = environment.link] {
        const auto looper = link();
        return looper ? looper->version() : std::nullopt;
    };
    panels.about = About::about(*controller, environment.executor, environment.dialogs, pedalVersion,
                                environment.product, environment.splash);
    panels.progress = Progress::progress([weak = std::weak_ptr(controller)] {
        if (const auto self = weak.lock()) {
            self->cancelTransfer();
        }
    });
    const auto pedalIsBlank = [link = environment.link] {
        const auto looper = link();
        return looper && looper->factoryBlank();
    };
    panels.firmwareUpdater = FirmwareUpdater::updater({environment.executor,
                                                       environment.http,
                                                       pedalIsBlank,
                                                       pedalVersion,
                                                       environment.product.version,
                                                       environment.home,
                                                       {environment.firmwareManifest, environment.build.keys},
                                                       {},
                                                       {},
                                                       [weak = std::weak_ptr(controller), &parts] {
                                                           if (const auto self = weak.lock()) {
                                                               parts.firmware.newsChanged();
                                                           }
                                                       }});
    panels.firmwareNotice = std::make_unique<FirmwareNoticeWindow>();
    if (panels.firmwareUpdater) {
        panels.firmwareUpdater->setDelegate(controller.get());
    }
}

/// The rows of a tab, in the order of their placeholders. False if one cannot be created.
bool makeRows(QWidget& tab, std::int32_t context, AppDelegate& controller, Rows::List& list) {
    const QString prefix = context == Slot::importContext ? "import slot " : "export slot ";
    for (auto* const child : tab.children()) {
        auto* const placeholder = qobject_cast<QWidget*>(child);
        if (placeholder == nullptr || !placeholder->objectName().startsWith(prefix)) {
            continue;
        }
        const auto number = placeholder->objectName().section(' ', -1).toUInt();
        auto row = Slot::slotNumber(static_cast<std::uint8_t>(number), context, controller, placeholder);
        if (!row) {
            return false;
        }
        row->setDelegate(&controller);
        list.push_back(std::move(row));
    }
    return true;
}

bool makeRows(AppDelegate& controller, AppParts& parts) {
    Rows rows;
    if (!makeRows(*parts.window.tabs()->widget(0), Slot::importContext, controller, rows.imports) ||
        !makeRows(*parts.window.tabs()->widget(1), Slot::exportContext, controller, rows.exports)) {
        return false;
    }
    parts.rows = std::move(rows);
    parts.window.settleTabOrder();
    parts.rows.watchKeys();
    parts.carryIn.watch();
    return true;
}

void makeFlows(const std::shared_ptr<AppDelegate>& controller, AppParts& parts) {
    const auto& environment = parts.environment;
    FlowWindow window{.life = controller};
    window.shield = [&main = parts.window, &staging = *parts.staging, &listening = parts.listening](bool up) {
        if (up) {
            listening.covered();
        }
        up ? main.addShield() : main.removeShield();
        up ? staging.hold() : staging.release();
    };
    window.sayBusy = [&dialogs = environment.dialogs] {
        dialogs.run(alertWithHeadline(words("Device is busy. Try again later.")));
    };
    window.saySilent = [&parts] {
        const bool endable = parts.flows->running() || parts.flows->yielding();
        if (endable || parts.listening.isAwaited()) {  // otherwise there is nothing to cancel
            parts.teller.silent(endable);
        }
    };
    window.waiting = [&listening = parts.listening](bool waits) { listening.setAwaited(waits); };
    window.freed = [&parts] {
        parts.listening.readNext();
        parts.backingUp.goOn();
    };
    window.keepAwake = environment.keepAwake;
    parts.flows = std::make_unique<Flows>(environment.executor, std::move(window), environment.link);
}

void connectButtons(const std::shared_ptr<AppDelegate>& controller, AppParts& parts) {
    const auto& window = parts.window;
    parts.connections = std::make_unique<QObject>();
    const auto act = [weak = std::weak_ptr(controller)](void (AppDelegate::*action)()) {
        return [weak, action] {
            if (const auto self = weak.lock()) {
                (self.get()->*action)();
            }
        };
    };
    const auto connect = [&](QAbstractButton* button, void (AppDelegate::*action)()) {
        QObject::connect(button, &QAbstractButton::clicked, parts.connections.get(), act(action));
    };
    connect(window.importTabButton(), &AppDelegate::selectImportTab);
    connect(window.exportTabButton(), &AppDelegate::selectExportTab);
    connect(window.menuButton(), &AppDelegate::openMenu);
    connect(window.eraseButton(), &AppDelegate::eraseButtonClicked);
    connect(window.importButton(), &AppDelegate::importButtonClicked);
    connect(window.exportButton(), &AppDelegate::exportButtonClicked);
    connect(window.selectAllButton(), &AppDelegate::selectAll);
    connect(window.deselectAllButton(), &AppDelegate::deselectAll);
    const auto actions = menuActions(controller, parts);
    parts.teller.suggestBackup(actions.backUp);
    fillMenuBar(*window.menuBar(), actions);
}

}  // namespace

void launch(const std::shared_ptr<AppDelegate>& controller, AppParts& parts) {
    makeFlows(controller, parts);
    makeSoftwareUpdater(controller, parts);
    parts.fieldEditor = std::make_unique<SlotFieldEditor>();
    parts.model.reset();
    parts.menuClosing = std::make_unique<MenuClosing>([&menu = parts.menu] { menu.close(); });
    if (!makeMenu(*controller, parts)) {
        return;
    }
    makePanels(controller, parts);
    if (!makeRows(*controller, parts)) {
        return;
    }
    connectButtons(controller, parts);
    parts.carryOut.setSource(
        {.fetch = [&listening = parts.listening](auto slots, auto copy,
                                                 auto moved) { listening.fetch(slots, copy, moved); },
         .giveUp = [&listening = parts.listening] { listening.giveUp(); },
         .counts = [&listening = parts.listening](
                       SlotNumber slot, const auto& copy) { return listening.copyOf(slot) == copy; }});
    parts.presenter.followStaging([&listening = parts.listening] { listening.rowsChanged(); });
    parts.keyOrder.watch();
    if (auto* const shell = parts.environment.shell) {
        shell->setClicked([weak = std::weak_ptr(controller)] {
            if (const auto self = weak.lock()) {
                self->comeForward();
            }
        });
    }
    parts.window.centre();
    KZQ7306::initialize(controller);
    if (parts.environment.diagnose) {
        parts.absence =
            Absence::watch(parts.environment.executor, parts.window, parts.environment.diagnose,
                           [&teller = parts.teller](const auto& holder) { teller.heldBy(holder); });
    }
    parts.menu.openAbout();
}

}  // namespace kzq
