#include "app/windows/frmMain.h"
#include "app/windows/menus.h"
#include "app/windows/shelltest.h"
#include "base/session.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <gmock/gmock.h>
#include <set>

using testing::ElementsAreArray;

/// All captions of the menu bar, entries below their menu by blanks, without separators.
static void collect(const QList<QAction*>& actions, const std::string& indent,
                    std::vector<std::string>& texts)
{
    for (const QAction* action : actions) {
        if (action->isSeparator() || action->text().isEmpty())
            continue;
        texts.push_back(indent + action->text().toStdString());
        if (action->menu())
            collect(action->menu()->actions(), indent + "  ", texts);
    }
}

class Menus : public ShellTest
{
protected:
    void SetUp() override { start(); }
};

TEST_F(Menus, HaveTheseCaptionsInThisOrder)
{
    for (int i = 0; i < 4; ++i)
        window->action("mnuFileRecent" + std::to_string(i))->setText(QString());
    std::vector<std::string> texts;
    collect(window->menuBar()->actions(), "", texts);
    EXPECT_THAT(texts, ElementsAreArray({
                           "&Fichier",
                           "  &Nouveaux réseaux",
                           "  &Ouvrir des réseaux",
                           "  &Enregistrer les réseaux sous...",
                           "  &Propriétés des réseaux",
                           "  Ouvrir une carte",
                           "  Enregistrer la carte sous...",
                           "  Propriétés de la carte",
                           "  Nouvelle image",
                           "  Ouvrir une image",
                           "  Enregistrer l'image sous...",
                           "  Exporter l'image...",
                           "  Propriétés de l'image",
                           "  Importer des stations...",
                           "  Exporter les stations et les liens...",
                           "  Mode de propagation",
                           "    Normal",
                           "    Interférence",
                           "  &Imprimer",
                           "  &Terminer",
                           "&Edition",
                           "  Annuler",
                           "  Rétablir",
                           "  &Copier",
                           "  Co&ller",
                           "  Coller comme &nouvelle image",
                           "  Mélanger avec un carte Quo Vadis",
                           "    &Copier",
                           "    &Additionner",
                           "    &Multiplier",
                           "  &Mélange d'images",
                           "  Dessin de &grille",
                           "    &1 10 Degrés",
                           "    &2 1 Degré",
                           "    &3 15 Minutes",
                           "    &4 1 Minute",
                           "    &5 UTM 1 km",
                           "    &6 UTM 10 km",
                           "  &Inonder",
                           "  Dessin des &objets",
                           "    &Surfaces",
                           "    &Lignes",
                           "    &Etiquettes",
                           "    &Villes",
                           "    &Tout",
                           "  &Edition des objects",
                           "  &Stratification",
                           "  &Tourner/Étirer",
                           "  Projection",
                           "  Ajuster la carte à l'image/sélection",
                           "  &Propriétés des stations",
                           "&Affichage",
                           "  &Lien radio",
                           "  Couverture &radio",
                           "  Couverture &visuelle",
                           "  Localisation &GPS",
                           "  &Moniteur du canal multicast",
                           "  Rapport",
                           "  &Mappemonde",
                           "  Grille d'&altitude ",
                           "  Montrer les réseaux",
                           "  Cacher les réseaux",
                           "  Affichage automatique des réseaux",
                           "  Visionner un vol",
                           "  Barre d'outils",
                           "  Barre d'état",
                           "  Plein écran",
                           "  Coordonnées de la souris",
                           "Fenê&tres",
                           "  &Cascade",
                           "  Étalage &horizontal",
                           "  Étalage &vertical",
                           "  &Arranger les icônes",
                           "&?",
                           "  &Contenu",
                           "  &Recherche",
                           "  À &propos",
                           "&Stop",
                       }));
}

TEST_F(Menus, NameEachEntryOnce)
{
    std::set<std::string> names;
    for (const MenuEntry& entry : menutable()) {
        if (*entry.name != '\0') {
            EXPECT_TRUE(names.insert(entry.name).second) << entry.name;
            EXPECT_TRUE(window->action(entry.name)) << entry.name;
        }
    }
    EXPECT_EQ(window->action("mnuNothing"), nullptr);
}

TEST_F(Menus, GiveEachShortcutToOneEntry)
{
    std::set<std::string> keys;
    for (const MenuEntry& entry : menutable()) {
        if (*entry.keys == '\0')
            continue;
        EXPECT_TRUE(keys.insert(entry.keys).second) << entry.keys;
        EXPECT_EQ(window->action(entry.name)->shortcut().toString().toStdString(), entry.keys);
    }
}

/// Checks that exactly those entries are enabled whose needs hold and that do something.
static void expectenabled(const frmMain& window, unsigned state)
{
    for (const MenuEntry& entry : menutable()) {
        if (*entry.name == '\0')
            continue;
        const bool works = entry.procedure != nullptr || ismenu(entry);
        EXPECT_EQ(window.action(entry.name)->isEnabled(), works && (entry.needs & ~state) == 0)
            << entry.name;
    }
}

TEST_F(Menus, EnableWhatTheStateAllows)
{
    session.recent = {"/a.net", "/b.net", "/c.net", "/d.net"}; // a hidden entry is never enabled
    window->showrecent();
    expectenabled(*window, needs::idle);
    addpicture("a.bmp");
    expectenabled(*window, needs::idle | needs::child | needs::picture);
    window->setbusy(true);
    expectenabled(*window, needs::running | needs::child | needs::picture);
    window->setbusy(false);
    expectenabled(*window, needs::idle | needs::child | needs::picture);
}

TEST_F(Menus, ShowStopOnlyDuringAnOperation)
{
    EXPECT_FALSE(window->action("mnuStop")->isVisible());
    window->setbusy(true);
    EXPECT_TRUE(window->action("mnuStop")->isVisible());
    EXPECT_FALSE(window->action("mnuFile")->isEnabled());
    window->setbusy(false);
    EXPECT_FALSE(window->action("mnuStop")->isVisible());
    EXPECT_TRUE(window->action("mnuFile")->isEnabled());
}

TEST_F(Menus, ListRecentNetworksByTheirFileNames)
{
    session.recent = {"/a/first.net", "/b/r&d.net", "", ""};
    window->showrecent();
    EXPECT_EQ(window->action("mnuFileRecent0")->text(), QStringLiteral("&1 first.net"));
    EXPECT_EQ(window->action("mnuFileRecent1")->text(), QStringLiteral("&2 r&&d.net"))
        << "a mark in a name is no shortcut letter";
    EXPECT_TRUE(window->action("mnuFileRecent1")->isVisible());
    EXPECT_FALSE(window->action("mnuFileRecent2")->isVisible());
    EXPECT_FALSE(window->action("mnuFileRecent3")->isVisible());
}

TEST_F(Menus, StartWithTheseCheckMarks)
{
    EXPECT_TRUE(window->checked("mnuFileModeNormal"));
    EXPECT_FALSE(window->checked("mnuFileModeInterf"));
    EXPECT_TRUE(window->checked("mnuViewAuto"));
    EXPECT_TRUE(window->checked("mnuViewToolbar"));
    EXPECT_TRUE(window->checked("mnuViewStatus"));
    EXPECT_FALSE(window->checked("mnuMouseCoor"));
    EXPECT_FALSE(window->checked("mnuViewGrid"));
}
