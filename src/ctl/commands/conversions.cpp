#include "ctl/commands/conversions.h"

#include <algorithm>
#include <utility>

#include "ctl/commands/conversion_progress.h"
#include "ctl/commands/export_plan.h"

namespace kzq::ctl {

void Conversions::start() {
    for (std::size_t i = 0; i < std::min(context_.environment.conversionsAtOnce, done_.size()); ++i) {
        context_.executor.background(Priority::standard, [self = shared_from_this()] { self->work(); });
    }
}

/// A file after the other, until none is left.
void Conversions::work() {
    for (auto place = next_++; place < done_.size(); place = next_++) {
        auto file = pedal_->stoppedFlag() ? Trouble{Trouble::Kind::cancelled} : convert(place);
        const std::lock_guard guard(mutex_);
        done_.at(place) = std::move(file);
        changed_.notify();
    }
}

Result<ConvertedFile> Conversions::convert(std::size_t place) {
    const auto& options = context_.options;
    const auto& source = options.files.at(place);
    const auto folder = context_.environment.workingFolder();
    if (!folder) {
        return Trouble{Trouble::Kind::noTemporaryFolder, source.string(), 0, "its working copy"};
    }
    return context_.environment.convert(
        {.source = source,
         .output = *folder,
         .progress =
             [&, show = conversionProgress(context_, "Converting " + source.filename().string(), source)](
                 std::uint64_t frames) {
                 if (awaited_ == place) {
                     show(frames);
                 }
             },
         .cancelled = &pedal_->stoppedFlag(),
         .sync = false,
         .salvage = options.salvage,
         .normalize = options.normalize});
}

Result<ConvertedFile> Conversions::await(std::size_t place) {
    awaited_ = place;
    std::unique_lock lock(mutex_);
    context_.executor.wait(lock, changed_, [&] { return done_.at(place).has_value(); });
    context_.output.endProgress();
    return *done_.at(place);
}

void Conversions::end() {
    pedal_->stop(Trouble{Trouble::Kind::cancelled});
    std::unique_lock lock(mutex_);
    WorkingCopies copies;
    for (const auto& file : done_) {
        context_.executor.wait(lock, changed_, [&] { return file.has_value(); });
        if (*file) {
            copies.add((*file)->path);
        }
    }
}

}  // namespace kzq::ctl
