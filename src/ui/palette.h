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
QColor plateTopColor();      ///< the lit top of the brown plate
QColor plateFootColor();     ///< the foot of it
QColor trayColor();          ///< the tray that holds the rows; the wash of the shield
QColor grooveColor();        ///< a row at rest, a track, a text well
QColor rimColor();           ///< the lit edge of a groove
QColor creamColor();         ///< print, rings, bars
QColor panelColor();         ///< the body of the menu
QColor outlineColor();       ///< outlines of buttons and the menu
QColor tapeEdgeColor();      ///< outline of the About panel
QColor exportColor();        ///< accent of export
QColor inkColor();           ///< words on accents and on cream
QColor warningColor();       ///< the meter's orange
QColor restingTextColor();   ///< names at rest: white at 0.5
QColor disabledWordColor();  ///< words of a disabled face
QColor disabledFaceColor();  ///< the flat face of a disabled button

}  // namespace kzq
