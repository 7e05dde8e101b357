#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "loops/facts.h"

namespace kzq {

inline constexpr std::uint16_t pedalVendor = 0x308A;
inline constexpr std::uint16_t pedalProduct = 0x0104;
inline constexpr int pedalInterface = 0;
inline constexpr std::uint8_t pedalBulkIn = 0x81;
inline constexpr std::uint8_t pedalBulkOut = 0x02;

/// Audio moves in pieces of at most this many bytes, in both directions.
inline constexpr std::size_t transferPiece = 1024;

/// A command's code is in bmRequestType; bRequest is the same for all.
inline constexpr std::uint8_t pedalRequest = 0x2A;

inline constexpr std::uint16_t replyLength = 8;
/// Byte 4 of a reply: 'N' if the pedal refused.
inline constexpr std::size_t answerOffset = 4;
inline constexpr std::uint8_t refusal = 'N';
inline constexpr std::size_t stageOffset = 5;
inline constexpr std::size_t sequenceOffset = 6;
/// Bytes of one record of the loop table: u32 samples, u8 tempo, u8 channel, little-endian.
inline constexpr std::size_t loopRecordLength = 6;
/// Half a table in a reply: ten records.
inline constexpr std::size_t recordsInReply = loopSlots / 2;

/// Stage characters.
inline constexpr char stageNone = 0;
inline constexpr char stageNormal = 'p';
inline constexpr char stageFactoryBlank = 'b';

/// What the pedal understands. The link sends by this table, the simulated pedal judges by it, a recording
/// names commands by it, and the table in doc/usb.md is compared with it.
namespace wire {

/// What wValue or wIndex carries.
enum class Word : std::uint8_t {
    zero,
    one,
    address,    ///< 0 to 19
    channel,    ///< the loop's, 1 to 255
    occupied,   ///< 1 if the slot already holds a loop, else 0
    lowLength,  ///< of a byte count, the low 16 bits
    highLength
};

struct Command {
    std::uint8_t code = 0;
    std::string_view name = {};
    Word value = Word::one;
    Word index = Word::zero;
    std::uint16_t reply = replyLength;  ///< wLength
    /// The bytes that are used of the reply: one that brings fewer is not whole. Not wLength, as not every
    /// pedal need fill it.
    std::uint16_t needs = answerOffset + 1;
    bool refusable = true;  ///< byte 4 of the reply is the answer
};

inline constexpr std::uint16_t tableLength = recordsInReply * loopRecordLength;

inline constexpr Command importLoop{0xE1, "import", Word::address, Word::channel};  ///< audio follows on 0x81
inline constexpr Command exportLoop{0xE2, "export", Word::address, Word::occupied};
inline constexpr Command exportLength{0xE3, "export length", Word::lowLength, Word::highLength};
/// With normal firmware: restart into the loader. In the loader: prepare for the image.
inline constexpr Command enterLoader{0xE4, "loader"};
inline constexpr Command announceTrailer{0xE5, "trailer"};  ///< after the image, before its 36-byte trailer
inline constexpr Command openUpdate{0xE7, "update"};        ///< starts one if the pedal has only its loader
inline constexpr Command busy{.code = 0xE8, .name = "busy", .needs = sequenceOffset + 1};
inline constexpr Command stage{.code = 0xE9, .name = "stage", .needs = stageOffset + 1, .refusable = false};
inline constexpr Command capacityAndVersion{
    .code = 0xEA, .name = "capacity and version", .needs = replyLength, .refusable = false};
inline constexpr Command firstLoops{
    .code = 0xEB, .name = "first loops", .reply = tableLength, .needs = tableLength, .refusable = false};
inline constexpr Command lastLoops{
    .code = 0xEC, .name = "last loops", .reply = tableLength, .needs = tableLength, .refusable = false};
inline constexpr Command eraseLoop{0xED, "erase", Word::address};
inline constexpr Command abandon{.code = 0xEF, .name = "abandon", .refusable = false};

inline constexpr std::array commands{
    importLoop, exportLoop,         exportLength, enterLoader, announceTrailer, openUpdate, busy,
    stage,      capacityAndVersion, firstLoops,   lastLoops,   eraseLoop,       abandon};

/// Null if the pedal has no such command.
constexpr const Command* find(std::uint8_t code) {
    for (const auto& command : commands) {
        if (command.code == code) {
            return &command;
        }
    }
    return nullptr;
}

}  // namespace wire

}  // namespace kzq
