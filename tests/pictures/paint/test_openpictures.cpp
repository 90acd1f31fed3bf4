#include "pictures/paint/picturefile.h"
#include "pictures/paint/picturetest.h"

#include <QPainter>

#include <filesystem>

using testing::Each;
using testing::ElementsAre;

namespace
{

class OpenPictures : public PictureTest
{
protected:
    /// A raster of one colour in the test's folder; returns its path.
    std::string raster(const std::string& name, int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(QColor(200, 100, 50));
        EXPECT_TRUE(image.save(QString::fromStdString(path(name))));
        return path(name);
    }

    void text(const std::string& name, const std::string& content)
    {
        ASSERT_TRUE(writefile(path(name), content));
    }
};

constexpr const char* zoom = "2\r\n1,46\r\n3,46\r\n3,45\r\n1,45\r\nZoom de carte\r\n";

} // namespace

TEST_F(OpenPictures, AnEmptyNameMakesAnUntitledPictureOfTheMapsSize)
{
    const OpenPicture* first = openpic("", -1);
    const OpenPicture* second = openpic("", -1);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->data.Filename, "Image1.bmp");
    EXPECT_EQ(second->data.Filename, "Image2.bmp");
    EXPECT_EQ(second->caption, "..\\Image2.bmp");
    EXPECT_EQ(first->data.source, "Image utilisateur");
    EXPECT_EQ(first->data.Pictype, pictype::map);
    EXPECT_EQ(first->data.scalewidth, 60);
    EXPECT_EQ(first->data.scaleheight, 40);
    EXPECT_EQ(currentpic, second);
}

TEST_F(OpenPictures, ARequestedKindOfAnUntitledPictureStays)
{
    EXPECT_EQ(openpic("", 2)->data.Pictype, pictype::fourcorners);
}

TEST_F(OpenPictures, AFileThatIsNowhereOpensNothing)
{
    EXPECT_EQ(openpic(path("nowhere.bmp"), 0), nullptr);
    EXPECT_EQ(openpic(path("nowhere.bmp"), 2), nullptr);
    EXPECT_TRUE(openpictures.empty());
    EXPECT_EQ(currentpic, nullptr);
}

TEST_F(OpenPictures, APictureToBeDrawnNeedsNoFile)
{
    const OpenPicture* picture = openpic(path("carte.bmp"), -1);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->caption, "..\\carte.bmp");
    EXPECT_EQ(picture->data.scalewidth, 60);
}

TEST_F(OpenPictures, ARasterWithoutSidecarIsPlain)
{
    for (const int requested : {0, 2}) {
        const OpenPicture* picture = openpic(raster("a.bmp", 30, 20), requested);
        ASSERT_NE(picture, nullptr);
        EXPECT_EQ(picture->data.Pictype, pictype::plain);
        EXPECT_THAT(picture->data.lon, Each(0));
        EXPECT_EQ(picture->data.scalewidth, 30);
        EXPECT_EQ(picture->surface.kept.pixelColor(5, 5), QColor(200, 100, 50));
    }
}

TEST_F(OpenPictures, QuotesBlanksAndCapitalsDontMatter)
{
    const std::string name = raster("Vue.BMP", 30, 20);
    const OpenPicture* picture = openpic("\"" + name + " \"", 0);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->data.Filename, path("vue.bmp"));
    EXPECT_EQ(openpic(name, 0), picture); // the same window again
    EXPECT_EQ(openpictures.size(), 1U);
}

TEST_F(OpenPictures, TheSidecarGivesKindCornersAndSource)
{
    text("a.dat", zoom);
    const OpenPicture* picture = openpic(raster("a.bmp", 30, 20), 2);
    EXPECT_EQ(picture->data.Pictype, pictype::fourcorners);
    EXPECT_THAT(picture->data.lon, ElementsAre(1, 3, 3, 1));
    EXPECT_EQ(picture->data.source, "Zoom de carte");
}

TEST_F(OpenPictures, TheOlderSidecarCountsOnlyWithoutTheOther)
{
    text("a.adr", "Carte\r\n-1,46\r\n-3,45\r\n");
    const OpenPicture* picture = openpic(raster("a.bmp", 30, 20), 0);
    EXPECT_EQ(picture->data.Pictype, pictype::fourcorners);
    EXPECT_THAT(picture->data.lon, ElementsAre(1, 3, 3, 1));
    EXPECT_EQ(picture->data.source, "Carte");
    text("a.dat", "0\r\n0,0\r\n0,0\r\n0,0\r\n0,0\r\nAutre\r\n");
    openpic(path("a.bmp"), 0);
    EXPECT_EQ(picture->data.Pictype, pictype::plain);
    EXPECT_EQ(picture->data.source, "Autre");
}

TEST_F(OpenPictures, ReopeningReadsTheFilesAgain)
{
    const OpenPicture* picture = openpic(raster("a.bmp", 30, 20), 0);
    raster("a.bmp", 50, 40);
    EXPECT_EQ(openpic(path("a.bmp"), 0), picture);
    EXPECT_EQ(picture->data.scalewidth, 50);
}

TEST_F(OpenPictures, PicturesAreFoundBesideTheNetworkAndInTheProgramsFolder)
{
    std::filesystem::create_directory(path("projet"));
    session.netfile = path("projet/a.net");
    raster("projet/beside.bmp", 10, 10);
    raster("program.bmp", 10, 10);
    const OpenPicture* beside = openpic("c:\\ailleurs\\beside.bmp", 2);
    ASSERT_NE(beside, nullptr);
    EXPECT_EQ(beside->data.Filename, path("projet/beside.bmp"));
    const OpenPicture* program = openpic("c:\\ailleurs\\program.bmp", 2);
    ASSERT_NE(program, nullptr);
    EXPECT_EQ(program->data.Filename, path("program.bmp"));
}

TEST_F(OpenPictures, WhatIsNoImageOpensNothing)
{
    text("a.bmp", "this is no picture");
    EXPECT_EQ(openpic(path("a.bmp"), 0), nullptr);
    EXPECT_TRUE(openpictures.empty());
    EXPECT_EQ(label2, "a.bmp : image illisible");
}

TEST_F(OpenPictures, WhatIsNoImageLeavesTheOpenPictureOfItsName)
{
    const OpenPicture* picture = openpic(raster("a.bmp", 30, 20), 0);
    text("a.bmp", "this is no picture");
    EXPECT_EQ(openpic(path("a.bmp"), 0), nullptr);
    EXPECT_EQ(currentpic, picture);
    EXPECT_EQ(picture->data.scalewidth, 30);
    EXPECT_EQ(picture->surface.kept.pixelColor(5, 5), QColor(200, 100, 50));
}

TEST_F(OpenPictures, PicturesWhoseNamesDifferInCaseAreTwo)
{
    const std::string capitalname = raster("Vue.bmp", 30, 20);
    const std::string smallname = raster("vue.bmp", 10, 20);
    const OpenPicture* capital = openpic(capitalname, 0);
    const OpenPicture* small = openpic(smallname, 0);
    EXPECT_EQ(capital->data.scalewidth, 30);
    EXPECT_EQ(small->data.scalewidth, 10);
    EXPECT_EQ(openpictures.size(), 2U);
    EXPECT_EQ(openpic(path("vue.bmp"), 0), small);
}

TEST_F(OpenPictures, ARasterThatClaimsAHugeSizeOpensNothing)
{
    // The head of a bitmap of 30000 x 30000 pixels of 24 bits, and nothing behind it.
    const std::string head("BM\x36\x00\x00\x00\x00\x00\x00\x00\x36\x00\x00\x00\x28\x00\x00\x00"
                           "\x30\x75\x00\x00\x30\x75\x00\x00\x01\x00\x18\x00",
                           30);
    text("a.bmp", head + std::string(24, '\0'));
    EXPECT_EQ(openpic(path("a.bmp"), 0), nullptr);
    EXPECT_EQ(label2, "a.bmp : image illisible");
}

TEST_F(OpenPictures, GifAndJpegOpenToo)
{
    EXPECT_EQ(openpic(raster("a.jpg", 30, 20), 0)->data.scalewidth, 30);
    // A GIF of one black pixel, put together by hand.
    const std::string gif("GIF89a\x01\x00\x01\x00\x80\x00\x00\x00\x00\x00\xFF\xFF\xFF"
                          "\x2C\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02\x44\x01\x00\x3B",
                          35);
    text("a.gif", gif);
    const OpenPicture* picture = openpic(path("a.gif"), 0);
    EXPECT_EQ(picture->data.scalewidth, 1);
    EXPECT_EQ(picture->surface.kept.pixelColor(0, 0), QColor(Qt::black));
}

TEST_F(OpenPictures, SavingWritesBothFilesAndRenames)
{
    OpenPicture& picture = *openpic("", -1);
    picture.data.source = "essai";
    savepic(picture, path("vue.bmp"));
    EXPECT_EQ(picture.caption, "..\\vue.bmp");
    EXPECT_EQ(picture.data.Filename, path("vue.bmp"));
    EXPECT_EQ(label2, "vue.dat a été enregistrée");
    const QImage image(QString::fromStdString(path("vue.bmp")));
    EXPECT_EQ(image.size(), QSize(60, 40));
    const auto bytes = readfile(path("vue.bmp"));
    ASSERT_TRUE(bytes);
    EXPECT_EQ((*bytes)[28], 24); // bits per pixel
    EXPECT_TRUE(readfile(path("vue.dat"))->starts_with("1\r\n"));
    EXPECT_EQ(openpic(path("vue.bmp"), 0), &picture);
}

TEST_F(OpenPictures, WhatIsDrawnOverAPictureIsSavedWithIt)
{
    OpenPicture& picture = *openpic("", -1);
    picture.surface.over.emplace_back(
        [](QPainter& painter) { painter.fillRect(3, 3, 1, 1, Qt::red); });
    savepic(picture, path("vue.bmp"));
    EXPECT_EQ(QImage(QString::fromStdString(path("vue.bmp"))).pixelColor(3, 3), QColor(Qt::red));
}

TEST_F(OpenPictures, AnExistingSidecarIsReplacedOnlyAfterAQuestion)
{
    text("vue.dat", "old");
    OpenPicture& picture = *openpic("", -1);
    answers = {Answer::no};
    savepic(picture, path("vue.bmp"));
    EXPECT_THAT(questions, ElementsAre("Écraser " + path("vue.dat") + "?"));
    EXPECT_EQ(readfile(path("vue.dat")), "old");
    answers = {Answer::yes};
    savepic(picture, path("vue.bmp"));
    EXPECT_NE(readfile(path("vue.dat")), "old");
}

TEST_F(OpenPictures, AnotherFormatGetsASidecarOnlyAfterAQuestion)
{
    OpenPicture& picture = *openpic(raster("a.jpg", 8, 8), 0);
    const auto before = readfile(path("a.jpg"));
    answers = {Answer::no};
    savepic(picture, path("a.jpg"));
    EXPECT_THAT(questions, ElementsAre(path("a.jpg") + " n'est pas en format BMP\n"
                                                       "Sauvegarder quand même le fichier .DAT?"));
    EXPECT_FALSE(findfile(path("a.dat")));
    answers = {Answer::yes};
    savepic(picture, path("a.jpg"));
    EXPECT_TRUE(findfile(path("a.dat")));
    EXPECT_EQ(readfile(path("a.jpg")), before);
}

TEST_F(OpenPictures, SavingWhereNothingCanBeWrittenIsTold)
{
    OpenPicture& picture = *openpic("", -1);
    EXPECT_FALSE(savepic(picture, path("no/such/folder/vue.bmp")));
    EXPECT_EQ(label2, "vue.bmp impossible à enregistrer");
    std::filesystem::create_directory(path("autre.dat")); // a sidecar cannot be written here
    EXPECT_FALSE(savepic(picture, path("autre.bmp")));
    EXPECT_EQ(label2, "autre.dat impossible à enregistrer");
    picture.data.Filename = "Image1.bmp";
    EXPECT_EQ(picture.data.Filename, "Image1.bmp");
}

TEST_F(OpenPictures, APairIsWrittenAsAWholeOrNotAtAll)
{
    const OpenPicture& picture = *openpic("", -1);
    std::filesystem::create_directory(path("vue.bmp")); // a raster cannot be written here
    text("vue.dat", "old");
    std::string why;
    EXPECT_FALSE(writepicture(path("vue.bmp"), surfaceimage(picture.surface), picture.data, &why));
    EXPECT_FALSE(why.empty());
    EXPECT_EQ(readfile(path("vue.dat")), "old");
}

TEST_F(OpenPictures, ClosingTakesAPictureOffTheList)
{
    OpenPicture* first = openpic("", -1);
    OpenPicture* second = openpic("", -1);
    closepicture(*second);
    EXPECT_EQ(currentpic, nullptr);
    EXPECT_THAT(picturenames(), ElementsAre("image1.bmp"));
    currentpic = first;
    EXPECT_EQ(openpictures.size(), 1U);
}

TEST_F(OpenPictures, TheLogicReachesThePicturesThroughItsHooks)
{
    hooks.openpicture(raster("a.bmp", 30, 20), 2);
    hooks.openpicture(path("gone.bmp"), 2);
    EXPECT_THAT(hooks.openpictures(), ElementsAre(path("a.bmp")));
    const std::array<float, 4> lon{1, 3, 3, 1};
    const std::array<float, 4> lat{46, 46, 45, 45};
    hooks.placepicture(path("A.bmp"), lon.data(), lat.data());
    EXPECT_EQ(openpictures.front()->data.lon, lon);
    mapgrid.record.maxx = 900;
    hooks.mapchanged();
    EXPECT_EQ(colours.levels[10], 900);
}
