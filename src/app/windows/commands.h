#pragma once

#include "base/hooks.h"

#include <QString>

// What the entries of the main window's menus do. Each works on the main window and the tables.

/// Asks for the network's new name and writes it. False when the user gave up, or it failed.
bool savenetas();
/// The same for the map.
bool savemapas();
/// The same for the active picture.
bool savepictureas();

/// Entries of the File menu: a new network, opening and saving networks and map, a new picture.
void newnetworks();
void opennetworks();
void savenetworks();
/// Opens the network dialog. When it closes the nets are evaluated and drawn, or erased where they
/// are not displayed automatically.
void netproperties();
void openmap();
void savemapcommand();
void newpicture();
/// Properties of the active picture, which is drawn anew when they are applied. The world map takes
/// no drawing: there it is a new picture.
void pictureproperties();
void openpicture();
void savepicture();
/// Asks for a name and writes the active picture for other map programs: GeoTIFF or KML.
void exportpicture();
/// The name of an export with the ending of its kind: another picture's ending is replaced, any
/// other kept before it.
///   extension   of the chosen kind; empty: as the name says, else a GeoTIFF
std::string exportname(const std::string& path, const std::string& extension);
/// Asks for another program's file and shows what would be taken of it; the stations that are taken
/// are drawn.
void importstations();
/// Asks for a name and writes the stations, and the links where the kind of file takes them.
void exportstations();
/// Opens recent entry `index` (0 to 3), after `CleanNet`; nothing for one that is empty or open.
void loadprevious(int index);
void normalmode();
void interferencemode();
void closeprogram();

/// Opens the map's properties, or brings them to the front.
void mapproperties();
/// Shows or closes the elevation grid by its check mark.
void elevationgrid();
/// Lets the map's windows reach the cursor and the pictures.
void connectmapwindows();

/// Opens the station editor, or brings it to the front.
void stationproperties();
/// Lets the station editor reach the pictures, and the pictures open it.
void connectunitwindow();

/// Opens the radio link window, or brings it to the front.
void radiolink();
/// Another network is in the tables: the link window shows its stations.
void refilllink();
/// The propagation mode is another: the link window studies its link again.
void restudylink();
/// Lets the link window ask for a file and give the pictures back to the nets, and lets the
/// pictures open it.
void connectlinkwindow();
/// The active picture goes to the clipboard with its place, or the part of it that is selected;
/// without a picture the clipboard is emptied.
void copytoclipboard();
/// The clipboard's image takes the place of the active picture's own, or becomes a new picture.
/// Nothing without an image.
void paste();
void pasteasnew();
/// Shows the active picture as it comes out on paper, to print it or write it as PDF.
void printactive();

/// Takes back, or does again, what the user did last.
void undo();
void redo();
/// Lets evaluation, pictures and windows follow what is taken back, and the menu tell what it is.
void connectundo();

/// The coverages, painted on the active picture, and the report on link quality.
void radiocoverage();
void visualcoverage();
void performancereport();

/// Draws the nets after a change while "Affichage automatique des réseaux" is checked; takes the
/// check mark off when that took longer than a user wants to wait each time.
void autodrawnets();
void showhidetoolbar();
void showhidestatusbar();
void followmouse();

/// Entries of the Window menu: they arrange the pictures in the main window.
void cascadewindows();
void tilehorizontally();
void tilevertically();
void arrangeicons();

/// Opens the box about the program.
void showabout();
/// The stop signal of the running operation.
void stopoperation();
