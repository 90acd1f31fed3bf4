#include "app/windows/frmMain.h"
#include "app/windows/printing.h"
#include "app/windows/shelltest.h"
#include "pictures/paint/openpictures.h"
#include "pictures/printlayout.h"

#include <QApplication>
#include <QFile>
#include <QPageSize>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

class Printing : public ShellTest
{
protected:
    void SetUp() override { start(); }

    OpenPicture& picture(int width, int height)
    {
        addpicture("a.bmp");
        OpenPicture& made = *openpictures.back();
        resizepicture(made, width, height);
        made.surface.kept.fill(Qt::darkGreen);
        return made;
    }
    /// Prints a picture into a file; the page's size as the file says, points.
    QSizeF pagesize(const OpenPicture& shown, QPageLayout::Orientation orientation)
    {
        const QString file = folder.filePath(QStringLiteral("page.pdf"));
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageOrientation(orientation);
        printpage(printer, shown);
        QFile written(file);
        EXPECT_TRUE(written.open(QIODevice::ReadOnly));
        const QString content = QString::fromLatin1(written.readAll());
        EXPECT_TRUE(content.startsWith(QStringLiteral("%PDF-")));
        const QRegularExpression box(
            QStringLiteral("/MediaBox *\\[ *0 +0 +([0-9.]+) +([0-9.]+) *\\]"));
        const auto found = box.globalMatch(content);
        EXPECT_TRUE(found.hasNext());
        const auto sizes = found.peekNext();
        return {sizes.captured(1).toDouble(), sizes.captured(2).toDouble()};
    }
};

TEST_F(Printing, APageIsAsLargeAsThePaper)
{
    const OpenPicture& wide = picture(300, 200);
    const QSizeF landscape = pagesize(wide, QPageLayout::Landscape);
    EXPECT_NEAR(landscape.width(), 842, 1);
    EXPECT_NEAR(landscape.height(), 595, 1);
    const QSizeF portrait = pagesize(wide, QPageLayout::Portrait);
    EXPECT_NEAR(portrait.width(), 595, 1);
    EXPECT_NEAR(portrait.height(), 842, 1);
}

TEST_F(Printing, TheMenuShowsOnePageTurnedAsThePictureIs)
{
    for (const QSize& size : {QSize(300, 200), QSize(200, 300)}) {
        picture(size.width(), size.height());
        bool seen = false;
        QTimer driver; // events are handled before the dialog comes, too
        QObject::connect(&driver, &QTimer::timeout, window.get(), [&] {
            auto* dialog = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            driver.stop();
            auto* pages = dialog->findChild<QPrintPreviewWidget*>();
            ASSERT_NE(pages, nullptr);
            EXPECT_TRUE(QTest::qWaitFor([&] { return pages->pageCount() == 1; }));
            EXPECT_EQ(pages->orientation() == QPageLayout::Landscape, size.width() > size.height());
            seen = true;
            dialog->close();
        });
        driver.start(10);
        choose("mnuFilePrint");
        EXPECT_TRUE(seen);
    }
}

TEST_F(Printing, APrinterThatCannotBeOpenedIsPassedOver)
{
    const OpenPicture& shown = picture(300, 200);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("no/such/folder/page.pdf")));
    printpage(printer, shown);
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("no"))));
}
