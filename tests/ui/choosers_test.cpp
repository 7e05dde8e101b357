#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <functional>

#include "test_folder.h"
#include "ui/qt_dialogs.h"
#include "virtual_executor.h"

namespace kzq {
namespace {

/// Choosers of one run, in a home folder of its own.
class Choosers : public testing::Test {
  protected:
    Choosers() : before_(qgetenv("HOME")) {
        for (const auto* const folder : {"Music", "Takes"}) {
            std::filesystem::create_directory(home / folder);
        }
        test::writeText(home / "Takes" / "song.wav", "");
        test::writeText(home / "Music" / "notes.txt", "");
        qputenv("HOME", QByteArray::fromStdString(home.path().string()));
    }
    ~Choosers() override { qputenv("HOME", before_); }

    /// Answers the chooser with a file or folder in the home; an empty one cancels. Where it began, its title
    /// and its filters.
    QStringList seen(const std::function<Dialogs::Chosen(Dialogs&)>& ask, const std::string& answer) {
        QStringList seen;
        QMetaObject::invokeMethod(
            qApp,
            [&] {
                auto& chooser = dynamic_cast<QFileDialog&>(*QApplication::activeModalWidget());
                seen = QStringList{chooser.directory().dirName(), chooser.windowTitle()};
                seen += chooser.nameFilters();
                auto& dialog = static_cast<QDialog&>(chooser);
                if (answer.empty()) {
                    dialog.reject();
                } else {
                    const auto file = QString::fromStdString((home / answer).string());
                    chooser.findChild<QLineEdit*>()->setText(file);
                    dialog.accept();
                }
            },
            Qt::QueuedConnection);
        chosen = ask(dialogs);
        return seen;
    }
    QStringList audio(const std::string& answer) {
        return seen(
            [](auto& all) {
                return all.chooseFile("For Loop 5", {"Audio files", {"wav", "mp3"}});
            },
            answer);
    }

    test::TestFolder home;
    test::VirtualExecutor executor;
    KeyGuard keys = KeyGuard(executor);
    QtDialogs dialogs = QtDialogs(keys, [] { return nullptr; });
    Dialogs::Chosen chosen;

  private:
    const QByteArray before_;
};

TEST_F(Choosers, BeginWhereTheLastOneWasAcceptedAndTheFirstInTheMusicFolder) {
    const QStringList usual{"For Loop 5", "Audio files (*.wav *.WAV *.mp3 *.MP3)"};
    EXPECT_EQ(audio(""), QStringList("Music") + usual);
    EXPECT_EQ(seen([](auto& all) { return all.chooseFolder("For 2 loops", "Save"); }, "Takes")[0], "Music");
    EXPECT_EQ(chosen.path, home / "Takes");
    EXPECT_EQ(audio("Takes/song.wav"), QStringList("Takes") + usual);
    EXPECT_EQ(chosen.path, home / "Takes" / "song.wav");
    EXPECT_EQ(audio("Music/notes.txt")[0], "Takes") << "in the folder of the file";
    EXPECT_EQ(chosen.answer, panelCancelled) << "it is no audio";
    const auto save = [](auto& all) { return all.chooseNewFile("Save", "a.txt", {"Text", {"txt"}}); };
    EXPECT_EQ(seen(save, ""), (QStringList{"Music", "Save", "Text (*.txt *.TXT)", "All files (*)"}));
    std::filesystem::remove_all(home / "Music");
    EXPECT_EQ(audio("")[0], QString::fromStdString(home.path().filename().string())) << "it is gone";
}

}  // namespace
}  // namespace kzq
