// Where loops come from: a folder of files, and the synthesiser.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include "device/simulator/loop_folder.h"
#include "loops/facts.h"
#include "platform/log.h"
#include "test_folder.h"
#include "wire.h"

namespace kzq::simulator {
namespace {

namespace fs = std::filesystem;

class Folder : public testing::Test {
  protected:
    Folder()
        : earlierSink(setLogSink([this](LogCategory, std::string_view line) { logged.emplace_back(line); })) {
    }
    ~Folder() override { setLogSink(earlierSink); }

    void put(const std::string& name, const Bytes& bytes) const {
        std::ofstream(path / name, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    std::set<std::string> names() const {
        std::set<std::string> found;
        for (const auto& entry : fs::directory_iterator(path)) {
            found.insert(entry.path().filename().string());
        }
        return found;
    }

    test::TestFolder path;
    std::vector<std::string> logged;
    LogSink earlierSink;
};

TEST_F(Folder, KeepsLoopsFromRunToRun) {
    put("07.wav", *wave(noise(60), 2));
    put("20.wav", *wave(noise(66), 2));
    for (const char* name : {"Loop 21.wav", "Loop 0.wav", "007.wav", "Loop .wav", "-3.wav", "Song.wav"}) {
        put(name, noise(10));
    }
    put(".Loop 3.wav.part", noise(10));
    LoopFolder folder(path);
    auto memory = folder.load();
    ASSERT_TRUE(memory);
    EXPECT_EQ(std::count(memory->begin(), memory->end(), std::nullopt), 18);
    EXPECT_EQ(memory->at(6), StoredLoop{noise(60)});
    EXPECT_EQ(logged.size(), 6U) << "one line for each name that is no slot's";

    const StoredLoop fresh{noise(120, 9)};
    EXPECT_TRUE(folder.store(6, &fresh));
    EXPECT_TRUE(folder.store(0, &fresh));
    EXPECT_TRUE(folder.store(19, nullptr));
    EXPECT_TRUE(folder.store(18, nullptr)) << "nothing there to remove";
    EXPECT_THAT(names(), testing::IsSupersetOf({".Loop 3.wav.part", "07.wav", "Loop 1.wav", "Loop 21.wav"}));
    EXPECT_THAT(names(), testing::Not(testing::Contains(testing::AnyOf("20.wav", "7.wav", "Loop 7.wav"))));

    memory = LoopFolder(path).load();
    ASSERT_TRUE(memory);
    EXPECT_EQ(memory->at(0), fresh);
    EXPECT_EQ(memory->at(6), fresh);
    EXPECT_EQ(std::count(memory->begin(), memory->end(), std::nullopt), 18);
}

}  // namespace
}  // namespace kzq::simulator
