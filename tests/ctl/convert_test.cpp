#include "tool_fixture.h"

namespace kzq::test {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST_F(ToolTest, ConvertNeedsNoPedal) {
    const auto source = writeWave("in.wav", loopOf(44'100, 1));
    EXPECT_EQ(run({"convert", source, "--to", folder / "out.wav"}), ExitCode::ok);
    EXPECT_EQ(contents("out.wav"), contents("in.wav"));
    EXPECT_THAT(out.str(), testing::EndsWith("out.wav: 0:01.0, whole.\n"));

    const auto before = contents("out.wav");
    const auto other = writeWave("other.wav", loopOf(5, 1));
    EXPECT_EQ(run({"convert", other, "--to", folder / "out.wav"}), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("already exists. Existing files are never overwritten"));
    EXPECT_EQ(run({"convert", other, "--to", folder}), ExitCode::fileError);
    std::filesystem::create_symlink("nowhere", folder / "link.wav");
    EXPECT_EQ(run({"convert", other, "--to", folder / "link.wav"}), ExitCode::fileError);
    EXPECT_EQ(contents("out.wav"), before);
    EXPECT_EQ(run({"convert", other, "--to", folder / std::string(300, 'n')}), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("n\": File name too long. Choose a shorter name.\n"));

    EXPECT_EQ(run({"convert", write("text", {'x'}), "--to", folder / "new.wav"}), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("text\" is in a format that is not supported."));
    EXPECT_EQ(run({"convert", "\x1b[2J\n\x7f\u00e9", "--to", folder / "new.wav"}), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("\"?[2J??\u00e9\" is in a format that is not supported"));
    EXPECT_THAT(files(), UnorderedElementsAre("in.wav", "out.wav", "other.wav", "link.wav", "text"));
    EXPECT_THAT(pedal.journal(), IsEmpty());
}

TEST_F(ToolTest, ConvertKeepsNoFileThatWasCut) {
    std::uint64_t frames = 63'504'000;
    convert = [&](const ctl::ConversionOrder& order) -> Result<ctl::ConvertedFile> {
        write("out.wav", {'x'});
        return ctl::ConvertedFile{order.output, frames};
    };
    const std::vector<std::string> arguments{"convert", "long.mp3", "--to", folder / "out.wav"};
    EXPECT_EQ(run(arguments), ExitCode::ok) << "24 minutes to the frame";
    std::filesystem::remove(folder / "out.wav");
    ++frames;
    EXPECT_EQ(run(arguments), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("\"long.mp3\" is longer than the pedal's 24 minutes.\n"));
    EXPECT_THAT(files(), IsEmpty());

    convert = [&](const ctl::ConversionOrder& order) -> Result<ctl::ConvertedFile> {
        order.progress(frames);
        EXPECT_TRUE(*order.cancelled) << "before the file has its name";
        return Trouble{Trouble::Kind::cancelled};
    };
    EXPECT_EQ(run(arguments), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("\"long.mp3\" is longer than the pedal's 24 minutes.\n"));
}

TEST_F(ToolTest, ConvertSaysHowItWent) {
    std::vector<std::string> arguments{"convert",          "a.mp3",     "--to",
                                       folder / "out.wav", "--salvage", "--normalize"};
    ctl::ConversionOrder ordered;
    ConversionNote note{.verdict = "exact", .gain = 0.5};
    convert = [&](const ctl::ConversionOrder& order) -> Result<ctl::ConvertedFile> {
        ordered = order;
        return ctl::ConvertedFile{order.output, 44'100, note};
    };
    EXPECT_EQ(run(arguments), ExitCode::ok);
    EXPECT_TRUE(ordered.salvage && ordered.normalize);
    EXPECT_THAT(out.str(),
                HasSubstr("0:01.0, exact; turned down by 6.0 dB, it was louder than full scale.\n"));
    note = {.verdict = "shortened",
            .flaw = Trouble{Trouble::Kind::endsEarly, {}, 0, "1908"},
            .gain = 2,
            .normalized = true,
            .silenced = true};
    EXPECT_EQ(run(arguments), ExitCode::ok);
    EXPECT_THAT(out.str(),
                HasSubstr("0:01.0, shortened: 1,908 ms are missing at its end; normalized by +6.0 dB; "
                          "samples that were no numbers became silence.\n"));
    arguments.emplace_back("--json");
    EXPECT_EQ(run(arguments), ExitCode::ok);
    EXPECT_THAT(out.str(), testing::AllOf(HasSubstr(R"("verdict":"shortened")"),
                                          HasSubstr(R"("flaw":"ends-early")"), HasSubstr(R"("missing":1908)"),
                                          HasSubstr(R"("gain":6.02)"), HasSubstr(R"("silenced":true)")));
    arguments.pop_back();
    convert = [](const ctl::ConversionOrder&) -> Result<ctl::ConvertedFile> {
        return Trouble{Trouble::Kind::broken, "a.mp3", 0, "26"};
    };
    EXPECT_EQ(run(arguments), ExitCode::fileError);
    EXPECT_THAT(err.str(),
                HasSubstr("26 ms of it cannot be read. To convert what there is of it, add --salvage.\n"));
}

}  // namespace
}  // namespace kzq::test
