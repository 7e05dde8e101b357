#include "device/simulator/pedal_memory.h"

#include <algorithm>

namespace kzq::simulator {

bool StoredLoop::read(std::size_t offset, std::span<std::uint8_t> into) const {
    const auto piece = into.first(std::min(into.size(), size() - std::min(size(), offset)));
    std::ranges::fill(into.subspan(piece.size()), std::uint8_t{0});
    if (onDisk) {
        return onDisk->read(offset, piece);
    }
    std::ranges::copy(ByteView(audio).subspan(std::min(offset, audio.size()), piece.size()), piece.begin());
    return true;
}

StoredLoop StoredLoop::loaded() const {
    StoredLoop copy{Bytes(size()), tempo, channel};
    if (!read(0, copy.audio)) {
        copy.audio.clear();
    }
    return copy;
}

}  // namespace kzq::simulator
