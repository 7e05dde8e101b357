#pragma once

#include <cstddef>
#include <cstdint>

namespace kzq {

inline constexpr std::uint16_t pedalVendor = 0x308A;
inline constexpr std::uint16_t pedalProduct = 0x0104;
inline constexpr int pedalInterface = 0;
inline constexpr std::uint8_t pedalBulkIn = 0x81;
inline constexpr std::uint8_t pedalBulkOut = 0x02;

/// Audio moves in pieces of at most this many bytes, in both directions.
inline constexpr std::size_t transferPiece = 1024;

/// A command's code is in bmRequestType; bRequest is the same for all. wValue is 1 and wIndex 0 for a command
/// without parameters.
inline constexpr std::uint8_t pedalRequest = 0x2A;
inline constexpr std::uint16_t replyLength = 8;
inline constexpr std::uint16_t loopTableLength = 60;

namespace command {
inline constexpr std::uint8_t importLoop = 0xE1;    ///< wValue address, wIndex channel; audio follows on 0x81
inline constexpr std::uint8_t exportLoop = 0xE2;    ///< wValue slot - 1, wIndex 1 if it holds a loop
inline constexpr std::uint8_t exportLength = 0xE3;  ///< wValue low, wIndex high half of the byte count
inline constexpr std::uint8_t enterLoader = 0xE4;   ///< into the loader; in the loader: prepare for the image
inline constexpr std::uint8_t announceTrailer = 0xE5;  ///< after the image, before its 36-byte trailer
inline constexpr std::uint8_t openUpdate = 0xE7;  ///< starts an update of a pedal that has only its loader
inline constexpr std::uint8_t busy = 0xE8;        ///< byte 4 'N': busy; byte 6: the sequence byte
inline constexpr std::uint8_t stage = 0xE9;       ///< byte 5: the stage character
inline constexpr std::uint8_t capacityAndVersion = 0xEA;  ///< u32 remaining, then 4 ASCII characters
inline constexpr std::uint8_t firstLoops = 0xEB;          ///< ten 6-byte records, slots 1 to 10
inline constexpr std::uint8_t lastLoops = 0xEC;           ///< ten 6-byte records, slots 11 to 20
inline constexpr std::uint8_t eraseLoop = 0xED;           ///< wValue slot - 1
inline constexpr std::uint8_t abandon = 0xEF;             ///< the running operation was cancelled
}  // namespace command

/// Byte 4 of a reply: the pedal refused.
inline constexpr std::size_t answerOffset = 4;
inline constexpr std::uint8_t refusal = 'N';
inline constexpr std::size_t stageOffset = 5;
inline constexpr std::size_t sequenceOffset = 6;

/// The bytes that are used of a command's reply: one that brings fewer is not whole. Not wLength, as not
/// every pedal need fill it.
constexpr std::size_t neededLength(std::uint8_t code) {
    switch (code) {
        case command::stage:
            return stageOffset + 1;
        case command::busy:
            return sequenceOffset + 1;
        case command::capacityAndVersion:
            return replyLength;
        case command::firstLoops:
        case command::lastLoops:
            return loopTableLength;
        default:
            return answerOffset + 1;
    }
}

/// Stage characters.
inline constexpr char stageNone = 0;
inline constexpr char stageNormal = 'p';
inline constexpr char stageFactoryBlank = 'b';

}  // namespace kzq
