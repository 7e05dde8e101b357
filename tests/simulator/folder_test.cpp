// A pedal whose loops stay in the files of a folder.

#include <unistd.h>

#include <filesystem>

#include "device/simulator/loop_folder.h"
#include "test_folder.h"
#include "wire.h"

namespace kzq::simulator {
namespace {

class Folder : public testing::Test {
  protected:
    void save(const std::string& name, const Bytes& bytes) {
        test::writeText(folder_ / name, {bytes.begin(), bytes.end()});
    }
    PedalMemory loaded() { return LoopFolder(folder_).load().value(); }

    test::TestFolder folder_;
};

TEST_F(Folder, AFileMayGoOrBeReplacedButNotBeWrittenToWhileThePedalHasIt) {
    const Bytes audio = noise(90'000);  // more than is read at a time
    for (const auto* const name : {"Loop 1.wav", "2.wav", "03.wav"}) {
        save(name, wave(audio, 2).value());
    }
    Wire wire({.memory = loaded()});
    EXPECT_EQ(wire.pedal.memory()[0]->audio, audio);
    std::filesystem::remove(folder_ / "Loop 1.wav");
    save("new", wave(noise(600, 2), 2).value());
    std::filesystem::rename(folder_ / "new", folder_ / "2.wav");
    ASSERT_EQ(::truncate((folder_ / "03.wav").c_str(), 44 + 70'000), 0);

    for (const unsigned address : {0U, 1U}) {
        ASSERT_TRUE(wire.control(0xE1, address, 1).accepted());
        Bytes came;
        while (came.size() < 90'048) {
            const auto piece = wire.read(std::min(transferPiece, 90'048 - came.size()));
            ASSERT_EQ(piece.status, TransferStatus::done);
            came.insert(came.end(), piece.bytes.begin(), piece.bytes.end());
        }
        came.resize(audio.size());
        EXPECT_EQ(came, audio);
    }
    ASSERT_TRUE(wire.control(0xE1, 2, 1).accepted());
    EXPECT_EQ(wire.read(1024).status, TransferStatus::stalled);
    EXPECT_THAT(wire.pedal.violations(), IsEmpty());
}

TEST_F(Folder, SamplesAreFoundBehindAnyHeaderAndNotTakenFromADamagedFile) {
    Bytes file = wave(noise(600), 2).value();
    const Bytes list{'L', 'I', 'S', 'T', 2, 0, 0, 0, 'h', 'i'};
    file.insert(file.begin() + 36, list.begin(), list.end());
    file[4] += 10;
    save("Loop 7.wav", file);
    EXPECT_EQ(loaded()[6]->loaded().audio, noise(600));
    file.pop_back();
    save("Loop 7.wav", file);
    EXPECT_EQ(LoopFolder(folder_).load().error().kind, Trouble::Kind::otherFormat);
}

}  // namespace
}  // namespace kzq::simulator
