#include "app/transfer_events.h"

#include "words/words.h"

namespace kzq {

namespace {

std::string sentenceOn(SlotNumber slot, Step step) {
    return step == Step::read      ? words("Reading loop %1\u2026", slot.number())
           : step == Step::compare ? words("Comparing loop %1\u2026", slot.number())
                                   : words("Writing loop %1\u2026", slot.number());
}

}  // namespace

Events eventsOf(const std::shared_ptr<TransferRun>& progress, const Teller::Saying& say) {
    struct Course {
        std::shared_ptr<TransferRun> progress;
        Teller::Saying say;
        std::string sentence = {};
    };
    const auto course = std::make_shared<Course>(Course{progress, say});
    Events events;
    events.begins = [course](SlotNumber slot, Step step) {
        course->progress->batchBegins();
        course->sentence = sentenceOn(slot, step);
        course->say(course->sentence, "");
    };
    events.moved = [course](SlotNumber /*slot*/, std::uint64_t bytes) {
        course->say(course->sentence, "");
        course->progress->moved(bytes);
    };
    return events;
}

}  // namespace kzq
