#include <algorithm>

#include "audio/wave.h"
#include "operation.h"
#include "operations/backup.h"
#include "operations/keep.h"
#include "operations/restore.h"

namespace kzq::test {

namespace {

/// Every file below a folder.
std::map<std::string, std::string> treeOf(const std::filesystem::path& folder) {
    std::map<std::string, std::string> tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            tree[std::filesystem::relative(entry, folder)] = readText(entry);
        }
    }
    return tree;
}

/// At any moment: nothing of what was there is lost, and what has a date is whole.
void expectWhole(const World& world, const std::map<std::string, std::string>& earlier,
                 const Generations& all, std::size_t loops) {
    auto now = treeOf(world.folder);
    for (const auto& [file, text] : earlier) {
        EXPECT_TRUE(now[file] == text) << file;
    }
    for (const auto& backup : all.snapshots()) {
        const auto index = backup.folder.index();
        EXPECT_TRUE(index && index->loops.size() == loops) << backup.name;
        for (const auto& [slot, entry] : index->loops) {
            EXPECT_TRUE(backup.folder.isIntact(entry)) << entry.file;
        }
    }
}

BackupEnd backUp(World& world, const Status& status) {
    return runBackup(*world.work, {Generations(world.folder), status, [] { return "2026-11-22 14-02-31"; }},
                     {});
}

/// The folder of a backup of what the pedal holds now.
BackupFolder makeBackup(World& world) {
    std::optional<BackupEnd> made;
    world.begin(false, false);
    EXPECT_TRUE(world.run([&] { made = backUp(world, world.work->status().value()); }));
    return made.value().snapshot.value().folder;
}

/// Beside an earlier one, which has one of the loops.
class BackingUp : public LoopOperation {
  public:
    BackingUp() : LoopOperation(Deed::save, false) {}

    void prepare(World& world) override {
        world.plugIn();
        makeBackup(world);
        world.set(1_slot, audioOf(40, 61));
        world.set(3_slot, audioOf(300, 63));  // as long as before
        earlier_ = treeOf(world.folder);
        aims_ = {{1_slot, {}}, {3_slot, {}}, {20_slot, {}}};
    }
    void check(World& world) override {
        LoopOperation::check(world);
        const auto snapshots = Generations(world.folder).snapshots();
        EXPECT_EQ(snapshots.size(), snapshot_ && outcome_.whole() ? 2U : 1U);
        EXPECT_LE(Generations(world.folder).unfinished().size(), outcome_.whole() ? 0U : 1U);
        if (snapshot_) {
            const auto& folder = snapshot_->folder;
            const auto index = folder.isComplete() ? folder.index() : folder.partialIndex();
            EXPECT_EQ(index ? index->loops.size() : 0, files(world));
        }
    }
    void checkFiles(World& world) override { expectWhole(world, earlier_, Generations(world.folder), 3); }
    std::string computer(World& /*world*/) const override {
        return !snapshot_         ? "no new backup"
               : outcome_.whole() ? "a complete backup"
                                  : "an unfinished one, with whole files";
    }

  protected:
    void run(World& world) override {
        if (const auto status = table(world)) {
            auto end = backUp(world, *status);
            outcome_ = std::move(end.outcome);
            snapshot_ = std::move(end.snapshot);
        }
    }
    void checkClaim(World& world, const SlotOutcome& loop) override {
        using Did = SlotOutcome::Did;
        EXPECT_TRUE(loop.trouble || loop.did == Did::saved || loop.did == Did::kept);
        EXPECT_TRUE(loop.trouble || intact(world, loop.slot));
    }
    std::size_t reached(World& world) const override { return files(world); }

  private:
    /// Listed, with the audio that the pedal has.
    bool intact(World& /*world*/, SlotNumber slot) const {
        if (!snapshot_) {
            return false;
        }
        const auto& folder = snapshot_->folder;
        const auto index = folder.isComplete() ? folder.index() : folder.partialIndex();
        if (!index || !index->loops.contains(slot)) {
            return false;
        }
        const auto text = readText(folder.fileOf(index->loops.at(slot)));
        const auto& audio = before_.at(slot);
        return folder.isIntact(index->loops.at(slot)) &&
               std::equal(text.begin() + 44, text.end(), audio.begin(), audio.end(),
                          [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
    }
    std::size_t files(World& world) const {
        return static_cast<std::size_t>(
            std::ranges::count_if(aims_, [&](const auto& aim) { return intact(world, aim.first); }));
    }

    std::map<std::string, std::string> earlier_;
    std::optional<Snapshot> snapshot_;
};

/// What the window copies before it erases two loops, of which it has an earlier copy each: one is still the
/// same.
class Keeping : public LoopOperation {
  public:
    Keeping() : LoopOperation(Deed::save, true) {}

    void prepare(World& world) override {
        world.plugIn();
        aims_ = {{1_slot, {}}, {3_slot, {}}};
        world.begin(false, false);
        EXPECT_TRUE(world.run([&] { run(world); }));
        EXPECT_TRUE(outcome_.whole());
        earlier_ = treeOf(world.folder);
        world.set(3_slot, audioOf(300, 63));
        outcome_ = {};
        stamp_.clear();
    }
    void check(World& world) override {
        LoopOperation::check(world);
        EXPECT_EQ(outcome_.whole() && outcome_.wanted != 0, !stamp_.empty());
        EXPECT_EQ(Generations(world.folder / "kept").snapshots().size(), stamp_.empty() ? 1U : 2U);
    }
    void checkFiles(World& world) override {
        expectWhole(world, earlier_, Generations(world.folder / "kept"), 2);
    }
    Said said() const override { return said_ ? *said_ : LoopOperation::said(); }
    std::string computer(World& world) const override {
        return reached(world) == 2 ? "a copy of each" : "no new copies";
    }

  protected:
    void run(World& world) override {
        const auto status = table(world);
        if (!status || aims_.empty()) {
            return;
        }
        auto kept = runKeep(*world.work,
                            {.copies = KeptCopies(world.folder),
                             .slots = asked(),
                             .seen = status->loops,
                             .stamp = [] { return "2026-11-22 14-02-31"; }},
                            {});
        outcome_ = std::move(kept.outcome);
        stamp_ = std::move(kept.stamp);
        if (outcome_.end) {
            const auto told = toldNotKept(Deed::erase, outcome_);
            said_ = LoopOperation::said();
            said_->line = told.what + (told.why.empty() ? "" : ": " + told.why);
            said_->sentences = {said_->line, told.detail};
            outcome_.slots.clear();  // none of them counts
        }
    }
    void checkClaim(World& /*world*/, const SlotOutcome& loop) override { EXPECT_FALSE(loop.trouble); }
    /// How many the operation that follows may rely on.
    std::size_t reached(World& world) const override {
        const auto copies = KeptCopies(world.folder).list();
        return static_cast<std::size_t>(std::ranges::count_if(copies, [&](const KeptCopy& copy) {
            const auto image = wave(before_.at(copy.slot), 2).value();
            return copy.stamp == stamp_ && readText(copy.file) == std::string(image.begin(), image.end());
        }));
    }

  private:
    std::map<std::string, std::string> earlier_;
    std::string stamp_;
    std::optional<Said> said_;
};

/// Of a backup from which the pedal has drifted: one loop of the same length is another, one is gone, one
/// is new, one is the same.
class Restoring : public LoopOperation {
  public:
    Restoring() : LoopOperation(Deed::write, false) {}

    void prepare(World& world) override {
        world.plugIn();
        folder_ = makeBackup(world);
        saved_ = treeOf(world.folder);
        const auto old = world.held();
        world.set(1_slot, audioOf(1, 71));
        world.set(3_slot, std::nullopt);
        world.set(5_slot, audioOf(30, 75));
        aims_ = {{1_slot, old.at(1_slot)}, {3_slot, old.at(3_slot)}, {5_slot, std::nullopt}};
    }
    void checkFiles(World& world) override { EXPECT_EQ(treeOf(world.folder), saved_); }

  protected:
    void run(World& world) override {
        before_ = world.held();
        outcome_.wanted = aims_.size();
        const auto plan = planRestore(*world.work, {*folder_}, [](auto) {}, {});
        if (!plan) {
            outcome_.end = plan.error();
        } else {
            outcome_ = runRestore(*world.work, *plan, {});
        }
    }

  private:
    std::optional<BackupFolder> folder_;
    std::map<std::string, std::string> saved_;
};

}  // namespace

Make backupOperation() {
    return [] { return std::make_unique<BackingUp>(); };
}

Make keepOperation() {
    return [] { return std::make_unique<Keeping>(); };
}

Make restoreOperation() {
    return [] { return std::make_unique<Restoring>(); };
}

}  // namespace kzq::test
