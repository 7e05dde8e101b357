#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTranslator>

#include "app/backing_up_rows.h"
#include "app/main_window.h"
#include "app/menu_bar.h"
#include "app/window_size.h"
#include "gallery/bystanders.h"
#include "loops/capacity.h"
#include "operations/flash.h"
#include "operations/sentences.h"
#include "platform/free_space.h"
#include "slots/slot.h"
#include "ui/alert_panel.h"
#include "ui/fitted_label.h"
#include "ui/image_button.h"
#include "ui/panels/about.h"
#include "ui/panels/about_window.h"
#include "ui/panels/bring_back.h"
#include "ui/panels/doctor_panel.h"
#include "ui/panels/menu.h"
#include "ui/panels/menu_view.h"
#include "ui/panels/progress.h"
#include "ui/picture_button.h"
#include "ui/picture_view.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "ui/status/status_line.h"
#include "updates/firmware_texts.h"
#include "updates/windows/firmware_notice.h"
#include "updates/windows/firmware_updater.h"
#include "updates/windows/software_update.h"

namespace kzq {
namespace {

const QString unaccented("aceilnorsuyACEILNORSUY");

/// A language in which every text is a third longer, accented, and in brackets: "[Ṕľáý %1 ~~]".
std::string stretched(const Text& text) {
    static const QRegularExpression pattern("^(en|[dMyHm ,:]+|(%\\w|\\W)*)$");  // of days, of punctuation
    const auto english = QString::fromUtf8(text.one != nullptr && text.count == 1 ? text.one : text.english);
    if (pattern.match(english).hasMatch()) {
        return english.toStdString();
    }
    const QString accented("áćéíľńóŕšúýÁĆÉÍĽŃÓŔŠÚÝ");
    QString longer("[");
    for (qsizetype at = 0; at < english.size(); ++at) {
        const bool kept = at > 0 && (english[at - 1] == '%' || english[at - 1] == '&');
        const auto letter = kept ? -1 : unaccented.indexOf(english[at]);
        longer += letter < 0 ? english[at] : accented[letter];
    }
    return (longer + " " + QString((english.size() + 3) / 3, '~') + "]").toStdString();
}

/// For the descriptions of windows.
class Stretcher : public QTranslator {
  public:
    bool isEmpty() const override { return false; }
    QString translate(const char* /*context*/, const char* text, const char* /*one*/,
                      int /*count*/) const override {
        return toQt(stretched({text}));
    }
};

/// What is wrong with a text that should have been looked up as a whole; sentences and lists may follow each
/// other. Numbers, names of loops and of the product are in no language.
QString faultOf(QString text) {
    static const QRegularExpression free(R"(Loop (\d+|Manager)|www\.\S+|\.\w+)");
    text.remove(free);
    int depth = 0;
    QChar before = ' ';  // the last sign of the last pair, but for what makes it longer
    bool beside = false;
    for (const auto sign : text) {
        if (sign == '[') {
            if (depth++ == 0 && beside && before != '.' && before != u'…') {
                return "is put together";
            }
        } else if (sign == ']') {
            beside = --depth == 0;
        } else if (depth <= 0 ? sign.isLetter() : unaccented.contains(sign) && before != '&') {
            return "is not looked up";
        } else if (depth > 0 && sign != '~' && sign != ' ') {
            before = sign;
        } else if (depth == 0 && sign != ' ') {
            beside = false;
        }
    }
    return depth == 0 ? QString() : "is cut";
}

QString pictureOf(const QWidget& widget) {
    if (const auto* const view = qobject_cast<const PictureView*>(&widget)) {
        return view->picture();
    }
    if (const auto* const button = qobject_cast<const PictureButton*>(&widget)) {
        return button->picture();
    }
    const auto* const button = qobject_cast<const ImageButton*>(&widget);
    return button != nullptr ? button->pictureName() : QString();
}

class Languages : public testing::TestWithParam<int> {
  protected:
    Languages() {
        setCatalogue(stretched);
        QCoreApplication::installTranslator(&stretcher);
        ScaledPainter::setWatcher([this](const QString& text, bool fits) {
            ++painted;
            EXPECT_TRUE(fits) << text.toStdString();
            const bool part =
                text.contains('[') || text.contains(']') || text.contains('~');  // a line of more
            EXPECT_TRUE(part || faultOf(text).isEmpty()) << text.toStdString();
        });
        Scale::ofProgram().setSize(GetParam() / 100.0);
    }
    ~Languages() override {
        ScaledPainter::setWatcher({});
        setCatalogue({});
        Scale::ofProgram().setSize(1);
    }

    void look(const QString& text, const QWidget& widget) {
        texts += text.isEmpty() ? 0 : 1;
        EXPECT_EQ(faultOf(text).toStdString(), "")
            << widget.metaObject()->className() << " \"" << widget.objectName().toStdString()
            << "\": " << text.toStdString();
    }
    void lookAt(QWidget& widget) {
        const auto shown = pictureOf(widget);
        EXPECT_TRUE(shown.isEmpty() || picture(shown)) << shown.toStdString() << " is not there";
        auto* const told = QAccessible::queryAccessibleInterface(&widget);
        for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value}) {
            look(told != nullptr ? told->text(kind) : QString(), widget);
        }
        look(widget.toolTip(), widget);
        if (const auto* const label = qobject_cast<const QLabel*>(&widget);
            label && !label->text().isEmpty()) {
            const bool rich = label->text().startsWith('<');
            look(rich ? QString() : label->text(), widget);
            const auto wanted =
                label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
            EXPECT_LE(wanted.width(), label->width()) << label->text().toStdString();
            EXPECT_LE(wanted.height(), label->height() + (rich ? 1 : 0)) << label->text().toStdString();
        }
    }
    /// All that can be seen in it.
    void lookInto(QWidget& window) {
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.show();
        look(window.windowTitle(), window);
        for (auto* const widget : window.findChildren<QWidget*>()) {
            if (widget->isVisible() && !widget->objectName().startsWith("qt_")) {
                lookAt(*widget);
            }
        }
        EXPECT_FALSE(window.grab().isNull());
    }

    Stretcher stretcher;
    int painted = 0;
    int texts = 0;
    gallery::StillApplication application;
    gallery::StillDialogs dialogs;
    gallery::StillExecutor executor;
    gallery::StillRows delegate;
    Product product{"2.1.0", "https://www.kzq.example/"};
};

INSTANTIATE_TEST_SUITE_P(Percent, Languages, testing::Values(75, 100, 125, 150, 200, 300));

TEST_P(Languages, TheWindowAndItsMenusShowNothingButTranslations) {
    MainWindow window;
    window.sizeOnScreen().set(GetParam());
    std::vector<std::unique_ptr<Slot>> rows;
    for (std::uint8_t number = 1; number <= 20; ++number) {
        for (const auto context : {Slot::importContext, Slot::exportContext}) {
            const QString place(context == Slot::importContext ? "import slot %1" : "export slot %1");
            auto row =
                Slot::slotNumber(number, context, application, window.findChild<QWidget*>(place.arg(number)));
            row->setDelegate(&delegate);
            row->setOccupied(number % 2 == 1);
            row->setTempo(120);
            if (number % 4 == 1) {
                row->setLength({std::uint64_t{framesPerSecond} * 8});
                RowSound sound;
                sound.ring = RowSound::Ring::playing;
                sound.compares = true;
                row->setSound(sound);
                row->setExporting(QUrl("file:///1.wav"));
            }
            row->refresh();
            rows.push_back(std::move(row));
        }
    }
    rows[5]->setDropSign(DropSign{DropSign::Kind::refused, "1", "22:40", toQt(words("not readable"))});
    MenuBarActions actions;
    actions.backUp = actions.restore = [] {};
    fillMenuBar(*window.menuBar(), actions);
    for (auto* const action : window.menuBar()->findChildren<QAction*>()) {
        EXPECT_EQ(faultOf(action->text().section('\t', 0, 0)).toStdString(), "")
            << action->text().toStdString();
    }
    lookInto(window);
    EXPECT_FALSE(window.menuBar()->findChild<QWidget*>("qt_menubar_ext_button")->isVisible());
    window.showMeter(true);
    setFitted(*window.meterCaption(), toQt(meterCaption(framesPerSecond)), 13);
    window.setRemedy({});
    window.showTab(1);
    window.warning()->show();
    for (auto* const button : window.findChildren<QAbstractButton*>()) {
        button->setEnabled(true);
    }
    const auto announcements = std::make_shared<Announcements>(executor, &std::chrono::system_clock::now);
    window.statusLine().setAnnouncements(announcements);
    announcements->tell({.what = words("Nothing was restored"),
                         .why = words("its file could not be read"),
                         .detail = fileSentence({Trouble::Kind::file, {}, EACCES}),
                         .failure = true,
                         .actionLabel = words("Try again")});
    window.statusLine().openList(Qt::MouseFocusReason);
    const auto menu = Menu::menu(application, dialogs, window.contentView(), product);
    menu->view()->show();
    lookInto(window);
    menu->view()->hide();
    window.addShield();
    window.offerStop([] {});
    lookInto(window);
    EXPECT_GT(texts, 400);
    EXPECT_GT(painted, 60);
}

TEST(PictureWords, NothingOfTheEnglishOnesIsLeftUnderOthers) {
    PictureButton tab;
    tab.setPicture("Menu_Import_On");
    tab.setWords({" ", " "});
    tab.resize(208, 56);
    const auto empty = tab.grab(QRect(98, 12, 104, 40)).toImage();
    auto plain = empty;
    plain.fill(empty.pixel(0, 0));
    EXPECT_EQ(empty, plain);
    tab.setWords({"Import", "pedal to computer"});
    EXPECT_NE(tab.grab(QRect(98, 12, 104, 40)).toImage(), plain);
}

TEST_P(Languages, ThePanelsShowNothingButTranslations) {
    AlertPanel alert(yesOrNoAlertWithHeadline(words("Erased loop audio cannot be restored. Would you like to "
                                                    "continue?"),
                                              words("Please connect your device and try again.")));
    lookInto(alert);
    DoctorPanel doctor(nullptr);
    lookInto(doctor);
    doctor.setChecks({{true, toQt(words("Unplug it.")), "1"}, {false, toQt(words("Unplug it."))}});
    lookInto(doctor);
    BringBack bringBack(nullptr);
    lookInto(bringBack);
    bringBack.setLoops(std::set{3U});
    bringBack.setCopies(
        {{.slot = 3, .fate = toQt(words("replaced yesterday %1", "21:15")), .seconds = 42, .on = true},
         {.slot = 5, .fate = toQt(words("erased today %1", "14:02")), .seconds = 70}},
        toQt(sizeText(312'000'000)));
    lookInto(bringBack);
    for (const auto kind : {BackupPanel::Kind::restore, BackupPanel::Kind::backUp}) {
        BackupComparison shown{.changes = {}, .pedalKnown = true, .erases = true};
        for (const auto slot : allSlots()) {
            shown.changes.push_back({.slot = slot,
                                     .kind = static_cast<BackupChange::Kind>(slot.number() % 7),
                                     .onPedal = Frames{std::uint64_t{framesPerSecond} * 58},
                                     .inBackup = Frames{std::uint64_t{framesPerSecond} * 8}});
        }
        BackupPanel panel(kind, nullptr);
        panel.setOffers({toQt(words("no backup yet"))}, {}, 0);
        panel.setSlots(rowsOf(kind, shown));
        panel.setCounts(countsOf(kind, shown));
        panel.setReady(true, {}, {});
        lookInto(panel);
    }
    const auto progress = Progress::progress([] {});
    progress->setTotalBytes(212'000'000);
    progress->setPercent(0.41);
    lookInto(progress->window());
    const auto about = About::about(
        application, executor, dialogs, [] { return std::optional<std::string>("1.05"); }, product);
    lookInto(about->window());
    EXPECT_GT(texts, 80);
}

TEST_P(Languages, TheUpdateWindowsShowNothingButTranslations) {
    gallery::StillHttp http(R"(<rss version="2.0" xmlns:s="urn:s"><channel><item><title>3.0</title>
<enclosure url="https://www.kzq.example/a.AppImage" length="4" s:version="3000" s:shortVersionString="3.0"/></item></channel></rss>)");
    const auto firmware = FirmwareUpdater::updater(
        {executor, http, [] { return false; }, [] { return std::nullopt; }, {}, {}, {}, {}, {}});
    firmware->blurb().setText(toQt(firmwareHeadline({1, 12}, {1, 11})));
    lookInto(firmware->window());
    for (const auto phase : {FlashPhase::restarting, FlashPhase::cameBack, FlashPhase::sending}) {
        const auto step = flashStep(phase, 61);
        firmware->progress().setStep(step.number, FlashStep::count, toQt(step.words), toQt(step.said));
        lookInto(firmware->progress().window());
    }
    FirmwareNoticeWindow notice;
    for (const auto kind : {FirmwareNotice::Kind::missing, FirmwareNotice::Kind::repair}) {
        notice.show({kind, toQt(words("This pedal is waiting for firmware.")),
                     toQt(words("The maker's firmware has not been downloaded yet.")), toQt(words("Not Now")),
                     toQt(words("Try Again"))});
        lookInto(notice.window());
    }
    for (const std::string version : {"2.1.0", "3000"}) {
        const auto updater = std::make_shared<SUUpdater>(
            UpdaterEnvironment{executor, http, {}, UpdateBuild{version, {}, false, {}}, {}, {}});
        updater->setFeedURL("https://www.kzq.example/feed.xml");
        const auto software = SoftwareUpdate::softwareUpdate({updater, version, {}});
        software->checkForUpdates();
        lookInto(software->window());
        executor.settle();
        EXPECT_EQ(updater->status().state, version == "2.1.0" ? UpdateState::offered : UpdateState::upToDate);
        lookInto(software->window());
    }
}

}  // namespace
}  // namespace kzq
