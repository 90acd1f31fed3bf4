#include "app/windows/askfile.h"
#include "app/windows/cleannet.h"
#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "netoverlay/paint/overlay.h"
#include "network/netfile.h"
#include "network/tables.h"
#include "radio/link.h"
#include "relief/paint/drawmap.h"
#include "relief/windows/frmPicPro.h"
#include "terrain/mapfile.h"
#include "terrain/mapgrid.h"

#include <fmt/format.h>

/// Tells in the status line that a file which the user has chosen could not be read.
static void tellunreadable(const std::string& path)
{
    hooks.setlabel2(nameof(path) + " : fichier illisible");
}

void newnetworks()
{
    const std::string text = "Effacer toutes les données du réseau " + session.netfile;
    if (hooks.askuser({text, Question::Buttons::yesno, Question::Icon::question}) != Answer::yes)
        return;
    bool cancel = false;
    CleanNet(cancel);
    if (cancel)
        return;
    newnet(true);
    refilllink();
}

/// Opens a network in the place of the one there is. What is refused by its size or first bytes
/// leaves that one as it is, and the status line says why.
static void replacenet(const std::string& path)
{
    bool cancel = false;
    const NetStatus kind = probenet(path);
    if (kind != NetStatus::toolarge && kind != NetStatus::foreign)
        CleanNet(cancel);
    if (cancel)
        return;
    loadnet(path);
    if (lastnetstatus() == NetStatus::unreadable || lastnetstatus() == NetStatus::truncated)
        tellunreadable(path);
}

void opennetworks()
{
    const std::string path = askfilename({.title = "Ouvrir des réseaux",
                                          .filter = "Fichier de réseaux (NET)",
                                          .patterns = "*.net",
                                          .offered = session.netfile});
    if (!path.empty())
        replacenet(path);
}

bool savenetas()
{
    std::string path = askfilename({.title = "Enregistrer les réseaux",
                                    .filter = "Fichier de réseaux (NET)",
                                    .patterns = "*.net",
                                    .offered = session.netfile,
                                    .saving = true,
                                    .extension = "net"});
    return !path.empty() && savenet(path);
}

void savenetworks()
{
    savenetas();
}

void openmap()
{
    const std::string path = askfilename({.title = "Ouvrir une carte",
                                          .filter = "Fichier carte (MAP)",
                                          .patterns = "*.map",
                                          .offered = mapname});
    if (path.empty())
        return;
    if (loadmap(path))
        hooks.setlabel2(fmt::format("Largeur={} Hauteur={}", mapgrid.width, mapgrid.height));
    else if (lastmapstatus() == MapStatus::unreadable)
        tellunreadable(path);
}

bool savemapas()
{
    const std::string path = askfilename({.title = "Enregistrer la carte",
                                          .filter = "Fichier carte (MAP)",
                                          .patterns = "*.map",
                                          .offered = mapname,
                                          .saving = true,
                                          .extension = "map"});
    return !path.empty() && savemap(path);
}

void savemapcommand()
{
    savemapas();
}

/// Shows the properties of a picture, or of a new one, and draws it when they are applied.
static void editpicture(OpenPicture* picture)
{
    frmPicPro(picture ? &picture->data : nullptr, mainwindow).exec();
    const bool draw = opbusy > 0;
    if (draw) {
        drawmap(picture, true);
        autodrawnets();
    }
}

void newpicture()
{
    editpicture(nullptr);
}

void pictureproperties()
{
    OpenPicture* picture = mainwindow->activepicture();
    editpicture(picture && picture->data.isworld() ? nullptr : picture);
}

void openpicture()
{
    const std::string path = askfilename({.title = "Ouvrir une image",
                                          .filter = "Fichier image",
                                          .patterns = "*.bmp *.jpg *.jpeg *.gif"});
    if (!path.empty())
        openpic(path, 0);
}

bool savepictureas()
{
    OpenPicture* picture = mainwindow->activepicture();
    if (!picture)
        return false;
    const std::string path = askfilename({.title = "Enregistrer l'image",
                                          .filter = "Fichier image (BMP)",
                                          .patterns = "*.bmp",
                                          .offered = picture->data.Filename,
                                          .saving = true,
                                          .extension = "bmp"});
    if (path.empty())
        return false;
    return savepic(*picture, path) && findfile(picture->data.Filename).has_value();
}

void savepicture()
{
    savepictureas();
}

void loadprevious(int index)
{
    if (index < 0 || index >= static_cast<int>(session.recent.size()))
        return;
    const std::string path = session.recent[static_cast<std::size_t>(index)];
    if (!path.empty() && path != session.netfile)
        replacenet(path);
}

static void setmode(std::int16_t mode)
{
    interf = mode;
    mainwindow->setchecked("mnuFileModeNormal", mode == 0);
    mainwindow->setchecked("mnuFileModeInterf", mode == 1);
    hooks.setlabel2("");
    restudylink();
    drawnets(); // tells the mode of interference
}

void normalmode()
{
    setmode(0);
}

void interferencemode()
{
    setmode(1);
}

void closeprogram()
{
    mainwindow->close();
}
