#include "coverage/choice.h"
#include "coverage/windows/frmVisual.h"
#include "coverage/windows/sweepfields.h"
#include "pictures/paint/picturetest.h"

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QTest>

#include <fstream>
#include <memory>

namespace
{
class VisualDialog : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        coveragechoice = {};
        selection = {};
        open();
    }
    void open() { dialog = std::make_unique<frmVisual>(); }
    template <typename T> T& get(const char* name)
    {
        auto* found = dialog->findChild<T*>(QString::fromLatin1(name));
        if (found == nullptr)
            throw std::runtime_error(name);
        return *found;
    }
    std::unique_ptr<frmVisual> dialog;
};
} // namespace

TEST_F(VisualDialog, ShowsTheParameters)
{
    EXPECT_EQ(dialog->windowTitle().toStdString(), "Couverture visuelle");
    EXPECT_EQ(get<QComboBox>("unitlist").currentIndex(), 0);
    EXPECT_EQ(get<NumberField>("sensorh").text().toStdString(), "2");
    EXPECT_TRUE(get<QRadioButton>("follow").isChecked());
}

TEST_F(VisualDialog, TargetCaptionFollowsTheMode)
{
    auto& caption = get<QLabel>("targetcaption");
    EXPECT_EQ(caption.text().toStdString(), "Hauteur de la cible(m)\npar rapport au sol");
    get<QRadioButton>("fixed").click();
    EXPECT_EQ(caption.text().toStdString(), "Altitude de la cible(m)\nau dessus de la mer");
}

TEST_F(VisualDialog, RadarNeedsAFile)
{
    EXPECT_FALSE(get<QWidget>("radaron").isEnabled());
    EXPECT_FALSE(get<QWidget>("radar3d").isEnabled());
    std::ofstream(path("nord.rad")) << "1,1,0,5\n";
    open();
    EXPECT_TRUE(get<QWidget>("radaron").isEnabled());
    EXPECT_TRUE(get<QWidget>("radar3d").isEnabled());
    EXPECT_EQ(dialog->radarfile(), "");
    get<QCheckBox>("radaron").click();
    EXPECT_EQ(dialog->radarfile(), "nord.rad");
}

TEST_F(VisualDialog, RadarFileIsStoredOnlyWhenItIsUsed)
{
    std::ofstream(path("nord.rad")) << "1,1,0,5\n";
    network.coverage.antfile.assign("yagi3.ant");
    open();
    get<QAbstractButton>("yellow").click();
    EXPECT_EQ(network.coverage.antfile.text(), "yagi3.ant") << "the antenna's pattern stays";
    open();
    get<QCheckBox>("radaron").click();
    get<QAbstractButton>("yellow").click();
    EXPECT_EQ(network.coverage.antfile.text(), "nord.rad");
}

TEST_F(VisualDialog, ColourButtonReadsTheFieldsAndCloses)
{
    get<QComboBox>("unitlist").setCurrentIndex(6);
    get<NumberField>("sensorh").setText(QStringLiteral("100000"));
    get<NumberField>("targeth").setText(QStringLiteral("0"));
    get<NumberField>("azmin").setText(QStringLiteral("300"));
    get<NumberField>("azmax").setText(QStringLiteral("200"));
    get<QRadioButton>("fixed").click();
    get<QAbstractButton>("magenta").click();
    EXPECT_EQ(dialog->run(), frmVisual::Run::paint);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(selection.curunit, 7);
    EXPECT_EQ(selection.visualmode, 0);
    EXPECT_EQ(network.coverage.sensorheight, 9999);
    EXPECT_EQ(network.coverage.targetheight, 0.1F);
    EXPECT_EQ(network.coverage.azmin, 300);
    EXPECT_EQ(network.coverage.azmax, 300);
    EXPECT_EQ(network.coverage.visualcolour, 0xFF00FF);
}

TEST_F(VisualDialog, EscapeReadsNothing)
{
    get<NumberField>("sensorh").setText(QStringLiteral("50"));
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_EQ(dialog->run(), frmVisual::Run::none);
    EXPECT_EQ(network.coverage.sensorheight, 2);
}
