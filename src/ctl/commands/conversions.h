#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "ctl/commands/command.h"
#include "operations/pedal.h"
#include "platform/condition.h"

namespace kzq::ctl {

/// The files of an export, converted in their order, several at once. Make it with std::make_shared; the
/// command's thread.
class Conversions : public std::enable_shared_from_this<Conversions>, Fixed {
  public:
    /// The conversions end when the pedal's work is stopped.
    Conversions(const Context& context, std::shared_ptr<Pedal> pedal)
        : context_(context), pedal_(std::move(pedal)), done_(context.options.files.size()) {}

    /// With the first ones.
    void start();
    /// Waits for the file at that place of the command line, and shows its progress, but no other's. The
    /// working copy stays until the end.
    Result<ConvertedFile> await(std::size_t place);
    /// Nothing more is wanted of the pedal: stops its work, and so the conversions that still run, waits for
    /// them, and removes the working copies.
    void end();

  private:
    void work();
    Result<ConvertedFile> convert(std::size_t place);

    const Context& context_;
    const std::shared_ptr<Pedal> pedal_;
    std::atomic<std::size_t> next_ = 0;  ///< to be converted
    std::atomic<std::size_t> awaited_ = 0;
    std::mutex mutex_;  ///< guards what follows
    Condition changed_;
    std::vector<std::optional<Result<ConvertedFile>>> done_;
};

}  // namespace kzq::ctl
