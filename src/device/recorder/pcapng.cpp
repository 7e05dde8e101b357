#include "device/recorder/pcapng.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <utility>

#include "device/usb_port.h"
#include "platform/bytes.h"

namespace kzq::recorder {

namespace {

using Kind = RecordedEvent::Kind;

constexpr std::uint8_t bulkTransfer = 3;
constexpr std::uint8_t controlTransfer = 2;
constexpr std::uint8_t inMask = 0x80;
constexpr int stillRunning = -115;  ///< EINPROGRESS, as usbmon says of a submission
constexpr int brokenPipe = -32;
constexpr int noDevice = -19;
constexpr int otherError = -71;  ///< EPROTO

/// Little-endian numbers, one after the other.
class Block {
  public:
    template <class Number>
    Block& add(Number number) {
        for (std::size_t i = 0; i < sizeof(Number); ++i) {
            bytes_.push_back(static_cast<std::uint8_t>(static_cast<std::uint64_t>(number) >> (8 * i)));
        }
        return *this;
    }
    Block& add(ByteView bytes) {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return *this;
    }
    Block& pad(std::size_t multiple) {
        bytes_.resize((bytes_.size() + multiple - 1) / multiple * multiple);
        return *this;
    }
    const Bytes& bytes() const { return bytes_; }

  private:
    Bytes bytes_;
};

void writeBlock(std::ostream& out, std::uint32_t type, const Bytes& body) {
    constexpr std::uint32_t frame = 12;  // type and, twice, length
    const auto length = static_cast<std::uint32_t>(body.size()) + frame;
    Block block;
    block.add(type).add(length).add(ByteView(body)).add(length);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): iostreams write characters
    out.write(reinterpret_cast<const char*>(block.bytes().data()),
              static_cast<std::streamsize>(block.bytes().size()));
}

void writeHead(std::ostream& out) {
    constexpr std::uint32_t section = 0x0A0D0D0A;
    constexpr std::uint32_t interface = 1;
    constexpr std::uint16_t usbmon = 220;  // its form with headers of 64 bytes
    Block head;
    head.add(std::uint32_t{0x1A2B3C4D}).add(std::uint16_t{1}).add(std::uint16_t{0}).add(~std::uint64_t{0});
    writeBlock(out, section, head.bytes());
    Block link;
    link.add(usbmon).add(std::uint16_t{0}).add(std::uint32_t{0});
    writeBlock(out, interface, link.bytes());
}

/// A call that is on the wire.
struct Transfer {
    std::uint8_t type = bulkTransfer;
    std::uint8_t endpoint = 0;
    Bytes setup;
    std::uint32_t length = 0;
    Bytes sent;

    bool in() const { return (endpoint & inMask) != 0; }
};

/// The next word, a number.
template <class Number>
Number next(std::istringstream& words, int base) {
    std::string word;
    words >> word;
    Number number{};
    std::from_chars(word.data(), word.data() + word.size(), number, base);  // readRecording has checked it
    return number;
}

std::optional<Transfer> transferIn(const std::string& call) {
    constexpr int hexadecimal = 16;
    std::istringstream words(call);
    std::string verb;
    std::string handle;
    words >> verb >> handle;
    Transfer transfer;
    if (verb == "control") {
        transfer.type = controlTransfer;
        transfer.endpoint = inMask;
        Block setup;
        setup.add(next<std::uint8_t>(words, hexadecimal)).add(next<std::uint8_t>(words, hexadecimal));
        setup.add(next<std::uint16_t>(words, hexadecimal)).add(next<std::uint16_t>(words, hexadecimal));
        transfer.length = next<std::uint16_t>(words, 10);
        transfer.setup = setup.add(static_cast<std::uint16_t>(transfer.length)).bytes();
        return transfer;
    }
    if (verb != "in" && verb != "out") {
        return std::nullopt;
    }
    transfer.endpoint = next<std::uint8_t>(words, hexadecimal);
    transfer.length = next<std::uint32_t>(words, 10);
    std::string data;
    if (verb == "out" && words >> data && !data.starts_with("fnv:") && data != "-") {
        for (std::size_t i = 0; i + 1 < data.size(); i += 2) {
            std::uint8_t byte = 0;
            std::from_chars(data.data() + i, data.data() + i + 2, byte, hexadecimal);
            transfer.sent.push_back(byte);
        }
    }
    return transfer;
}

int statusOf(int result) {
    switch (result) {
        case usbPipe:
            return brokenPipe;
        case usbNoDevice:
            return noDevice;
        default:
            return result < 0 ? otherError : 0;
    }
}

/// What distinguishes a submission ('S') from its end ('C').
struct Half {
    char type = 'S';
    int status = stillRunning;
    std::uint32_t length = 0;
    ByteView data;
};

void writeHalf(std::ostream& out, const RecordedEvent& event, const Transfer& transfer, const Half& half) {
    constexpr std::uint32_t packet = 6;
    constexpr std::size_t setupLength = 8;
    constexpr std::int64_t million = 1'000'000;
    const bool hasSetup = half.type == 'S' && !transfer.setup.empty();
    const std::int64_t time = event.time.count();
    const char absent = transfer.in() ? '<' : '>';
    Block words;
    words.add(std::uint64_t{event.number}).add(half.type).add(transfer.type).add(transfer.endpoint);
    words.add(std::uint8_t{1}).add(std::uint16_t{1});  // one device on one bus
    words.add(hasSetup ? '\0' : '-').add(half.data.empty() ? absent : '\0');
    words.add(time / million).add(static_cast<std::int32_t>(time % million)).add(half.status);
    words.add(half.length).add(static_cast<std::uint32_t>(half.data.size()));
    words.add(hasSetup ? ByteView(transfer.setup) : ByteView(Bytes(setupLength)));
    words.add(std::uint64_t{0}).add(std::uint64_t{0});  // interval, frame, flags, isochronous
    words.add(half.data);
    const auto size = static_cast<std::uint32_t>(words.bytes().size());
    Block body;
    body.add(std::uint32_t{0})
        .add(static_cast<std::uint32_t>(time >> 32U))
        .add(static_cast<std::uint32_t>(time));
    body.add(size).add(size).add(ByteView(words.bytes())).pad(4);
    writeBlock(out, packet, body.bytes());
}

}  // namespace

void writePcapng(std::ostream& out, const Recording& recording, bool audio) {
    std::map<unsigned, Transfer> running;
    writeHead(out);
    for (const auto& event : recording.events) {
        if (event.kind == Kind::call) {
            if (auto transfer = transferIn(event.words)) {
                const bool shown = audio || transfer->type == controlTransfer;
                writeHalf(
                    out, event, *transfer,
                    {.length = transfer->length, .data = shown ? ByteView(transfer->sent) : ByteView()});
                running.insert_or_assign(event.number, std::move(*transfer));
            }
        } else if (const auto found = running.find(event.number);
                   event.kind == Kind::result && found != running.end()) {
            const bool control = found->second.type == controlTransfer;
            const auto count =
                control ? static_cast<std::size_t>(std::max(event.result, 0)) : event.transferred;
            const auto data = ByteView(event.bytes).first(std::min(count, event.bytes.size()));
            writeHalf(out, event, found->second,
                      {.type = 'C',
                       .status = statusOf(event.result),
                       .length = static_cast<std::uint32_t>(count),
                       .data = audio || control ? data : ByteView()});
            running.erase(found);
        }
    }
}

}  // namespace kzq::recorder
