#pragma once

#include <gmock/gmock.h>

#include "audio/conversion.h"
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
    Conversion::Result convert(const std::filesystem::path& source) const {
        return Conversion(options()).convert(source);
    }

    /// The samples converted from `source`; none, with a failed test, if it is refused.
    Samples converted(const std::filesystem::path& source) const {
        const auto result = convert(source);
        if (!result) {
            ADD_FAILURE() << source << ": " << result.failure->sentence;
            return {};
        }
        Samples samples = samplesOf(result.path);
        EXPECT_EQ(result.frames, samples.size() / 2);
        return samples;
    }

    /// Expects that `source` is refused for `reason` and nothing is left behind.
    void expectRefused(ConversionFailure reason, const std::filesystem::path& source) const {
        expectFailed(reason, convert(source), source);
    }

    void expectFailed(ConversionFailure reason, const Conversion::Result& result,
                      const std::filesystem::path& source) const {
        SCOPED_TRACE(source);
        ASSERT_FALSE(result);
        EXPECT_EQ(reason, result.failure->reason) << result.failure->sentence;
        EXPECT_FALSE(result.failure->sentence.empty());
        EXPECT_EQ(0U, shop_.resultCount());
    }

    Workshop shop_;
    std::string logged_;  ///< the last line

  private:
    LogSink usualLog_;
};

}  // namespace kzq
