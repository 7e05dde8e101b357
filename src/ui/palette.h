#pragma once

#include <QColor>

namespace kzq {

/// The palette.
QColor KZQBrown();
QColor KZQGray();
QColor KZQRed();
QColor KZQYellow();
QColor KZQWhite();
QColor KZQLink();
QColor KZQLinkHover();
QColor KZQTextHighlight();

/// The other colours of the look, by role.
QColor plateTopColor();                           ///< the lit top of the brown plate
QColor plateFootColor();                          ///< the foot of it
QColor trayColor();                               ///< the tray that holds the rows; the wash of the shield
QColor grooveColor();                             ///< a row at rest, a track, a text well
QColor rimColor();                                ///< the lit edge of a groove
QColor creamColor();                              ///< print, rings, bars
QColor panelColor();                              ///< the body of the menu
QColor outlineColor();                            ///< outlines of buttons and the menu
QColor tapeEdgeColor();                           ///< outline of the About panel
QColor exportColor();                             ///< accent of export
QColor inkColor();                                ///< words on accents and on cream
QColor warningColor();                            ///< the meter's orange
QColor restingTextColor(double deviceScale = 1);  ///< names at rest: white at 0.5, below 1 at 0.6
QColor disabledWordColor();                       ///< words of a disabled face
QColor disabledFaceColor();                       ///< the flat face of a disabled button

/// Laid over what the pointer is on and over what it presses.
QColor hoverTint();
QColor pressTint();

/// The same for what a row shows of its loop's sound, with the measured contrast to what is under it.
QColor lengthColor(double deviceScale = 1);  ///< a length in the groove: cream at 0.55 (5.4), below 1 at 0.65
QColor lengthOnTapeColor();                  ///< on tape: cream at 0.8 (6.0)
QColor lengthOnConsoleColor();               ///< on console tape (7.2)
QColor waveColor();           ///< bars in the groove (3.5); what was played is cream (16.3; on tape 7.9)
QColor waveOnTapeColor();     ///< on tape (3.3 at the lightest point, 3.9 at the foot)
QColor missingColor();        ///< dots for what has not been read yet, in the groove (3.7)
QColor missingOnTapeColor();  ///< on tape (3.1)

}  // namespace kzq
