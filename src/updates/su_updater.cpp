#include "updates/su_updater.h"

#include <utility>

#include "updates/signed_text.h"
#include "updates/update_log.h"

namespace kzq {
namespace {

/// Why a package that could be installed must not be; empty if it may.
UpdateReason objectionTo(const FeedItem& item, std::span<const UpdateKey> keys) {
    if (!item.url.starts_with("https://")) {
        return updateReason(english("the update's address is not secure"));
    }
    if (item.length == 0) {
        return updateReason(english("the update's length is missing or out of range"));
    }
    if (item.signature.empty()) {
        return updateReason(english("the update is not signed"));
    }
    return isSignedByOne(keys, item) ? UpdateReason{}
                                     : updateReason(english("the signature of the update is wrong"));
}

}  // namespace

SUUpdater::SUUpdater(UpdaterEnvironment environment)
    : environment_(std::move(environment)), floor_(environment_.home) {}

SUUpdater::~SUUpdater() {
    if (run_) {
        run_->cancel();
    }
}

void SUUpdater::set(UpdateStatus status) {
    status_ = std::move(status);
    if (observer_) {
        observer_(status_);
    }
}

void SUUpdater::setState(UpdateState state) {
    auto status = status_;
    status.state = state;
    set(std::move(status));
}

void SUUpdater::fail(const UpdateReason& reason) {
    logUpdates(reason.english);
    UpdateStatus status;
    status.state = UpdateState::failed;
    status.reason = reason.shown;
    set(std::move(status));
}

void SUUpdater::checkForUpdates() {
    if (run_ || status_.state == UpdateState::ready) {
        return;
    }
    run_ = std::make_shared<UpdateRun>();
    UpdateStatus status;
    status.state = UpdateState::checking;
    set(std::move(status));
    environment_.executor.background(
        Priority::standard, [weak = weak_from_this(), run = run_, feed = feed_, &http = environment_.http,
                             &executor = environment_.executor] {
            auto reading = readFeed(http, feed, *run);
            executor.main([weak, run, reading = std::move(reading)] {
                if (const auto self = weak.lock(); self && self->run_ == run) {
                    self->run_.reset();
                    self->checked(reading);
                }
            });
        });
}

void SUUpdater::checked(const FeedReading& reading) {
    if (!reading.failure.empty()) {
        fail(reading.failure);
        return;
    }
    auto target = targetOf(environment_.build, environment_.installation);
    if (canInstall(environment_.build, environment_.installation)) {
        floor_.raiseSoftwareVersion(environment_.build.version);
        target.lowest = floor_.softwareVersion();
    }
    if (const auto* const newest = newestItem(reading.items, target)) {
        offer(*newest);
        return;
    }
    UpdateStatus status;
    status.state = UpdateState::upToDate;
    set(std::move(status));
}

void SUUpdater::offer(const FeedItem& item) {
    const bool installable = canInstall(environment_.build, environment_.installation) &&
                             packageKindOf(item) == environment_.installation.kind;
    if (installable) {
        if (const auto objection = objectionTo(item, environment_.build.keys); !objection.empty()) {
            fail(objection);
            return;
        }
    }
    item_ = item;
    UpdateStatus status;
    status.state = UpdateState::offered;
    status.version = item.shortVersion;
    status.notes = item.notes;
    status.installable = installable;
    set(std::move(status));
}

void SUUpdater::install() {
    if (status_.state != UpdateState::offered) {
        return;
    }
    if (status_.installable) {
        startInstalling();
        return;
    }
    const bool opened = environment_.desktop.openWebsite(environment_.build.website);
    if (opened) {
        set({});
    } else {
        fail(updateReason(english("the website %1 could not be opened"), environment_.build.website));
    }
}

void SUUpdater::startInstalling() {
    run_ = std::make_shared<UpdateRun>();
    const UpdateJob job{item_,
                        environment_.build.keys,
                        environment_.installation,
                        packagePlace(environment_.installation, environment_.downloads, item_),
                        run_,
                        [weak = weak_from_this(), run = run_, &executor = environment_.executor] {
                            executor.main([weak, run] {
                                if (const auto self = weak.lock()) {
                                    self->showRun(run);
                                }
                            });
                        },
                        environment_.selfCheck};
    auto status = status_;
    status.state = UpdateState::downloading;
    status.total = item_.length;
    set(std::move(status));
    environment_.executor.background(
        Priority::standard,
        [weak = weak_from_this(), job, &http = environment_.http, &executor = environment_.executor] {
            auto failure = perform(job, http);
            executor.main([weak, run = job.run, place = job.place, failure = std::move(failure)] {
                if (const auto self = weak.lock(); self && self->run_ == run) {
                    self->run_.reset();
                    self->installed(place, failure);
                }
            });
        });
}

/// Shows the progress in the background. Posts from before a cancellation are ignored.
void SUUpdater::showRun(const std::shared_ptr<UpdateRun>& run) {
    run->shown = true;
    if (run_ != run) {
        return;
    }
    auto status = status_;
    status.received = run->received;
    switch (run->stage) {
        case UpdateRun::Stage::downloading:
            status.state = UpdateState::downloading;
            break;
        case UpdateRun::Stage::verifying:
            status.state = UpdateState::verifying;
            break;
        case UpdateRun::Stage::installing:
            status.state = UpdateState::installing;
            break;
    }
    if (status != status_) {
        set(std::move(status));
    }
}

void SUUpdater::installed(const std::filesystem::path& place, const UpdateReason& failure) {
    if (!failure.empty()) {
        fail(failure);
        return;
    }
    if (environment_.installation.kind == PackageKind::appImage) {
        floor_.raiseSoftwareVersion(item_.version);
        setState(UpdateState::ready);
    } else if (environment_.desktop.openPackage(place)) {
        setState(UpdateState::handedOver);
    } else {
        fail(updateReason(
            english("the package installer could not be started; install this package yourself: %1"),
            place.string()));
    }
}

bool SUUpdater::cancel() {
    if (status_.state == UpdateState::ready || (run_ && !run_->cancel())) {
        return false;
    }
    run_.reset();
    set({});
    return true;
}

void SUUpdater::relaunch() {
    if (status_.state != UpdateState::ready) {
        return;
    }
    if (const auto delegate = delegate_.lock()) {
        delegate->updaterWillRelaunchApplication(*this);
    }
    if (!environment_.desktop.relaunch(environment_.installation.appImage)) {
        // It is in place nevertheless: offering it again would also overwrite the previous version with it.
        auto status = status_;
        const auto reason =
            updateReason(english("the updated program could not be started; quit and start it again"));
        status.reason = reason.shown;
        logUpdates(reason.english);
        set(std::move(status));
    }
}

}  // namespace kzq
