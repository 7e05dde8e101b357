#include "flow_fixture.h"

#include <QAction>
#include <QMenuBar>
#include <QUrl>
#include <algorithm>
#include <fstream>
#include <iterator>

#include "app/application.h"
#include "audio/wave.h"
#include "loops/facts.h"
#include "platform/log.h"
#include "slots/slot_field.h"
#include "slots/slot_field_editor.h"

namespace kzq::test {

namespace fs = std::filesystem;

namespace {

simulator::PedalMemory threeLoops() {
    simulator::PedalMemory memory;
    memory[0] = loopOf(1000, 10);
    memory[2] = loopOf(2000, 20);
    memory[19] = loopOf(1, 30);
    return memory;
}

}  // namespace

FlowTest::FlowTest()
    : pedal(executor, {.memory = threeLoops()}), port(executor, pedal), folder(base / "imports") {
    for (const auto* const name : {"imports", "copies", "files", "home", "run"}) {
        fs::create_directory(base / name);
    }
    EXPECT_TRUE(kept.turn(false));
    setLogSink([this](LogCategory /*category*/, std::string_view line) { logged.emplace_back(line); });
    About::rearmSplash();
    KZQ7306::load({executor, port, [] { return 36U; }, 3s});
    window = std::make_unique<MainWindow>();
    dialogs.folder = [this] { return Dialogs::Chosen{panelOk, folder}; };
}

FlowTest::~FlowTest() {
    static_cast<Application*>(qApp)->setDelegate(nullptr);
    executor.endJobs();
    delegate.reset();
    window.reset();
    KZQ7306::unload();
    setLogSink({});
}

void FlowTest::TearDown() {
    EXPECT_THAT(pedal.violations(), testing::IsEmpty());
    EXPECT_EQ(executor.mainThreadWaits() > 0, mainThreadWaits);
}

void FlowTest::launch(Executor::Duration wait) {
    delegate = std::make_shared<AppDelegate>(
        AppEnvironment{
            .executor = executor,
            .dialogs = dialogs,
            .http = web,
            .link = &KZQ7306::looper,
            .home = base / "home",
            .product = {.version = "2.1.0", .website = "https://www.maker.example"},
            .firmwareManifest = "https://maker.example/firmware/_.json",
            .feedAddress = [](const auto& home) { return "https://feed/" + home.filename().string(); },
            .desktop = {},
            .build = {},
            .installation = {},
            .downloads = base,
            .backups = base / "documents/7306 backups",
            .convert = [this](const std::string& path) { return convert(path, false); },
            .salvage = [this](const std::string& path) { return convert(path, true); },
            .lengthOf = lengthOf,
            .dragFiles = dragFiles,
            .diagnose = [this] { return diagnosis; },
            .asRoot = asRoot,
            .wasEverBackedUp = wasEverBackedUp,
            .backedUp = backedUp,
            .keepAwake = keepAwake,
            .examine = examine,
            .report = [this] { return report; },
            .modifiers = {},
            .writeFile = writeFile,
            .freeSpace = [this](const auto& /*folder*/) { return freeSpace; },
            .sound = sound,
            .shell = shell,
            .asleep = [this] { return asleep; },
            .runFolder = [this] { return std::optional<fs::path>(base / "run"); },
            .quit = [this] { quitAsked = true; }},
        *window);
    static_cast<Application*>(qApp)->setDelegate(delegate.get());
    delegate->applicationDidFinishLaunching();
    pass(wait);
}

void FlowTest::plugIn() {
    pedal.plugIn();
    executor.settle();
}

void FlowTest::launchConnected() {
    pedal.plugIn();
    launch();
}

void FlowTest::plan(const std::string& fault) {
    pedal.plan(simulator::faultFromText(fault).value());
}

void FlowTest::pass(Executor::Duration time) {
    executor.advance(time);
    QCoreApplication::processEvents();
}

bool FlowTest::becomesIdle() {
    executor.advance(200ms);
    executor.advance(200ms);  // a question may have taken the time of the first
    const bool idle = executor.advanceUntil([this] { return !shieldUp(); }, 1min);
    executor.settle();
    return idle && !delegate->progress()->isVisible();
}

void FlowTest::select(std::initializer_list<std::uint8_t> slots) {
    for (const auto slot : slots) {
        importRow(slot).button()->click();
    }
}

void FlowTest::type(std::uint8_t slot, const QString& name) {
    auto& field = *importRow(slot).field();
    field.startRenaming();
    ASSERT_NE(field.currentEditor(), nullptr);
    field.currentEditor()->setText(name);
}

fs::path FlowTest::audioFile(const std::string& name, std::uint64_t frames) {
    auto path = base / "files" / name;
    const auto header = waveHeader(static_cast<std::uint32_t>(frames * frameBytes), 2);
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(header.data()), header.size());
    fs::resize_file(path, header.size() + frames * frameBytes);
    return path;
}

/// Copies of long files are not filled: a test of the capacity needs hundreds of megabytes.
Result<std::string> FlowTest::convert(const std::string& path, bool salvage) {
    executor.sleep(conversionTime);
    if (const auto flaw = flaws.find(fs::path(path).filename()); flaw != flaws.end() && !salvage) {
        return Trouble(flaw->second);
    }
    if (!fs::exists(path)) {
        return Trouble{Trouble::Kind::notAFile, path, ENOENT};
    }
    const auto copy = base / "copies" / (std::to_string(++copies_) + ".wav");
    std::ifstream source(path, std::ios::binary);
    std::string head(std::min<std::size_t>(fs::file_size(path), 1'000'000), '\0');
    source.read(head.data(), static_cast<std::streamsize>(head.size()));
    std::ofstream(copy, std::ios::binary) << head;
    fs::resize_file(copy, fs::file_size(path));
    return copy.string();
}

void FlowTest::drop(std::uint8_t slot, const fs::path& file) {
    delegate->slotReceivedDroppedURLs(exportRow(slot), {QUrl::fromLocalFile(QString::fromStdString(file))});
}

void FlowTest::stage(std::uint8_t slot, std::uint64_t frames) {
    drop(slot, audioFile("song " + std::to_string(slot) + ".wav", frames));
    executor.settle();
    ASSERT_TRUE(delegate->selectedExportSlots().contains(*SlotNumber::of(slot)));
}

QAction& FlowTest::menuEntry(const QString& text) const {
    const auto entries = window->menuBar()->findChildren<QAction*>();
    const auto found = std::ranges::find(entries, text, &QAction::text);
    EXPECT_NE(found, entries.end());
    return **found;
}

void FlowTest::verifyAfterExport() {
    EXPECT_FALSE(menuEntry("&Verify After Export").isChecked());
    menuEntry("&Verify After Export").trigger();
}

std::string FlowTest::caption() const {
    return window->meterCaption()->text().toStdString();
}

Bytes FlowTest::contents(const std::string& name) const {
    std::ifstream file(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

long FlowTest::workingCopies() const {
    return std::distance(fs::directory_iterator(base / "copies"), {});
}

std::vector<int> FlowTest::sent(std::uint8_t request) const {
    std::vector<int> values;
    for (const auto& event : pedal.journal()) {
        if (event.kind == simulator::WireEvent::Kind::control && event.code == request) {
            values.push_back(event.value);
        }
    }
    return values;
}

}  // namespace kzq::test
