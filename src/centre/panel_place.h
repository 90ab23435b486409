#pragma once

#include <string>

#include "shared/panel.h"

/// Where panels stand on the screen. All panels share the stored coordinates.
namespace tul {

/// Height of every panel, twips; systems other than Windows XP draw a higher title bar.
inline constexpr int panelHeight = 6660;
inline constexpr int titleBarAllowance = 200;
[[nodiscard]] int heightOfPanels();

/// Moves a panel to the stored coordinates, or to the middle of the screen; keeps it on the only monitor. A
/// face without a screen leaves the stored coordinates alone.
void positionPanel(PanelPlace& place);
/// Moves a panel to the middle of the screen, to its top left corner, or to its top right one.
void centrePanel(PanelPlace& place);
void movePanelTopLeft(PanelPlace& place);
void movePanelTopRight(PanelPlace& place);
/// Milliseconds between two savings of the main panel's coordinates, so that a moved panel is remembered.
inline constexpr int placeSavingInterval = 2000;
/// Stores a panel's top and left.
void savePanelCoordinates(const PanelPlace& place);

/// Runs TULMONIT.EXE and takes over what it found. Ends the program when it is missing or what it wrote
/// cannot be read.
void readTulMonit();

}  // namespace tul
