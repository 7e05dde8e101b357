#include <QAction>
#include <QTest>
#include <iostream>
#include <regex>
#include <span>
#include <sstream>

#include "app/app_parts.h"
#include "audio/wave.h"
#include "device/wire.h"
#include "flow_fixture.h"
#include "lives.h"
#include "mouse.h"
#include "operations/ended_twice.h"
#include "platform/log.h"
#include "ui/alert_button.h"

namespace kzq::test {

namespace {

namespace fs = std::filesystem;

/// A life of the window, of its user, its pedals and the web. What happens in it, and in which order its
/// threads run, is decided by a trace. What must hold is checked after each step, and at its end.
class Orders : public FlowTest {
  protected:
    Ended live(const Trace& trace) {
        return apart([&] {
            trace_ = trace;
            begin();
            while (at_ < trace_.size()) {
                step();
            }
            end();
            std::cout << "steps " << steps_ << std::endl;
        });
    }

  private:
    /// What happens by itself does so on a thread of its own, and so at any moment of the program.
    enum class By { itself, user, anybody };
    struct Event {
        const char* name;
        By by;
        std::function<void()> happen;
    };

    std::size_t decide(std::size_t count) {
        ++steps_;
        return (at_ < trace_.size() ? static_cast<std::size_t>(trace_[at_++] - '0') : 0) % count;
    }

    void begin() {
        for (const auto& entry : fs::directory_iterator(base.path())) {
            fs::remove_all(entry);
            fs::create_directory(entry);
        }
        setLogSink([this](auto /*category*/, auto line) {
            std::cout << "    " << line << '\n';
            EXPECT_NE(line, endedTwice);
            const bool silent = line == "the pedal is silent";
            mayHang_ = mayHang_ || silent;
            wasSilent_ = wasSilent_ || silent;
        });
        executor.choose = [this](auto count) { return decide(count); };
        pedal.setMemoryListener([this](auto address, const auto* loop) { changed(address, loop); });
        port.tamper = [this](auto code, auto reply) {
            refused_ = refused_ || (code == wire::busy.code && reply[answerOffset] == refusal && shieldUp());
            looks_[0] += code == wire::firstLoops.code ? 1 : 0;
            looks_[1] += code == wire::lastLoops.code ? 1 : 0;
            executor.sleep(0s);  // anything may happen here
        };
        dialogs.answer = [this] { return (whileAsked(), answer()); };
        dialogs.folder = [this] {
            whileAsked();
            const bool backup = dialogs.titled.find("backup") != std::string::npos;
            return decide(3) == 2 ? Dialogs::Chosen{} : Dialogs::Chosen{panelOk, backup ? backups_ : folder};
        };
        dragFiles = [this](const auto& urls) {
            const auto whole = [this](const QUrl& url) { return isOfALoop(url.toLocalFile().toStdString()); };
            EXPECT_TRUE(std::ranges::all_of(urls, whole));
            return decide(2) == 0;
        };
        addUserEvents();
        addOtherEvents();
        EXPECT_TRUE(kept.turn(keeps_ = decide(2) == 0));
        quits_ = decide(4) == 3;
        port.pace = port.writePace = 20ms * decide(2);
        conversionTime = 50ms * decide(2);
        swapPedal(stageNormal);
        window->setUpdatesEnabled(false);  // nobody looks
        launch(0s);
    }

    void step() {
        const bool happens = decide(10) > 7;
        happens ? happen(events_[decide(events_.size())]) : void(executor.step());
        QCoreApplication::processEvents();
        checkStep();
        if (!shieldUp()) {
            firstChange_.reset();
            dubbed_ = false;
        }
        if (HasFailure()) {
            std::cout << std::flush;
            ::_exit(1);
        }
    }

    void happen(const Event& event) {
        if (event.by != By::user || (asking_ == 0 && !shieldUp())) {
            const auto now = std::chrono::duration<double>(executor.elapsed());
            std::cout << now.count() << " s: " << event.name << '\n';
            event.by == By::itself ? executor.background(Priority::standard, event.happen) : event.happen();
        }
    }

    void add(const char* name, By by, const std::function<void()>& task) {
        if (by != By::itself || decide(5) == 4) {  // each life has few of them, so that others come far
            events_.push_back({name, by, task});
        }
    }

    void addUserEvents() {
        for (int twice = 0; twice < 2; ++twice) {
            add("select", By::user, [this] { press(importRow(anyRow()).button()); });
            add("select all", By::user, [this] { press(window->selectAllButton()); });
            add("import", By::user, [this] { press(window->importButton()); });
            add("erase", By::user, [this] { press(window->eraseButton()); });
            add("export", By::user, [this] { press(window->exportButton()); });
            add("drop", By::user, [this, row = anyRow()] { drop(row, anyFile(row)); });
            add("a while", By::anybody, [this] { executor.advance(500ms * decide(40)); });
        }
        add("play", By::user, [this] {
            auto& row = decide(3) == 0 ? exportRow(anyRow()) : importRow(anyRow());
            row.canPlay() ? row.playClicked() : void();
        });
        add("link", By::user, [this] {
            auto& link = window->statusLine().link();
            press(link.text().contains("without a copy") ? nullptr : &link);
        });
        add("verify", By::user, [this] { menuEntry("&Verify After Export").trigger(); });
        decide(5) != 4
            ? void()
            : add("firmware", By::user, [this] { delegate->installFirmware(audioFile("new.bin", 10)); });
        for (auto times = decide(4) == 3 ? 8 : 1; times > 0; --times) {  // some lives are full of them
            for (const auto* const entry : {"Back &Up\u2026", "&Restore\u2026", "&Bring Back\u2026"}) {
                add(entry, By::user, [this, entry] { menuEntry(entry).trigger(); });
            }
            add("answer in a panel", By::user, [this] { pressInPanel<AlertButton>(); });
            add("press in a panel", By::user, [this] { pressInPanel<QAbstractButton>(); });
        }
        add("drag", By::user, [this] {
            Mouse mouse(*importRow(anyRow()).background());
            mouse.press();
            mouse.dragBy({12, 0});
        });
        add("key", By::user, [this] {
            constexpr std::array keys = {Qt::Key_Space,  Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,
                                         Qt::Key_Delete, Qt::Key_Down,   Qt::Key_P,      Qt::Key_Z};
            auto* const at = window->focusWidget();
            if (at != nullptr && qobject_cast<StatusLink*>(at) == nullptr) {
                QTest::keyClick(at, keys.at(decide(keys.size())));
            }
        });
    }

    void addOtherEvents() {
        for (const auto* const fault : {"silence@control", "silence@in", "silence@out", "stall@in",
                                        "stall@EB", "shorten@out", "refuse@ED", "refuse@E2"}) {
            add(fault, By::itself, [this, fault] { plan(fault); });
        }
        add("unplug", By::itself, [this] { unplug(); });
        add("another pedal", By::itself, [this] { swapPedal(stageNormal); });
        add("another's loader", By::itself, [this] { swapPedal(stageFactoryBlank); });
        add("record", By::anybody, [this] { setLoop(anyRow() - 1U, ++nextFrames_); });
        add("overdub", By::anybody, [this] { overdub(anyRow() - 1U); });
        add("erased on the pedal", By::itself, [this] { setLoop(anyRow() - 1U, 0); });
        add("played", By::itself, [this] { pedal.setBusy(true); });
        add("no longer played", By::itself, [this] { pedal.setBusy(false); });
        add("plug in", By::anybody, [this] { pedal.plugIn(); });
        add("files", By::anybody, [this] { delegate->openFiles({QUrl::fromLocalFile(anyFile(0).c_str())}); });
        add("cancel", By::anybody,
            [this] { delegate->progress()->isVisible() ? delegate->progress()->cancel() : void(); });
        add("stop", By::anybody,
            [this] { press(shieldUp() ? window->shield()->findChild<StatusLink*>() : nullptr); });
        add("let go", By::anybody, [this] { Mouse(*importRow(1).background()).release(); });
        add("poll", By::anybody, [] { KZQ7306::looper()->refresh(); });
        add("heard", By::anybody, [this] { output.take(150); });
        add("sleep", By::anybody, [this] { skip(asleep += 1h); });
        add("too busy", By::anybody, [this] { skip(700ms * decide(20)); });
    }

    static void press(QAbstractButton* button) {
        if (button != nullptr && button->isVisibleTo(button->window()) && button->isEnabled()) {
            button->click();
        }
    }
    template <typename Button>
    void pressInPanel() {
        for (const auto* const panel : window->findChildren<QDialog*>()) {
            const auto buttons = panel->findChildren<Button*>();
            const std::span all(buttons);
            press(panel->isVisible() && !all.empty() ? all[decide(all.size())] : nullptr);
        }
    }
    void skip(Executor::Duration time) {
        late_ = true;
        executor.skip(time);
    }
    std::uint8_t anyRow() { return static_cast<std::uint8_t>(1 + decide(4)); }

    fs::path anyFile(std::uint8_t slot) {
        files_[++nextFrames_] = slot;
        return audioFile("song " + std::to_string(nextFrames_) + ".wav", nextFrames_);
    }

    /// An open question, and what happens meanwhile.
    void whileAsked() {
        ++asking_;
        while (decide(5) != 0) {
            step();
        }
        --asking_;
    }

    int answer() {
        ++told_;
        const auto question = dialogs.take().back();
        const int said = decide(3) == 2 ? alertSecondButton : alertFirstButton;
        std::cout << "    asked: " << question << ' ' << said << '\n';
        const bool erases = question.starts_with("Erased loop audio");
        const bool exports = question.starts_with("Overwriting loop slots");
        const auto restored = std::min(question.find("To be "), question.size());
        for (const auto slot : allSlots()) {
            const auto& row = importRow(slot.number());
            const std::regex number("\\b" + std::to_string(slot.number()) + "\\b");
            const bool meant = erases    ? row.selected()
                               : exports ? delegate->selectedExportSlots().contains(slot)
                                         : std::regex_search(question.substr(restored), number);
            agreed_.insert(said == alertFirstButton && meant && row.occupied() ? row.samples() : 0);
        }
        return said;
    }

    // --- the pedal's side

    /// 0: empties it.
    void setLoop(std::size_t address, std::size_t frames) {
        held_.at(address) = frames;
        isDub_.at(address) = false;
        // one that begins does so even if a poll looks once more before that
        const auto link = KZQ7306::looper();
        const bool begins = link && link->operation() != KZQ7306::idle;
        recorded_.at(address) = looks_.at(address / recordsInReply) + (begins ? 1 : 0);
        late_ = late_ || shieldUp();
        files_[frames] = static_cast<std::uint8_t>(address + 1);
        auto& loop = ever_[frames];
        loop = loopOf(static_cast<std::uint32_t>(frames), static_cast<std::uint8_t>(frames));
        pedal.setLoop(static_cast<std::uint8_t>(address), frames == 0 ? std::nullopt : std::optional(loop));
    }

    /// What hangs ends then.
    void unplug() {
        pedal.unplug();
        pedal.setBusy(false);
        mayHang_ = false;
    }

    void swapPedal(char stage) {
        unplug();
        for (std::size_t address = 0; address < loopSlots; ++address) {
            setLoop(address, address == 0 || address == 2 ? ++nextFrames_ : 0);
        }
        recorded_.fill(-1);
        pedal.setStage(stage);
        pedal.plugIn();
    }

    /// Another take of the same length, which only the pedal's sequence byte shows. One at most while the
    /// window is covered: what is read twice may be played twice.
    void overdub(std::size_t address) {
        const auto frames = held_.at(address);
        if (frames != 0 && !std::exchange(dubbed_, true)) {
            dubs_.at(address) = KZQ7306::looper()->doubts();
            isDub_.at(address) = true;
            pedal.setSequence(++sequence_);
            pedal.setLoop(static_cast<std::uint8_t>(address), takeOf(frames, true));
        }
    }
    simulator::StoredLoop takeOf(std::size_t frames, bool dub) const {
        auto loop = ever_.at(frames);
        std::ranges::for_each(loop.audio, [dub](auto& byte) { byte ^= dub ? 0xFF : 0; });
        return loop;
    }
    /// Whether its first change had the chance to know of it; what follows that is not looked at again.
    bool isUnheard(std::size_t address) const {
        return isDub_.at(address) && dubs_.at(address) >= firstChange_;
    }

    bool isKept(std::size_t frames, bool dub) const {
        const auto copies = kept.list();
        return std::ranges::any_of(copies,
                                   [&](const KeptCopy& copy) { return isImage(copy.file, frames, dub); });
    }
    bool isImage(const fs::path& file, std::size_t frames, bool dub) const {
        const auto image = wave(takeOf(frames, dub).audio, 2).value();
        return readText(file) == std::string(image.begin(), image.end());
    }
    bool isOfALoop(const fs::path& file) const {
        const auto frames = (fs::file_size(file) - waveHeaderSize) / frameBytes;
        return ever_.contains(frames) && (isImage(file, frames, false) || isImage(file, frames, true));
    }

    /// By the program.
    void changed(std::uint8_t address, const simulator::StoredLoop* loop) {
        firstChange_ = firstChange_.value_or(KZQ7306::looper()->doubts());
        auto& held = held_.at(address);
        const auto name = "Loop " + std::to_string(address + 1);
        std::cout << "    " << name << (loop == nullptr ? " is gone\n" : " is written\n");
        const bool unseen = recorded_.at(address) >= looks_.at(address / recordsInReply);
        if (held != 0 && !unseen) {
            EXPECT_TRUE(agreed_.contains(held)) << name << " is lost, and nobody was asked";
            EXPECT_TRUE(!keeps_ || isKept(held, isDub_.at(address)) || isUnheard(address))
                << name << " is lost without a copy";
        }
        held = 0;
        isDub_.at(address) = false;
        if (loop != nullptr) {
            held = loop->audio.size() / frameBytes;
            const auto file = files_.find(held);
            EXPECT_TRUE(file != files_.end() && (file->second == 0 || file->second == address + 1)) << name;
            isDub_.at(address) = ever_.try_emplace(held, *loop).first->second.audio != loop->audio;
            EXPECT_TRUE(takeOf(held, isDub_.at(address)).audio == loop->audio) << name;
            agreed_.erase(held);
        }
    }

    // --- what must hold

    void checkManners() {
        for (const auto all = pedal.violations(); judged_ < all.size(); ++judged_) {
            const auto& violation = all[judged_];  // of what came too late to be noticed
            const bool bulk = violation.find(": a bulk ") != std::string::npos;
            EXPECT_TRUE(late_ && (bulk || violation.find("with the flag") != std::string::npos)) << violation;
        }
        late_ = late_ && (shieldUp() || KZQ7306::looper()->operation() != KZQ7306::idle);
    }

    void checkStep() {
        checkManners();
        keeps_ = keeps_ && kept.on();
        if (window->saysNoPedal()) {
            EXPECT_TRUE(delegate->selectedImportSlots().empty() && !importRow(3).occupied());
        }
        if (const bool up = shieldUp(); up != covered_) {
            covered_ = up;
            const auto& list = delegate->parts().teller.announcements().list();
            const auto told = told_ + (list.empty() ? 0 : list.front().number);
            EXPECT_TRUE(up || told > toldBefore_) << "nobody is told what came of it";
            toldBefore_ = told;
        }
    }

    /// Whole, of a loop that was there, and never replaced.
    void expectFiles() {
        for (const auto& name : namesIn(folder)) {
            EXPECT_TRUE(isOfALoop(folder / name)) << name;
            const auto size = fs::file_size(folder / name);
            EXPECT_EQ(saved_.try_emplace(name, size).first->second, size) << name << " is replaced";
        }
        EXPECT_EQ(saved_.size(), namesIn(folder).size()) << "a file is lost";
    }

    void end() {
        std::cout << "the end\n";
        executor.choose = {};
        executor.settle();
        expectFiles();
        if (!quits_) {
            expectRest();
            expectTheNextOneWorks();
            expectFiles();
        }
        window->close();
        delegate->applicationWillTerminate();
        const std::weak_ptr<AppDelegate> rest = delegate;
        delegate.reset();
        EXPECT_TRUE(rest.expired());
        pass(5s);
        checkManners();
        EXPECT_TRUE(executor.mainThreadWaits() == 0 || wasSilent_) << "the window waits";
    }

    /// Nothing more happens. A batch that was refused leaves the shield for good, and a silent pedal the
    /// operation until the cable is pulled; an update waits for its pedal.
    void expectRest() {
        auto& link = *KZQ7306::looper();
        pedal.setBusy(false);
        const auto rests = [&] {
            return link.operation() == KZQ7306::idle && !shieldUp() && !delegate->progress()->isVisible();
        };
        EXPECT_TRUE(executor.advanceUntil(rests, 70s) || mayHang_ || refused_ || link.flashPending())
            << "it does not come to rest";
        pedal.clearFaults();
        unplug();
        pass(10s);  // an update waits eight for the loader
        EXPECT_EQ(port.openHandles(), 0);
        EXPECT_TRUE(window->saysNoPedal());
        if (link.flashPending()) {
            pedal.setStage(stageFactoryBlank);
            pedal.plugIn();
            pass(2min);
            EXPECT_FALSE(link.flashPending()) << "the update does not go on";
            pedal.unplug();
            pass(2s);
        }
        EXPECT_EQ(link.operation(), KZQ7306::idle);
        checkStep();
    }

    void expectTheNextOneWorks() {
        pedal.setStage(stageNormal);
        setLoop(6, ++nextFrames_);
        pedal.plugIn();
        pass(7s);
        EXPECT_TRUE(importRow(7).occupied());
        EXPECT_TRUE(!shieldUp() || refused_) << "the window stays covered";
        if (shieldUp()) {
            return;
        }
        delegate->deselectAll();
        importRow(7).button()->click();
        const auto before = namesIn(folder).size();
        window->importButton()->click();
        EXPECT_TRUE(becomesIdle()) << "the next operation does not end";
        EXPECT_EQ(namesIn(folder).size(), before + 1) << "the next operation fails";
        const auto alone = [this] { return executor.jobs() == 0; };
        EXPECT_TRUE(executor.advanceUntil(alone, 11min)) << "threads are left";
    }

    const fs::path backups_ = base / "home";
    Trace trace_;
    std::size_t at_ = 0;
    std::size_t steps_ = 0;
    std::vector<Event> events_;
    int asking_ = 0;  ///< questions that are open
    bool quits_ = false;
    bool keeps_ = false;    ///< and has done since the start
    bool mayHang_ = false;  ///< the pedal has fallen silent, and is still there
    bool refused_ = false;  ///< something behind the shield, since the pedal was played
    bool wasSilent_ = false;
    bool late_ = false;       ///< time has passed while nothing got its turn, for what is under way
    std::size_t judged_ = 0;  ///< violations
    bool covered_ = false;
    std::uint64_t told_ = 0;        ///< by alerts
    std::uint64_t toldBefore_ = 0;  ///< in all, when the window was covered
    // No two loops or files ever have the same length, in frames, so that is their name; 0: none.
    std::size_t nextFrames_ = 100;
    std::array<std::size_t, loopSlots> held_{};
    std::map<std::size_t, simulator::StoredLoop> ever_;
    std::set<std::size_t> agreed_;                 ///< to lose
    std::map<std::size_t, std::uint8_t> files_;    ///< and loops: for which slot; 0: for any
    std::array<int, loopSlots> recorded_{};        ///< after so many looks at it
    std::array<int, 2> looks_{};                   ///< of the program at either half of the table
    std::map<std::string, std::uintmax_t> saved_;  ///< their sizes
    // Takes of the same length.
    std::uint8_t sequence_ = 0;
    bool dubbed_ = false;                           ///< since the window was covered
    std::array<bool, loopSlots> isDub_{};           ///< what is held
    std::array<std::uint64_t, loopSlots> dubs_{};   ///< the link's doubts then
    std::optional<std::uint64_t> firstChange_ = 0;  ///< and at the first change since the window was covered
};

/// ORDERS: the first seed, and how many. ORDERS_TRACE: one life.
TEST_F(Orders, WhateverHappensAtAnyMoment) {
    const auto given = qEnvironmentVariable("ORDERS", "7306 48").toStdString();
    const auto one = qEnvironmentVariable("ORDERS_TRACE").toStdString();
    std::istringstream numbers(given);
    std::uint64_t seed = 0;
    std::uint64_t lives = 0;
    ASSERT_TRUE(numbers >> seed >> lives);
    std::size_t steps = 0;
    for (std::uint64_t life = 0; life < (one.empty() ? lives : 1); ++life) {
        const auto trace = one.empty() ? anyTrace(seed + life) : one;
        const auto ended = live(trace);
        if (!ended.well) {
            std::cout << ended.story << "seed " << seed + life << " fails: '" << trace << "'" << std::endl;
            const auto least = shortened(trace, [this](const Trace& other) { return !live(other).well; });
            FAIL() << live(least).story << "ORDERS_TRACE='" << least << "'";
        }
        EXPECT_TRUE(life != 0 || live(trace).story == ended.story) << "no trace can be repeated";
        steps += std::stoul(ended.story.substr(ended.story.rfind(' ')));
    }
    EXPECT_TRUE(!one.empty() || steps > 100 * lives);
    std::cout << steps << " steps\n";
}

}  // namespace

}  // namespace kzq::test
