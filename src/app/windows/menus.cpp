#include "app/windows/menus.h"

#include "app/windows/commands.h"
#include "netoverlay/paint/overlay.h"
#include "pictures/windows/showworld.h"

#include <array>

template <int index> static void openrecent()
{
    loadprevious(index);
}

/// An entry that changes by itself when it is chosen, and is only asked for its check mark.
static void checkmarkonly() {}

static constexpr auto idle = needs::idle;
static constexpr auto onpicture = needs::idle | needs::picture;
static constexpr auto onchild = needs::idle | needs::child;

// clang-format off
static constexpr auto entries = std::to_array<MenuEntry>({
    {0, "mnuFile", "&Fichier", "", nullptr, idle},
    {1, "mnuFileNewNet", "&Nouveaux réseaux", "Ctrl+N", newnetworks, idle},
    {1, "mnuFileOpenNet", "&Ouvrir des réseaux", "Ctrl+O", opennetworks, idle},
    {1, "mnuFileSaveNet", "&Enregistrer les réseaux sous...", "Ctrl+S", savenetworks, idle},
    {1, "mnuFileNetPro", "&Propriétés des réseaux", "", netproperties, idle},
    {1, "", "", "", nullptr, 0},
    {1, "mnuFileOpenMap", "Ouvrir une carte", "", openmap, idle},
    {1, "mnuFileSaveMap", "Enregistrer la carte sous...", "", savemapcommand, idle},
    {1, "mnuFileMapPro", "Propriétés de la carte", "", mapproperties, idle},
    {1, "", "", "", nullptr, 0},
    {1, "mnuFileNewPic", "Nouvelle image", "", newpicture, idle},
    {1, "mnuFileOpenPic", "Ouvrir une image", "", openpicture, idle},
    {1, "mnuFileSavePic", "Enregistrer l'image sous...", "", savepicture, onpicture},
    {1, "mnuFileExportPic", "Exporter l'image...", "", exportpicture, onpicture},
    {1, "mnuFilePicPro", "Propriétés de l'image", "", pictureproperties, onpicture},
    {1, "", "", "", nullptr, 0},
    {1, "mnuFileImportUnits", "Importer des stations...", "", importstations, idle},
    {1, "mnuFileExportUnits", "Exporter les stations et les liens...", "", exportstations, idle},
    {1, "", "", "", nullptr, 0},
    {1, "mnuFileMode", "Mode de propagation", "", nullptr, idle},
    {2, "mnuFileModeNormal", "Normal", "", normalmode, idle, true},
    {2, "mnuFileModeInterf", "Interférence", "", interferencemode, idle, true},
    {1, "", "", "", nullptr, 0},
    {1, "mnuFilePrint", "&Imprimer", "Ctrl+P", printactive, onpicture},
    {1, "", "", "", nullptr, 0},
    {1, "mnuFileRecent0", "", "", openrecent<0>, idle},
    {1, "mnuFileRecent1", "", "", openrecent<1>, idle},
    {1, "mnuFileRecent2", "", "", openrecent<2>, idle},
    {1, "mnuFileRecent3", "", "", openrecent<3>, idle},
    {1, "", "", "", nullptr, 0},
    {1, "mnuFileExit", "&Terminer", "Ctrl+Q", closeprogram, idle},

    {0, "mnuEdit", "&Edition", "", nullptr, idle},
    {1, "mnuEditUndo", "Annuler", "Ctrl+Z", undo, idle | needs::undo},
    {1, "mnuEditRedo", "Rétablir", "Ctrl+Shift+Z", redo, idle | needs::redo},
    {1, "", "", "", nullptr, 0},
    {1, "mnuEditCopy", "&Copier", "Ctrl+C", copytoclipboard, idle},
    {1, "mnuEditPaste", "Co&ller", "Ctrl+V", paste, onpicture},
    {1, "mnuEditPasteNew", "Coller comme &nouvelle image", "Ctrl+Shift+V", pasteasnew, idle},
    {1, "", "", "", nullptr, 0},
    {1, "mnuEditQuo", "Mélanger avec un carte Quo Vadis", "", nullptr, idle},
    {2, "mnuEditQuoCopy", "&Copier", "", nullptr, onpicture},
    {2, "mnuEditQuoAdd", "&Additionner", "", nullptr, onpicture},
    {2, "mnuEditQuoMultiply", "&Multiplier", "", nullptr, onpicture},
    {1, "mnuEditMerge", "&Mélange d'images", "", nullptr, idle},
    {1, "mnuEditGrid", "Dessin de &grille", "", nullptr, idle},
    {2, "mnuEditGrid1", "&1 10 Degrés", "", nullptr, onpicture},
    {2, "mnuEditGrid2", "&2 1 Degré", "", nullptr, onpicture},
    {2, "mnuEditGrid3", "&3 15 Minutes", "", nullptr, onpicture},
    {2, "mnuEditGrid4", "&4 1 Minute", "", nullptr, onpicture},
    {2, "mnuEditGrid5", "&5 UTM 1 km", "", nullptr, onpicture},
    {2, "mnuEditGrid6", "&6 UTM 10 km", "", nullptr, onpicture},
    {1, "mnuEditFlood", "&Inonder", "", nullptr, onpicture},
    {1, "mnuEditObjects", "Dessin des &objets", "", nullptr, idle},
    {2, "mnuEditObjSurfaces", "&Surfaces", "", nullptr, onpicture},
    {2, "mnuEditObjLines", "&Lignes", "", nullptr, onpicture},
    {2, "mnuEditObjLabels", "&Etiquettes", "", nullptr, onpicture},
    {2, "mnuEditObjCities", "&Villes", "", nullptr, onpicture},
    {2, "mnuEditObjAll", "&Tout", "", nullptr, onpicture},
    {1, "mnuEditObjEdit", "&Edition des objects", "", nullptr, idle},
    {1, "", "", "", nullptr, 0},
    {1, "mnuEditStrat", "&Stratification", "", nullptr, onpicture},
    {1, "mnuEditRotate", "&Tourner/Étirer", "", nullptr, onpicture},
    {1, "mnuEditProject", "Projection", "", nullptr, onpicture},
    {1, "mnuEditFitMap", "Ajuster la carte à l'image/sélection", "", nullptr, onpicture},
    {1, "", "", "", nullptr, 0},
    {1, "mnuEditUnit", "&Propriétés des stations", "", stationproperties, idle},

    {0, "mnuView", "&Affichage", "", nullptr, idle},
    {1, "mnuViewLink", "&Lien radio", "", radiolink, idle},
    {1, "mnuViewRadio", "Couverture &radio", "", radiocoverage, onpicture},
    {1, "mnuViewVisual", "Couverture &visuelle", "", visualcoverage, onpicture},
    {1, "mnuViewGPS", "Localisation &GPS", "", nullptr, idle},
    {1, "mnuViewDebug", "&Moniteur du canal multicast", "", nullptr, idle},
    {1, "mnuViewReport", "Rapport", "", performancereport, idle},
    {1, "", "", "", nullptr, 0},
    {1, "mnuViewWorld", "&Mappemonde", "", showworld, idle},
    {1, "mnuViewGrid", "Grille d'&altitude ", "", elevationgrid, idle, true},
    {1, "", "", "", nullptr, 0},
    {1, "mnuViewShowNets", "Montrer les réseaux", "F5", drawnets, idle},
    {1, "mnuViewHideNets", "Cacher les réseaux", "", erasenets, idle},
    {1, "mnuViewAuto", "Affichage automatique des réseaux", "", checkmarkonly, idle, true},
    {1, "", "", "", nullptr, 0},
    {1, "mnuViewFlight", "Visionner un vol", "", nullptr, idle},
    {1, "", "", "", nullptr, 0},
    {1, "mnuViewToolbar", "Barre d'outils", "", showhidetoolbar, idle, true},
    {1, "mnuViewStatus", "Barre d'état", "", showhidestatusbar, idle, true},
    {1, "mnuViewFull", "Plein écran", "F11", nullptr, onpicture},
    {1, "mnuMouseCoor", "Coordonnées de la souris", "", followmouse, idle, true},

    {0, "mnuWindow", "Fenê&tres", "", nullptr, idle},
    {1, "mnuWindowCascade", "&Cascade", "", cascadewindows, onchild},
    {1, "mnuWindowHorizontal", "Étalage &horizontal", "", tilehorizontally, onchild},
    {1, "mnuWindowVertical", "Étalage &vertical", "", tilevertically, onchild},
    {1, "mnuWindowIcons", "&Arranger les icônes", "", arrangeicons, onchild},

    {0, "mnuHelp", "&?", "", nullptr, idle},
    {1, "mnuHelpContents", "&Contenu", "F1", nullptr, idle},
    {1, "mnuHelpSearch", "&Recherche", "", nullptr, idle},
    {1, "", "", "", nullptr, 0},
    {1, "mnuHelpAbout", "À &propos", "", showabout, idle},

    {0, "mnuStop", "&Stop", "Esc", stopoperation, needs::running},
});
// clang-format on

std::span<const MenuEntry> menutable()
{
    return entries;
}

bool ismenu(const MenuEntry& entry)
{
    const auto next = static_cast<std::size_t>(&entry - entries.data()) + 1;
    return next < entries.size() && entries[next].level > entry.level;
}
