#include "pictures/windows/picturewindowtest.h"

#include <QScrollBar>
#include <QWheelEvent>

namespace
{

class FrmPic : public PictureWindowTest
{
protected:
    QScrollBar* bar(const char* name) const
    {
        return window->findChild<QScrollBar*>(QString::fromLatin1(name));
    }

    /// Another size of the window; its bars come and go with the events that follow.
    void resize(int width, int height) const
    {
        window->resize(width, height);
        QApplication::processEvents();
    }

    /// A selection, and a right press.
    void rightpress(const QPoint& at, Qt::KeyboardModifiers keys = {}) const
    {
        QTest::mouseClick(surface, Qt::RightButton, keys, at);
    }

    const std::string zoomquestion = "Créer une image \"zoom\" à partir de la sélection?";
};

} // namespace

TEST_F(FrmPic, ShowsThePicturePixelByPixelUnderItsCaption)
{
    EXPECT_EQ(window->windowTitle(), QStringLiteral("..\\Image1.bmp"));
    EXPECT_EQ(surface->size(), QSize(301, 201));
    EXPECT_EQ(surface->pos(), QPoint(400 / 2 - 301 / 2, 300 / 2 - 201 / 2));
    const QImage shown = surface->grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(shown, surfaceimage(picture->surface));
}

TEST_F(FrmPic, APictureHasOneWindow)
{
    drawmap(picture, true);
    savepic(*picture, path("vue.bmp"));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("..\\vue.bmp"));
    openpic(path("vue.bmp"), 0);
    EXPECT_EQ(windowsmade, 1);
    EXPECT_EQ(windowof(*picture), window);
}

TEST_F(FrmPic, APictureWiderThanTheWindowOpensAtItsMiddle)
{
    makemap(1000, 800);
    const OpenPicture* large = drawmap(openpic("", -1), true);
    window = windowof(*large);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    const QScrollBar* across = bar("acrossbar");
    const QScrollBar* down = bar("downbar");
    ASSERT_TRUE(across->isVisible());
    ASSERT_TRUE(down->isVisible());
    EXPECT_EQ(across->maximum(), 1000 - (400 - down->width()));
    EXPECT_EQ(across->value(), across->maximum() / 2);
    EXPECT_EQ(down->value(), down->maximum() / 2);
    EXPECT_EQ(across->pageStep(), 10);
    const auto* large1 = window->findChild<QWidget*>(QStringLiteral("surface"));
    EXPECT_EQ(large1->pos(), QPoint(-across->value(), -down->value()));
    EXPECT_TRUE(window->findChild<QWidget*>(QStringLiteral("grip"))->isVisible());
    bar("acrossbar")->setValue(7);
    EXPECT_EQ(large1->x(), -7);
    resize(1100, 900);
    EXPECT_FALSE(across->isVisible());
    EXPECT_EQ(large1->pos(), QPoint((1100 - 1000) / 2, (900 - 800) / 2));
    EXPECT_FALSE(window->findChild<QWidget*>(QStringLiteral("grip"))->isVisible());
}

TEST_F(FrmPic, TheWheelMovesALargePicture)
{
    resize(150, 120);
    const auto turn = [this](const QPoint& angle, Qt::KeyboardModifiers keys) {
        QWidget* view = window->viewport();
        QWheelEvent event({20, 20}, view->mapToGlobal(QPointF(20, 20)), {}, angle, {}, keys, {},
                          false);
        QApplication::sendEvent(view, &event);
    };
    bar("downbar")->setValue(0);
    bar("acrossbar")->setValue(0);
    turn({0, -120}, {});
    EXPECT_EQ(bar("downbar")->value(), 60);
    turn({0, 60}, {});
    EXPECT_EQ(bar("downbar")->value(), 30);
    turn({0, -120}, Qt::ShiftModifier);
    turn({-40, 0}, {});
    EXPECT_EQ(bar("acrossbar")->value(), 80);
    EXPECT_EQ(bar("downbar")->value(), 30);
}

TEST_F(FrmPic, TheGripResizesTheWindow)
{
    resize(150, 120);
    auto* grip = window->findChild<QWidget*>(QStringLiteral("grip"));
    ASSERT_TRUE(grip->isVisible());
    const QPoint from = grip->mapToGlobal(QPoint(3, 3));
    const auto send = [grip](QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons) {
        QMouseEvent event(type, grip->mapFromGlobal(QPointF(at)), QPointF(at), Qt::LeftButton,
                          buttons, {});
        QApplication::sendEvent(grip, &event);
    };
    send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    send(QEvent::MouseMove, from + QPoint(40, 20), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, from + QPoint(40, 20), Qt::NoButton);
    EXPECT_EQ(window->size(), QSize(190, 140));
}

TEST_F(FrmPic, OneBarCanForceTheOther)
{
    resize(400, 300);
    const int bar1 = bar("downbar")->sizeHint().width();
    resize(301 + bar1 - 1, 200); // wide enough, but for the bar that the height needs
    EXPECT_TRUE(bar("downbar")->isVisible());
    EXPECT_TRUE(bar("acrossbar")->isVisible());
    EXPECT_EQ(bar("acrossbar")->maximum(), 1);
    resize(301 + bar1, 200);
    EXPECT_TRUE(bar("downbar")->isVisible());
    EXPECT_FALSE(bar("acrossbar")->isVisible());
    EXPECT_EQ(bar("downbar")->maximum(), 1);
    EXPECT_EQ(bar("downbar")->height(), 200) << "without a grip the bar has the whole edge";
    resize(301, 201);
    EXPECT_FALSE(bar("downbar")->isVisible());
    EXPECT_FALSE(bar("acrossbar")->isVisible());
    EXPECT_EQ(surface->pos(), QPoint(0, 0));
}

TEST_F(FrmPic, AWideSurfaceScrollsAcrossAndIsCentredUpward)
{
    resize(200, 300);
    EXPECT_TRUE(bar("acrossbar")->isVisible());
    EXPECT_FALSE(bar("downbar")->isVisible());
    EXPECT_FALSE(window->findChild<QWidget*>(QStringLiteral("grip"))->isVisible());
    const int room = 300 - bar("acrossbar")->height();
    EXPECT_EQ(surface->y(), room / 2 - 201 / 2);
    EXPECT_EQ(bar("acrossbar")->width(), 200);
    EXPECT_EQ(bar("acrossbar")->pageStep(), 10);
}

TEST_F(FrmPic, APressMovesTheCursor)
{
    QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(50, 50));
    EXPECT_FLOAT_EQ(cursor.lon, 7.25F);
    EXPECT_FLOAT_EQ(cursor.lat, 44.75F);
    EXPECT_TRUE(picture->marks.Line1);
    const QImage shown = surface->grab().toImage();
    const QImage plain = surfaceimage(picture->surface);
    EXPECT_NE(shown.pixel(50, 5), plain.pixel(50, 5));
    EXPECT_NE(shown.pixel(5, 50), plain.pixel(5, 50));
    EXPECT_EQ(shown.pixel(5, 5), plain.pixel(5, 5));
}

TEST_F(FrmPic, ArrowKeysMoveTheCursorByOnePixelAndStopAtTheEdge)
{
    QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(1, 50));
    QTest::keyClick(surface, Qt::Key_Down);
    QTest::keyClick(surface, Qt::Key_Down);
    QTest::keyClick(surface, Qt::Key_Up);
    QTest::keyClick(surface, Qt::Key_Right);
    EXPECT_EQ(picture->marks.vertical.x1(), 2);
    EXPECT_EQ(picture->marks.horizontal.y1(), 51);
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(surface, Qt::Key_Left);
    EXPECT_EQ(picture->marks.vertical.x1(), 0);
}

TEST_F(FrmPic, EscapeHidesTheMarksAndStopsTheWork)
{
    QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(50, 50));
    opbusy = 1;
    QTest::keyClick(surface, Qt::Key_Escape);
    EXPECT_EQ(opbusy, 0);
    EXPECT_FALSE(picture->marks.Line1);
    EXPECT_FALSE(picture->marks.Line2);
}

TEST_F(FrmPic, DraggingSelects)
{
    drag(QPoint(10, 20), QPoint(60, 90));
    EXPECT_TRUE(picture->marks.Shape2);
    EXPECT_EQ(picture->marks.selection, QRect(10, 20, 50, 70));
    EXPECT_EQ(label2, " Sélection L=50 H=70");
    drag(QPoint(100, 100), QPoint(80, 60));
    EXPECT_EQ(picture->marks.selection, QRect(80, 60, 20, 40));
    drag(QPoint(200, 150), QPoint(900, 900));
    EXPECT_EQ(picture->marks.selection, QRect(200, 150, 101, 51));
}

TEST_F(FrmPic, SmallDragsAreNoSelection)
{
    drag(QPoint(10, 10), QPoint(60, 14)); // 4 tall
    EXPECT_FALSE(picture->marks.Shape2);
    drag(QPoint(10, 10), QPoint(60, 15)); // 5 tall
    EXPECT_FALSE(picture->marks.Shape2);
    drag(QPoint(10, 10), QPoint(60, 16)); // 6 tall
    EXPECT_TRUE(picture->marks.Shape2);
    drag(QPoint(10, 10), QPoint(13, 60)); // 3 wide
    EXPECT_FALSE(picture->marks.Shape2);
    drag(QPoint(10, 10), QPoint(14, 60)); // 4 wide
    EXPECT_TRUE(picture->marks.Shape2);
}

TEST_F(FrmPic, TheStatusLineFollowsTheMouseWhenItIsTo)
{
    label2 = "before";
    move(QPoint(150, 100));
    EXPECT_EQ(label2, "before");
    session.mousecoordinates = true;
    move(QPoint(150, 100));
    EXPECT_EQ(label2, "007°45'00\"E  44°30'00\"N");
}

TEST_F(FrmPic, TheStatusLineTellsTheSourceOfAnotherPictureOnly)
{
    const auto focus = [](QWidget* view, bool on) {
        QFocusEvent event(on ? QEvent::FocusIn : QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(view, &event);
    };
    const OpenPicture* other = drawmap(openpic("", -1), true);
    auto* second = windowof(*other)->findChild<QWidget*>(QStringLiteral("surface"));
    focus(second, true);
    label2 = "vue.dat a été enregistrée";
    focus(second, false); // a box that closes again
    focus(second, true);
    EXPECT_EQ(label2, "vue.dat a été enregistrée");
    focus(second, false);
    focus(surface, true);
    EXPECT_EQ(label2, picture->data.source);
}

TEST_F(FrmPic, ClosingTheWindowClosesThePicture)
{
    window->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(openpictures.empty());
    EXPECT_EQ(currentpic, nullptr);
    EXPECT_TRUE(window.isNull());
}

TEST_F(FrmPic, ClosingThePictureClosesTheWindow)
{
    closepicture(*picture);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
}

TEST_F(FrmPic, TheFirstCloseOnlyStopsTheWork)
{
    opbusy = 1;
    EXPECT_FALSE(window->close());
    EXPECT_EQ(opbusy, 0);
    EXPECT_EQ(openpictures.size(), 1U);
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(openpictures.empty());
}

TEST_F(FrmPic, ThePictureGrowsTileByTileWhileItIsDrawn)
{
    makemap(600, 300);
    std::vector<std::size_t> finished;
    hooks.pumpevents = [&] {
        finished.push_back(picture->surface.over.size());
        QApplication::processEvents();
    };
    drawmap(picture, true);
    EXPECT_THAT(finished, testing::Contains(1U));
    EXPECT_THAT(finished, testing::Contains(6U));
    EXPECT_TRUE(surface->isEnabled());
    EXPECT_EQ(surface->size(), QSize(600, 300));
}

TEST_F(FrmPic, StationsAppearInTheWindow)
{
    station(1, 7.75F, 44.5F, "Relais");
    drawstations(0, false);
    EXPECT_EQ(surface->grab().toImage().convertToFormat(QImage::Format_RGB32),
              surfaceimage(picture->surface));
    erasenets();
    EXPECT_EQ(surface->grab().toImage().convertToFormat(QImage::Format_RGB32),
              picture->surface.kept);
}

TEST_F(FrmPic, ARightPressOnTheSelectionOffersToMagnifyIt)
{
    drag(QPoint(10, 20), QPoint(60, 90));
    answers = {Answer::yes};
    rightpress(QPoint(60, 90)); // the edge belongs to it
    EXPECT_THAT(questions, testing::ElementsAre(zoomquestion));
    ASSERT_EQ(openpictures.size(), 2U);
    const Picture& zoom = openpictures[1]->data;
    EXPECT_EQ(zoom.source, "Zoom de " + picture->data.source);
    EXPECT_FLOAT_EQ(zoom.lon[0], 7.05F);
    EXPECT_FLOAT_EQ(zoom.lon[2], 7 + 59 * 0.005F);
    EXPECT_FALSE(picture->marks.Shape2);
    EXPECT_FLOAT_EQ(cursor.lon, 7.3F); // the press went on as any other
    EXPECT_TRUE(openpictures[1]->surface.width() > 100);
}

TEST_F(FrmPic, WithoutAgreementTheSelectionStays)
{
    drag(QPoint(10, 20), QPoint(60, 90));
    const float lon = cursor.lon;
    answers = {Answer::no};
    rightpress(QPoint(30, 40));
    EXPECT_EQ(openpictures.size(), 1U);
    EXPECT_TRUE(picture->marks.Shape2);
    EXPECT_EQ(cursor.lon, lon);
}

TEST_F(FrmPic, ARightPressBesideTheSelectionDoesNothing)
{
    drag(QPoint(10, 20), QPoint(60, 90));
    rightpress(QPoint(61, 40));
    EXPECT_TRUE(picture->marks.Shape2);
    EXPECT_TRUE(questions.empty());
}

TEST_F(FrmPic, WithShiftARightPressExtendsTheSelection)
{
    drag(QPoint(10, 20), QPoint(60, 90));
    rightpress(QPoint(110, 100), Qt::ShiftModifier);
    EXPECT_EQ(picture->marks.selection, QRect(10, 20, 100, 80));
    EXPECT_EQ(label2, " Sélection L=100 H=80");
}

TEST_F(FrmPic, ARightPressWithoutASelectionMovesTheCursor)
{
    rightpress(QPoint(50, 50));
    EXPECT_FLOAT_EQ(cursor.lon, 7.25F);
}

TEST_F(FrmPic, ArrowKeysWalkTheMapOn3DPictures)
{
    movecursor(7.75F, 44.5F);
    picture->data.Pictype = pictype::view3d;
    QTest::keyClick(surface, Qt::Key_Right);
    EXPECT_EQ(cursor.x, 151);
    QTest::keyClick(surface, Qt::Key_Up);
    EXPECT_EQ(cursor.y, 101);
    QTest::keyClick(surface, Qt::Key_Left);
    QTest::keyClick(surface, Qt::Key_Down);
    EXPECT_EQ(cursor.x, 150);
    EXPECT_EQ(cursor.y, 100);
}

TEST_F(FrmPic, KeysAndPressesMoveTheCursorOfStereoPictures)
{
    picture->data.source = "Stereo";
    stereopos = {};
    QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(50, 40));
    EXPECT_EQ(picture->marks.Shape1[0], QRect(46, 36, 9, 9));
    EXPECT_FALSE(picture->marks.Line1);
    QTest::keyClick(surface, Qt::Key_Plus, Qt::KeypadModifier);
    QTest::keyClick(surface, Qt::Key_Plus, Qt::KeypadModifier);
    QTest::keyClick(surface, Qt::Key_Minus, Qt::KeypadModifier);
    EXPECT_EQ(stereopos.d, 1);
    EXPECT_EQ(picture->marks.Shape1[0].left(), 47);
    EXPECT_EQ(picture->marks.Shape1[1].left(), 46);
    QTest::keyClick(surface, Qt::Key_Right); // the hairs lie there, hidden
    EXPECT_EQ(stereopos.x, 51);
    QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(50, 40));
    movecursor(7.5F, 44.5F);
    QTest::keyClick(surface, Qt::Key_Space);
    EXPECT_EQ(stereopos.x, 100);
    EXPECT_EQ(stereopos.y, 100);
    opbusy = 1;
    QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(50, 40));
    EXPECT_EQ(stereopos.x, 100);
}
