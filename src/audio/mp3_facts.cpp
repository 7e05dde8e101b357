#include <algorithm>
#include <optional>

#include "audio/mpeg_frame.h"
#include "audio/source_facts.h"
#include "audio/tags.h"
#include "loops/facts.h"

namespace kzq {
namespace {

/// How far the next frame is looked for behind a break.
constexpr std::uint64_t farthest = 1 << 16;
/// Zeros that a writer or a disk may leave in a file; more stand where something else was.
constexpr std::uint64_t mostPadding = 4096;

FrameHead headAt(const FileBytes& file, std::uint64_t offset) {
    return FrameHead(file.big(offset, 4).value_or(0));
}

/// The frames of a stream, followed from header to header over tags, zeros and breaks.
class FrameWalk {
  public:
    FrameWalk(const FileBytes& file, std::uint64_t start)
        : file_(file), first_(headAt(file, start)), offset_(start), end_(start) {
        const std::uint64_t most =
            (capacityFrames + 1) * first_.rate() / framesPerSecond / first_.samples() + 2;
        while (offset_ < file.size() && frames_ < most && step()) {
        }
        end_ = frames_ < most ? std::min(end_, file.size()) : file.size();
    }

    std::uint64_t frames() const { return frames_; }
    /// Behind the last frame.
    std::uint64_t end() const { return end_; }
    bool endsInFrame() const { return offset_ > file_.size(); }
    /// Frames that would have stood in the bytes that are none.
    std::uint64_t lost() const { return frames_ == 0 ? 0 : (lostBytes_ * frames_ + bytes_ - 1) / bytes_; }

  private:
    bool step() {
        const FrameHead head = headAt(file_, offset_);
        if (isFrame(head)) {
            take(head.frameSize());
            return true;
        }
        const std::uint64_t nonzero = file_.afterZeros(offset_, file_.size());
        if (nonzero - offset_ > mostPadding) {
            lostBytes_ += nonzero - offset_;
        }
        if (const std::uint64_t next = afterTag(file_, nonzero); next != offset_) {
            offset_ = next;
            return true;
        }
        const auto next = nextFrame();
        lostBytes_ += next.value_or(file_.size()) - offset_;
        offset_ = next.value_or(offset_);
        return next.has_value();
    }

    bool isFrame(const FrameHead& head) const { return head.isLike(first_) && head.frameSize() != 0; }

    void take(std::uint64_t size) {
        ++frames_;
        bytes_ += size;
        offset_ += size;
        end_ = offset_;
    }

    /// Two headers in a row: one alone is likely to be chance.
    std::optional<std::uint64_t> nextFrame() const {
        const std::uint64_t limit = std::min(offset_ + farthest, file_.size());
        for (std::uint64_t at = offset_ + 1; at < limit; ++at) {
            const FrameHead head = headAt(file_, at);
            if (isFrame(head) && isFrame(headAt(file_, at + head.frameSize()))) {
                return at;
            }
        }
        return std::nullopt;
    }

    const FileBytes& file_;
    const FrameHead first_;
    std::uint64_t offset_;
    std::uint64_t end_;
    std::uint64_t frames_ = 0;
    std::uint64_t bytes_ = 0;
    std::uint64_t lostBytes_ = 0;
};

/// What encoders note in the first frame, where its samples would be, behind its side information.
struct Note {
    bool isThere = false;
    std::optional<std::uint64_t> frames;
    bool padded = false;  ///< by encoders whose note of the padding the decoder goes by
    std::uint64_t delay = 0;
    std::uint64_t padding = 0;
};

Note noteIn(const FileBytes& file, std::uint64_t start, const FrameHead& head) {
    const std::uint64_t sideSize = head.isVersionOne() ? (head.isMono() ? 17 : 32) : (head.isMono() ? 9 : 17);
    const std::uint64_t tag = start + 4 + sideSize;
    const std::string name = file.text(tag, 4);
    Note note;
    note.isThere = head.isLayerThree() && (name == "Xing" || name == "Info");
    if (!note.isThere) {
        return note;
    }
    const std::uint64_t flags = file.big(tag + 4, 4).value_or(0);
    std::uint64_t at = tag + 8;
    if ((flags & 1U) != 0) {
        note.frames = file.big(at, 4);
        at += 4;
    }
    at += ((flags & 2U) != 0 ? 4U : 0U) + ((flags & 4U) != 0 ? 100U : 0U) + ((flags & 8U) != 0 ? 4U : 0U);
    const std::string encoder = file.text(at, 4);
    note.padded = encoder == "LAME" || encoder == "Lavf" || encoder == "Lavc";
    const std::uint64_t padding = note.padded ? file.big(at + 21, 3).value_or(0) : 0;
    note.delay = padding >> 12U;
    note.padding = padding & 0xFFFU;
    return note;
}

/// What the decoder makes of `count` frames: it leaves out its own delay, too.
std::uint64_t withoutPadding(const Note& note, std::uint64_t count) {
    constexpr std::uint64_t decoderDelay = 529;
    if (!note.padded) {
        return count;
    }
    const std::uint64_t start = note.delay + decoderDelay;
    const std::uint64_t end = count - std::min(count, note.padding - std::min(note.padding, decoderDelay));
    return end - std::min(end, start);
}

}  // namespace

SourceFacts factsOfMp3(const FileBytes& file, std::uint64_t start) {
    SourceFacts facts;
    facts.audio = ByteSpan{start, file.size()};
    const FrameHead head = headAt(file, start);
    if (!head.isValid() || head.frameSize() == 0) {
        return facts;  // of free bit rate: the headers do not say where the next one is
    }
    facts.rate = head.rate();
    const FrameWalk walk(file, start);
    const Note note = noteIn(file, start, head);
    facts.audio->end = walk.end();
    facts.countDecides = true;
    facts.countStored = note.frames.has_value();
    if (facts.countStored) {
        facts.frames = withoutPadding(note, *note.frames * head.samples());
        facts.slack = note.padded ? 0 : head.samples();
    } else {
        facts.frames = withoutPadding(note, (walk.frames() - (note.isThere ? 1 : 0)) * head.samples());
        facts.truncated = walk.endsInFrame();
        facts.unreadable = walk.lost() * head.samples();
    }
    return facts;
}

}  // namespace kzq
