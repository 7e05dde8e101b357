#pragma once

#include <gmock/gmock.h>

#include "audio/conversion.h"
#include "audio/promised_length.h"
#include "platform/log.h"
#include "workshop.h"

namespace kzq {

/// Tests that make files and convert them.
class Converting : public ::testing::Test {
  public:
    ~Converting() override { setLogSink(std::move(usualLog_)); }

  protected:
    Converting() : usualLog_(setLogSink([this](LogCategory, std::string_view line) { logged_ = line; })) {}

    Conversion::Options options() const { return {.output = shop_.results()}; }
    Result<Conversion::File> convert(const std::filesystem::path& source) const {
        return Conversion(options()).convert(source);
    }

    /// The samples converted from `source`; none, with a failed test, if it is refused.
    Samples converted(const std::filesystem::path& source) const {
        const auto result = convert(source);
        if (!result) {
            ADD_FAILURE() << source << ": " << troubleName(result.error().kind);
            return {};
        }
        Samples samples = samplesOf(result->path);
        EXPECT_EQ(result->frames, samples.size() / 2);
        const auto promised = promisedLength(source);
        EXPECT_TRUE(promised) << source;
        const double length = promised && *promised ? static_cast<double>((*promised)->count) : 0;
        EXPECT_NEAR(length != 0 ? length : static_cast<double>(result->frames),
                    static_cast<double>(result->frames), 1152)
            << source;
        return samples;
    }

    /// Expects that `source` is refused for `reason` and nothing is left behind.
    void expectRefused(Trouble::Kind reason, const std::filesystem::path& source) const {
        expectFailed(reason, convert(source), source);
    }

    void expectFailed(Trouble::Kind reason, const Result<Conversion::File>& result,
                      const std::filesystem::path& source) const {
        SCOPED_TRACE(source);
        ASSERT_FALSE(result);
        EXPECT_EQ(troubleName(reason), troubleName(result.error().kind));
        EXPECT_EQ(source, result.error().where);
        EXPECT_EQ(0U, shop_.resultCount());
    }

    Workshop shop_;
    std::string logged_;  ///< the last line

  private:
    LogSink usualLog_;
};

}  // namespace kzq
