#include "app/carry_out.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>
#include <algorithm>
#include <system_error>
#include <utility>

#include "app/app_parts.h"
#include "app/main_window.h"
#include "app/set_up.h"
#include "platform/new_file.h"
#include "platform/unique_name.h"
#include "ui/drag_files.h"
#include "ui/strip.h"

namespace kzq {

namespace {

namespace fs = std::filesystem;

using Files = std::vector<fs::path>;

/// A loop of the load, with the name that an import would give its file.
struct Item {
    SlotNumber slot;
    std::string name;
    std::uint64_t bytes = 0;
    fs::path copy = {};
};

/// In a folder of their own beside the first copy, which becomes `folder`.
Result<Files> namedCopies(const std::vector<Item>& items, const fs::path& folder) {
    std::error_code error;
    fs::create_directory(folder, error);
    if (error) {
        return Trouble{Trouble::Kind::file, "create", error.value()};
    }
    Files files;
    for (const auto& item : items) {
        auto file = copyToNewFile(item.copy, folder, item.name, ".wav");
        if (!file) {
            return file.error();
        }
        files.push_back(std::move(*file));
    }
    return files;
}

void removeFolder(Executor& executor, const fs::path& folder) {
    executor.background(Priority::standard, [folder] {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    });
}

}  // namespace

struct CarryOut::Load {
    QPointer<QWidget> row;
    std::vector<Item> items;
    std::size_t arrived = 0;
    std::unique_ptr<Strip> strip;
    fs::path folder = {};  ///< of the files
};

CarryOut::~CarryOut() {
    end();
}

std::shared_ptr<CarryOut::Load> CarryOut::pickUp(const Slot& row) const {
    auto load = std::make_shared<Load>();
    load->row = row.view();
    const auto& selection = parts_.model.selection();
    const auto slots =
        row.selected() ? std::vector(selection.begin(), selection.end()) : std::vector{slotOf(row)};
    std::vector<CarriedLoop> shown;
    for (const auto slot : slots) {
        if (const auto* const loop = parts_.model.table().find(slot)) {
            const auto name = parts_.rows.importRow(slot).name().value_or(QString());
            load->items.push_back({slot, name.toStdString(), loop->bytes});
            shown.push_back({name, QString::fromStdString(clockText(Frames{loop->samples}))});
        }
    }
    if (!shown.empty()) {
        load->strip = std::make_unique<Strip>(std::move(shown), &parts_.window);
    }
    return load;
}

void CarryOut::begin(const Slot& row) {
    if (load_ != nullptr || !source_.fetch || parts_.window.shield() != nullptr) {
        return;
    }
    const auto load = pickUp(row);
    if (load->items.empty()) {
        return;
    }
    load_ = load;
    QCoreApplication::instance()->installEventFilter(this);
    load->strip->follow(QCursor::pos());
    std::vector<SlotNumber> slots;
    for (const auto& item : load->items) {
        slots.push_back(item.slot);
    }
    source_.fetch(
        std::move(slots),
        [this, life = std::weak_ptr(life_), load](SlotNumber slot, Result<fs::path> copy) {
            if (!life.expired()) {
                arrived(load, slot, std::move(copy));
            }
        },
        [weak = std::weak_ptr(load)](double share) {
            if (const auto waiting = weak.lock(); waiting && waiting->strip) {
                waiting->strip->setArrived(share);
            }
        });
}

void CarryOut::arrived(const std::shared_ptr<Load>& load, SlotNumber slot, Result<fs::path> copy) {
    if (load != load_) {
        return;
    }
    if (!copy) {
        fail(*load, copy.error());
        return;
    }
    std::ranges::find(load->items, slot, &Item::slot)->copy = std::move(*copy);
    if (++load->arrived != load->items.size()) {
        return;
    }
    if (std::ranges::all_of(load->items, [this](const Item& i) { return source_.counts(i.slot, i.copy); })) {
        nameFiles(load);
    } else {
        fail(*load, Trouble{Trouble::Kind::changedWhileRead});
    }
}

void CarryOut::nameFiles(const std::shared_ptr<Load>& load) {
    constexpr std::size_t randomBytes = 4;
    load->folder = load->items.front().copy.parent_path() / ("carried-" + randomDigits(randomBytes));
    auto& executor = parts_.environment.executor;
    executor.background(Priority::high, [this, &executor, life = std::weak_ptr(life_), load,
                                         items = load->items, folder = load->folder] {
        auto files = namedCopies(items, folder);
        executor.main([this, &executor, life, load, folder, files = std::move(files)] {
            if (!life.expired() && load == load_) {
                named(load, files);
            } else {
                removeFolder(executor, folder);
            }
        });
    });
}

void CarryOut::named(const std::shared_ptr<Load>& load, const Result<Files>& files) {
    if (files) {
        drag(*load, *files);
    } else {
        removeFolder(parts_.environment.executor, load->folder);
        fail(*load, files.error());
    }
}

void CarryOut::drag(const Load& load, const Files& files) {
    QList<QUrl> urls;
    for (const auto& file : files) {
        urls.push_back(QUrl::fromLocalFile(QString::fromStdString(file.string())));
    }
    const auto picture = load.strip->picture();
    const auto hotSpot = load.strip->hotSpot();
    auto& executor = parts_.environment.executor;
    const auto dragged = parts_.environment.dragFiles;
    Taken copies{load.folder, 0};
    for (const auto& item : load.items) {
        copies.bytes += item.bytes;
    }
    const QPointer<QWidget> row = load.row;
    const std::weak_ptr life = life_;
    end();
    const bool taken = dragged ? dragged(urls) : row != nullptr && dragFiles(*row, urls, picture, hotSpot);
    if (!taken) {
        removeFolder(executor, copies.folder);
    } else if (!life.expired()) {
        keep(copies);
    }
}

void CarryOut::keep(const Taken& taken) {
    taken_.push_back(taken);
    std::uint64_t bytes = 0;
    for (const auto& each : taken_) {
        bytes += each.bytes;
    }
    for (; bytes > room_ && taken_.size() > 1; taken_.pop_front()) {
        bytes -= taken_.front().bytes;
        removeFolder(parts_.environment.executor, taken_.front().folder);
    }
}

void CarryOut::fail(const Load& load, const Trouble& trouble) {
    const auto items = load.items;
    end();
    if (trouble.kind == Trouble::Kind::cancelled) {
        return;  // what was started instead says what it does
    }
    source_.giveUp();
    if (isMissingRule(trouble)) {
        parts_.teller.tell(toldMissingRule(trouble), "import", settingUp(parts_, trouble, {}));
        return;
    }
    const bool one = items.size() == 1;
    parts_.teller.tell(
        {.what = one ? words("%1 was not dragged out", loopName(items.front().slot))
                     : words(items.size(), "%n loop was not dragged out", "%n loops were not dragged out"),
         .why = reasonFor(Deed::save, trouble, one ? "" : words("a loop")),
         .detail = adviceOn(trouble),
         .failure = true});
}

void CarryOut::giveUp() {
    if (load_ != nullptr) {
        end();
        source_.giveUp();
    }
}

/// The strip goes.
void CarryOut::end() {
    if (const auto load = std::exchange(load_, nullptr)) {
        if (auto* const application = QCoreApplication::instance()) {
            application->removeEventFilter(this);
        }
        load->strip.reset();
    }
}

/// While it waits: where the pointer is, and whether the button is still down.
bool CarryOut::eventFilter(QObject* watched, QEvent* event) {
    if (load_ == nullptr || !watched->isWidgetType()) {
        return false;
    }
    if (event->type() == QEvent::MouseMove) {
        load_->strip->follow(static_cast<const QMouseEvent&>(*event).globalPosition().toPoint());
    } else if (event->type() == QEvent::MouseButtonRelease) {
        giveUp();
    } else if (event->type() == QEvent::WindowBlocked) {
        // a dialog opens, behind which the button comes up unseen
        parts_.environment.executor.main([this, life = std::weak_ptr(life_)] {
            if (!life.expired()) {
                giveUp();
            }
        });
    }
    return false;
}

}  // namespace kzq
