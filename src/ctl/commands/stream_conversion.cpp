#include "ctl/commands/stream_conversion.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <fstream>

#include "ctl/commands/export_plan.h"
#include "loops/capacity.h"
#include "loops/facts.h"
#include "platform/descriptor.h"
#include "platform/write_all.h"

namespace kzq::ctl {
namespace {

constexpr std::size_t pieceSize = 1 << 16;
constexpr std::uint64_t longestInput = 4ULL << 30;  // 24 minutes take less in any format we read

Trouble inputLost(int error) {
    return {Trouble::Kind::inputLost, {}, error};
}

}  // namespace

Result<ConvertedFile> StreamConversion::convert(ConversionOrder order) const {
    const bool reads = order.source == standardStream;
    const bool prints = order.output == standardStream;
    if (!reads && !prints) {
        return environment_.convert(order);
    }
    const auto folder = environment_.workingFolder();
    if (!folder) {
        return Trouble{Trouble::Kind::noTemporaryFolder};
    }
    WorkingCopies copies;
    if (reads) {
        order.source = *folder / "standard-input";
        copies.add(order.source);
        if (const auto stored = store(order.source); !stored) {
            return stored.error();
        }
    }
    if (prints) {
        order.output = *folder;
        order.sync = false;
    }
    auto file = environment_.convert(order);
    if (!prints || !file || file->frames > capacityFrames) {
        return file;
    }
    copies.add(file->path);
    return print(file->path).map([&] { return ConvertedFile{{}, file->frames, file->note}; });
}

Result<void> StreamConversion::store(const std::filesystem::path& file) const {
    const Descriptor stored(
        ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!stored) {
        return inputLost(errno);
    }
    std::array<std::uint8_t, pieceSize> piece{};
    std::uint64_t size = 0;
    while (true) {
        const auto count = environment_.input(piece);
        if (cancelled_) {
            return Trouble{Trouble::Kind::cancelled};
        }
        if (count == -EAGAIN) {
            continue;
        }
        if (count == 0) {
            return {};
        }
        if (count < 0) {
            return inputLost(static_cast<int>(-count));
        }
        size += static_cast<std::uint64_t>(count);
        if (size > longestInput) {
            return inputLost(0);
        }
        if (const int error =
                writeAll(stored.get(), std::span(piece).first(static_cast<std::size_t>(count)))) {
            return inputLost(error);
        }
    }
}

Result<void> StreamConversion::print(const std::filesystem::path& file) const {
    std::ifstream stream(file, std::ios::binary);
    std::array<char, pieceSize> piece{};
    auto& out = environment_.out;
    while (stream && out && !cancelled_) {
        stream.read(piece.data(), piece.size());
        out.write(piece.data(), stream.gcount());
    }
    out.flush();
    if (!stream.eof() || !out.good()) {
        return Trouble{Trouble::Kind::outputLost};
    }
    return {};
}

}  // namespace kzq::ctl
