#include "base/settings.h"
#include "base/windows/undostack.h"
#include "netoverlay/paint/overlay.h"
#include "network/unsaved.h"
#include "network/windows/netundo.h"
#include "pictures/paint/cursor.h"
#include "pictures/paint/picturetest.h"
#include "radio/windows/frmLink.h"
#include "radio/windows/linkview.h"
#include "radio/windows/smeter.h"
#include "relief/paint/drawmap.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>

#include <fstream>
#include <memory>
#include <sstream>

using testing::ElementsAre;

namespace
{
class LinkWindow : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        resetsettings();
        selection = {};
        mapgrid.record.mapsize = 111;
        station(1, 7.1F, 44.5F, "Ouest");
        station(2, 8.3F, 44.6F, "Est");
        station(3, 7.5F, 44.8F, "Seul");
        for (std::size_t n : {2U, 5U})
            for (std::size_t u : {1U, 2U}) {
                network.nets[n].member[u] = memberbit;
                network.nets[n].system[u] = 1;
            }
        network.nets[2].name.assign("Deux");
        network.nets[5].name.assign("Cinq");
        network.systems[1].name.assign("Portatif");
        linkwindowhooks.showlink = linkoverlay;
        linkwindowhooks.movecursor = movecursor;
        linkwindowhooks.asktextfile = [this](const std::string& name) {
            offered = name;
            return filename;
        };
        hooks.viewtext = [this](const std::string& name) { viewed.push_back(name); };
        open();
    }
    void TearDown() override
    {
        window.reset();
        linkwindowhooks = {};
        PictureTest::TearDown();
    }
    void open()
    {
        window = std::make_unique<frmLink>();
        window->resize(900, 640);
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    template <typename T> T& get(const char* name)
    {
        auto* found = window->findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    LinkView& view() { return get<LinkView>("graph"); }
    std::string line() { return view().textline().toStdString(); }
    void trigger(const char* entry) { get<QAction>(entry).trigger(); }
    void choose(int a, int b)
    {
        get<QComboBox>("transmitter").setCurrentIndex(a - 1);
        get<QComboBox>("receiver").setCurrentIndex(b - 1);
    }
    void type(const char* field, const char* text)
    {
        auto& box = get<QLineEdit>(field);
        box.selectAll();
        QTest::keyClicks(&box, QString::fromLatin1(text));
        QTest::keyClick(&box, Qt::Key_Return);
    }
    std::string label(const char* name) { return get<QLabel>(name).text().toStdString(); }
    std::string field(const char* name) { return get<QLineEdit>(name).text().toStdString(); }
    std::string list(const char* name) { return get<QComboBox>(name).currentText().toStdString(); }
    std::vector<std::string> nets()
    {
        std::vector<std::string> names;
        const auto& shown = get<QComboBox>("netlist");
        for (int i = 0; i < shown.count(); ++i)
            names.push_back(shown.itemText(i).toStdString());
        return names;
    }
    /// The picture is one colour from edge to edge.
    bool erased()
    {
        const QImage image = view().picture().toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != image.pixel(0, 0))
                    return false;
        return true;
    }

    std::unique_ptr<frmLink> window;
    std::string offered, filename;
    std::vector<std::string> viewed;
};
} // namespace

TEST_F(LinkWindow, ListsAllStationsAndTheNetsThatBothShare)
{
    EXPECT_EQ(window->windowTitle().toStdString(), "Lien radio");
    EXPECT_EQ(get<QComboBox>("transmitter").count(), MAXUNIT);
    EXPECT_EQ(list("transmitter"), "Ouest");
    EXPECT_EQ(list("receiver"), "Est");
    EXPECT_THAT(nets(), ElementsAre("Deux", "Cinq"));
}

TEST_F(LinkWindow, ShowsTheProfileAsSoonAsALinkIsChosen)
{
    EXPECT_TRUE(window->current().done);
    EXPECT_FALSE(erased());
    EXPECT_TRUE(get<QAction>("profile").isChecked());
    EXPECT_EQ(label("leftrow1"), "Portatif");
    EXPECT_EQ(field("leftheight"), "2.0");
    EXPECT_TRUE(get<QLineEdit>("leftheight").hasSelectedText());
}

TEST_F(LinkWindow, StartsTheCursorAtTheFarEnd)
{
    const auto n = window->current().link.profile.intervals();
    EXPECT_NEAR(*view().lineplace(), (n * 1.05) / (n * 1.1), 1e-9);
    EXPECT_EQ(line().find(" Distance:"), 0U);
    EXPECT_NE(line().find("Rx:"), std::string::npos);
}

TEST_F(LinkWindow, RemembersTheNetUsedLast)
{
    auto& nets = get<QComboBox>("netlist");
    nets.setCurrentIndex(1);
    emit nets.activated(1);
    EXPECT_EQ(selection.linknet, 5);
    choose(2, 1);
    EXPECT_EQ(list("netlist"), "Cinq");
    window.reset();
    open();
    EXPECT_EQ(list("netlist"), "Cinq");
    EXPECT_EQ(list("transmitter"), "Est");
}

TEST_F(LinkWindow, HasNoNetForStationsThatShareNone)
{
    choose(1, 3);
    EXPECT_THAT(nets(), ElementsAre("Pas de réseau commun"));
    EXPECT_TRUE(erased());
    EXPECT_EQ(label("leftrow1"), "");
    EXPECT_EQ(window->current().analysis.linktext[0], "") << "no text of the link before";
}

TEST_F(LinkWindow, ShowsABareProfileOnDemand)
{
    session.defh1 = 3.5F;
    choose(1, 3);
    trigger("profile");
    EXPECT_TRUE(window->current().done);
    EXPECT_FALSE(erased());
    EXPECT_EQ(window->current().analysis.linktext[0], " Impossibilité de montrer les détails");
    EXPECT_EQ(field("leftheight"), "3.5");
    EXPECT_EQ(line().find("Rx:"), std::string::npos);
}

TEST_F(LinkWindow, HasNoNetForADisabledStation)
{
    network.units[2].enabled = 0;
    choose(2, 1);
    EXPECT_THAT(nets(), ElementsAre("Pas de réseau commun"));
}

TEST_F(LinkWindow, DoesNothingForAStationWithItself)
{
    choose(1, 1);
    EXPECT_THAT(nets(), ElementsAre("Pas de réseau commun"));
    for (const char* entry : {"profile", "invert", "details", "range", "distribution"})
        trigger(entry);
    EXPECT_TRUE(erased());
    EXPECT_FALSE(window->current().done);
}

TEST_F(LinkWindow, HasNoProfileOffTheMap)
{
    network.units[2].lon = 20;
    choose(1, 3);
    choose(1, 2);
    EXPECT_THAT(nets(), ElementsAre("Deux", "Cinq"));
    EXPECT_FALSE(window->current().done);
    EXPECT_TRUE(erased());
    EXPECT_EQ(line(), "");
    for (const char* entry : {"details", "range", "distribution"})
        trigger(entry);
    EXPECT_TRUE(erased());
}

TEST_F(LinkWindow, TakesAHeightIntoTheNet)
{
    const double before = window->current().link.record.h1;
    type("leftheight", "25");
    EXPECT_EQ(network.antheights[2][1], 25);
    EXPECT_TRUE(netedited);
    EXPECT_EQ(double{window->current().link.record.h1}, 25);
    EXPECT_NE(before, 25);
    EXPECT_EQ(field("leftheight"), "25.0");
    type("rightheight", "3500");
    EXPECT_EQ(network.antheights[2][2], 2999);
    type("rightheight", "0");
    EXPECT_EQ(network.antheights[2][2], 0.5F);
}

TEST_F(LinkWindow, TakesAHeightWithADecimalComma)
{
    type("leftheight", "12,5");
    EXPECT_EQ(network.antheights[2][1], 12.5F);
}

TEST_F(LinkWindow, AnAppliedHeightIsOneThingToTakeBack)
{
    forgetedits();
    type("leftheight", "25");
    EXPECT_EQ(undotext(), QStringLiteral("hauteur d'antenne de Ouest"));
    undolast();
    EXPECT_EQ(network.antheights[2][1], 0);
    window->followtables();
    EXPECT_EQ(field("leftheight"), "2.0");
    EXPECT_EQ(double{window->current().link.record.h1}, 2);
    forgetedits();
}

TEST_F(LinkWindow, TakesAHeightAsTheDefaultWithoutANet)
{
    choose(1, 3);
    type("rightheight", "7.5");
    EXPECT_EQ(session.defh2, 7.5F);
    EXPECT_EQ(double{window->current().link.record.h2}, 7.5);
}

TEST_F(LinkWindow, ExchangesTheStations)
{
    trigger("invert");
    EXPECT_EQ(list("transmitter"), "Est");
    EXPECT_EQ(list("receiver"), "Ouest");
    EXPECT_EQ(window->current().a, 2);
    EXPECT_EQ(window->current().b, 1);
    EXPECT_TRUE(get<QAction>("profile").isChecked());
}

TEST_F(LinkWindow, ShowsTextsRangeAndDistribution)
{
    const QImage profile = view().picture().toImage();
    for (const char* entry : {"details", "range", "distribution"}) {
        trigger(entry);
        EXPECT_FALSE(erased()) << entry;
        EXPECT_TRUE(get<QAction>(entry).isChecked());
        EXPECT_NE(view().picture().toImage(), profile) << entry;
    }
    trigger("profile");
    EXPECT_EQ(view().picture().toImage(), profile) << "the distribution leaves the study alone";
}

TEST_F(LinkWindow, LeavesTheMarkAtTheGraphInView)
{
    choose(1, 3);
    trigger("profile");
    trigger("distribution");
    EXPECT_TRUE(get<QAction>("profile").isChecked()) << "no distribution without a net";
    trigger("invert");
    EXPECT_TRUE(get<QAction>("profile").isChecked());
}

TEST_F(LinkWindow, MovesTheCursorWithTheArrowKeys)
{
    const double atend = *view().lineplace();
    const std::string before = line();
    QTest::keyClick(&view(), Qt::Key_Left);
    const auto n = window->current().link.profile.intervals();
    EXPECT_NEAR(*view().lineplace(), atend - 0.5 / (n * 1.1), 1e-9);
    EXPECT_NE(line(), before);
    QTest::keyClick(&view(), Qt::Key_Right);
    QTest::keyClick(&view(), Qt::Key_Right);
    EXPECT_NEAR(*view().lineplace(), atend, 1e-9) << "held at the far station";
}

TEST_F(LinkWindow, FollowsTheMouse)
{
    QTest::mouseMove(&view(), QPoint(view().width() / 2, 50));
    QApplication::processEvents();
    EXPECT_NEAR(*view().lineplace(), 0.5, 0.01);
    EXPECT_NE(line().find("F1  Rx:"), std::string::npos) << line();
}

TEST_F(LinkWindow, ShowsThePlaceOnThePicturesWhileAButtonIsHeld)
{
    movecursor(0, 0);
    const QPoint middle(view().width() / 2, 50);
    QTest::mouseMove(&view(), middle);
    EXPECT_EQ(cursor.lon, 0);
    QTest::mousePress(&view(), Qt::LeftButton, {}, middle);
    EXPECT_NEAR(cursor.lon, 7.7, 0.01);
    EXPECT_NEAR(cursor.lat, 44.55, 0.01);
}

TEST_F(LinkWindow, DrawsItsLinkOverThePictures)
{
    drawmap(nullptr, true);
    trigger("profile");
    EXPECT_FALSE(currentpic->surface.over.empty());
}

TEST_F(LinkWindow, CopiesPictureAndText)
{
    trigger("copy");
    const QMimeData* data = QApplication::clipboard()->mimeData();
    EXPECT_EQ(qvariant_cast<QImage>(data->imageData()).size(), view().picture().size());
    EXPECT_TRUE(data->text().endsWith(QStringLiteral(", Copie d'un lien")));
    EXPECT_EQ(data->text().count(QLatin1Char('\t')), 9);
}

TEST_F(LinkWindow, ExportsTheProfileAndOpensIt)
{
    filename = path("lien.txt");
    trigger("export");
    EXPECT_EQ(viewed, std::vector{filename});
    std::ifstream file(filename);
    std::stringstream content;
    content << file.rdbuf();
    EXPECT_NE(content.str().find("** Profil de parcours **"), std::string::npos);
    trigger("export");
    EXPECT_EQ(offered, filename) << "the name of the last export is offered";
}

TEST_F(LinkWindow, ExportsNothingWhenTheUserGivesUp)
{
    trigger("export");
    EXPECT_TRUE(viewed.empty());
}

TEST_F(LinkWindow, SaysThatThereIsNothingToExport)
{
    choose(1, 1);
    answers = {Answer::ok};
    trigger("export");
    EXPECT_EQ(questions, std::vector<std::string>{"Pas de données exportables"});
}

TEST_F(LinkWindow, ClosesWithEscapeButStopsARunningOperationFirst)
{
    opbusy = 11;
    window->setbusy(true);
    EXPECT_TRUE(get<QAction>("stop").isVisible());
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_EQ(opbusy, 0);
    EXPECT_TRUE(window->isVisible());
    window->setbusy(false);
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(LinkWindow, OpensWhereItWasClosed)
{
    window->move(40, 30);
    const QPoint at = window->pos();
    window->close();
    open();
    constexpr int frame = 4; // pixels of a frame that isn't known before it is shown
    EXPECT_LE((window->pos() - at).manhattanLength(), frame);
}

TEST_F(LinkWindow, StaysOnTheScreen)
{
    writesetting("LinkLeft", std::int32_t{1000000});
    writesetting("LinkTop", std::int32_t{-1000000});
    window = std::make_unique<frmLink>();
    const QRect room = window->screen()->availableGeometry();
    EXPECT_TRUE(room.contains(window->pos()));
}

TEST_F(LinkWindow, ForgetsTheLinkOfAnotherNetwork)
{
    network = defaulttables();
    window->refill();
    EXPECT_FALSE(window->current().done);
    EXPECT_THAT(nets(), ElementsAre("Pas de réseau commun"));
    EXPECT_TRUE(erased());
}

TEST_F(LinkWindow, FollowsAStationThatMoves)
{
    network.units[2].lon = 7.9F;
    const double before = window->current().link.profile.distkm;
    window->followstation(3);
    EXPECT_EQ(window->current().link.profile.distkm, before) << "another station";
    window->followstation(2);
    EXPECT_LT(window->current().link.profile.distkm, before);
    EXPECT_TRUE(get<QAction>("profile").isChecked());
}

TEST_F(LinkWindow, KeepsItsGraphWhileAStationMoves)
{
    trigger("details");
    const QImage details = view().picture().toImage();
    network.units[2].lon = 7.9F;
    window->followstation(2);
    EXPECT_TRUE(get<QAction>("details").isChecked());
    EXPECT_EQ(view().lineplace(), std::nullopt);
    EXPECT_NE(view().picture().toImage(), details) << "with the texts of the new place";
    network.units[2].lon = 20;
    window->followstation(2);
    EXPECT_TRUE(erased()) << "off the map";
    network.units[2].lon = 8.3F;
    window->followstation(2);
    EXPECT_EQ(view().picture().toImage(), details);
}

TEST_F(LinkWindow, LeavesTheNetsOnThePicturesWhileAStationMoves)
{
    drawmap(nullptr, true);
    drawnets();
    const auto drawings = currentpic->surface.over.size();
    window->followstation(2);
    EXPECT_EQ(currentpic->surface.over.size(), drawings);
}

TEST_F(LinkWindow, HasTheViewsDisabled)
{
    const auto actions = get<QMenu>("views").actions();
    EXPECT_EQ(actions.size(), 11);
    for (const QAction* action : actions)
        EXPECT_FALSE(action->isEnabled()) << action->text().toStdString();
}
