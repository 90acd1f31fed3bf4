#include "base/hooks.h"
#include "base/paths.h"
#include "reports/paint/reportpaint.h"
#include "reports/windows/frmReport.h"
#include "support/tempfolder.h"

#include <QComboBox>
#include <QFontInfo>
#include <QPdfWriter>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gmock/gmock.h>

namespace
{
struct ReportDialog : testing::Test {
    void SetUp() override
    {
        network = defaulttables();
        selection = {};
        selection.curnet = 2;
        mapgrid = {};
        allocatemap(mapgrid, 60, 40);
        mapgrid.record.mapsize = 40;
        mapframe(mapgrid);
        for (const std::size_t u : {1, 2, 3}) {
            network.units[u].lon = -73 + 0.05F * static_cast<float>(u);
            network.units[u].lat = 45;
            network.nets[2].member[u] = memberbit;
        }
        network.nets[2].topology = 0; // not active: it is evaluated all the same
        setprogramfolder(folder.path());
    }
    void TearDown() override
    {
        resethooks();
        setprogramfolder("");
    }
    static const ReportLines& shown(const frmReport& dialog)
    {
        return dialog.findChild<ReportArea*>(QStringLiteral("area"))->report();
    }
    TempFolder folder;
};
} // namespace

TEST_F(ReportDialog, OpensOnTheCurrentNetWithRetransmissions)
{
    const frmReport dialog;
    EXPECT_EQ(dialog.windowTitle().toStdString(), "Rapport de performance");
    EXPECT_EQ(dialog.scale(), ReportScale::retransmissions);
    EXPECT_EQ(dialog.findChild<QComboBox*>(QStringLiteral("netlist"))->count(), 25);
    const std::string text = reporttext(shown(dialog));
    EXPECT_THAT(text, testing::HasSubstr("Réseau 02"));
    EXPECT_THAT(text, testing::HasSubstr("Qualité = 50 - nombre de retransmissions"));
    EXPECT_THAT(text, testing::HasSubstr("Station 02                 02 50"));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("Polarisation")));
}

TEST_F(ReportDialog, RedrawsForAnotherNetAndScale)
{
    frmReport dialog;
    dialog.findChild<QRadioButton*>(QStringLiteral("scale2"))->click();
    EXPECT_THAT(reporttext(shown(dialog)), testing::HasSubstr("Qualité = S-units"));
    dialog.findChild<QComboBox*>(QStringLiteral("netlist"))->setCurrentIndex(0);
    EXPECT_EQ(reporttext(shown(dialog)), "") << "net 1 has no members";
}

TEST_F(ReportDialog, FileHoldsAllNets)
{
    std::string opened;
    hooks.viewtext = [&](const std::string& path) { opened = path; };
    frmReport dialog;
    dialog.findChild<QPushButton*>(QStringLiteral("file"))->click();
    EXPECT_EQ(opened, folder.path("report.txt"));
    EXPECT_THAT(folder.content("report.txt"), testing::HasSubstr("Syst\xE8mes"));
}

TEST_F(ReportDialog, PrintsOnPagesThatHoldTheWidestLine)
{
    const frmReport dialog;
    QPdfWriter pdf(QString::fromStdString(folder.path("r.pdf")));
    pdf.setPageSize(QPageSize(QPageSize::A4));
    dialog.print(pdf);
    EXPECT_EQ(pdf.pageLayout().orientation(), QPageLayout::Landscape);
    EXPECT_TRUE(folder.content("r.pdf").starts_with("%PDF"));
}

TEST_F(ReportDialog, NarrowReportsArePrintedUpright)
{
    QPdfWriter pdf(QString::fromStdString(folder.path("n.pdf")));
    pdf.setPageSize(QPageSize(QPageSize::A4));
    ReportWriter out;
    for (int i = 0; i < 200; ++i)
        out.line("Une ligne");
    printreport(pdf, [&out](int columns) {
        EXPECT_EQ(columns, 0);
        return out.lines();
    });
    EXPECT_EQ(pdf.pageLayout().orientation(), QPageLayout::Portrait);
}

TEST_F(ReportDialog, TooBroadReportsAreLaidOutForABroadPage)
{
    QPdfWriter pdf(QString::fromStdString(folder.path("b.pdf")));
    pdf.setPageSize(QPageSize(QPageSize::A4));
    std::vector<int> asked;
    printreport(pdf, [&asked](int columns) {
        asked.push_back(columns);
        ReportWriter out;
        out.line(std::string(columns == 0 ? 200 : static_cast<std::size_t>(columns), 'x'));
        return out.lines();
    });
    ASSERT_EQ(asked.size(), 2U);
    EXPECT_EQ(pdf.pageLayout().orientation(), QPageLayout::Landscape);
    // 267 mm at 12 points: a tenth of an inch for each character
    EXPECT_NEAR(asked[1], 105, 1);
}

TEST_F(ReportDialog, ReportFontHasOnePitch)
{
    const QFontMetricsF metrics(reportfont(12));
    EXPECT_NEAR(metrics.horizontalAdvance(QStringLiteral("iiii")),
                metrics.horizontalAdvance(QStringLiteral("MMMM")), 0.01);
}
