#include "ui/palette.h"

namespace kzq {

QColor KZQBrown() {
    return {43, 23, 23};
}

QColor KZQGray() {
    return {170, 162, 162};
}

QColor KZQRed() {
    return {255, 59, 59};
}

QColor KZQYellow() {
    return {249, 237, 101};
}

QColor KZQWhite() {
    return {255, 255, 255};
}

QColor KZQLink() {
    return {0, 179, 221};
}

QColor KZQLinkHover() {
    return {173, 225, 255};
}

QColor KZQTextHighlight() {
    return {152, 215, 254};
}

QColor plateTopColor() {
    return {0x3A, 0x21, 0x20};
}

QColor plateFootColor() {
    return {0x26, 0x14, 0x14};
}

QColor trayColor() {
    return {0x1F, 0x10, 0x10};
}

QColor grooveColor() {
    return {0x13, 0x09, 0x09};
}

QColor rimColor() {
    return {0x45, 0x2B, 0x29};
}

QColor creamColor() {
    return {0xF3, 0xE9, 0xD8};
}

QColor panelColor() {
    return {0x19, 0x0C, 0x0C};
}

QColor outlineColor() {
    return {0x6A, 0x47, 0x44};
}

QColor tapeEdgeColor() {
    return {0x8A, 0x5D, 0x49};
}

QColor exportColor() {
    return {0x6F, 0xDB, 0x9C};
}

QColor inkColor() {
    return {0x1A, 0x0D, 0x0D};
}

QColor warningColor() {
    return {0xFF, 0x9F, 0x43};
}

QColor restingTextColor(double deviceScale) {
    return {255, 255, 255, deviceScale < 1 ? 153 : 128};
}

QColor lengthColor(double deviceScale) {
    return {0xF3, 0xE9, 0xD8, deviceScale < 1 ? 166 : 140};
}

QColor lengthOnTapeColor() {
    return {0xF3, 0xE9, 0xD8, 204};
}

QColor lengthOnConsoleColor() {
    return {0x5A, 0x4A, 0x3A};
}

QColor waveColor() {
    return tapeEdgeColor();
}

QColor waveOnTapeColor() {
    return {0xC0, 0x91, 0x7A};
}

QColor missingColor() {
    return {0x7D, 0x65, 0x62};
}

QColor missingOnTapeColor() {
    return {0xA3, 0x93, 0x90};
}

QColor hoverTint() {
    return {255, 255, 255, 20};
}

QColor pressTint() {
    return {0x13, 0x09, 0x09, 96};
}

QColor disabledWordColor() {
    return {0x9C, 0x8D, 0x8B};
}

QColor disabledFaceColor() {
    return {0x3A, 0x24, 0x23};
}

}  // namespace kzq
