#include "app/windows/printing.h"

#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "base/hooks.h"
#include "pictures/paint/openpictures.h"
#include "pictures/printlayout.h"

#include <QPageLayout>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>

void printpage(QPrinter& printer, const OpenPicture& picture)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return;
    const int width = picture.surface.width();
    const int height = picture.surface.height();
    const QSizeF page = printer.pageRect(QPrinter::DevicePixel).size();
    const PrintSize size = printsize(width, height, page.width(), page.height());
    painter.setClipRect(QRectF(QPointF(0, 0), page));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(size.width / width, size.height / height);
    paintsurface(picture.surface, painter);
}

void previewpicture(const OpenPicture& picture)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(printslandscape(picture.surface.width(), picture.surface.height())
                                   ? QPageLayout::Landscape
                                   : QPageLayout::Portrait);
    hooks.pumpevents();
    QPrintPreviewDialog preview(&printer, mainwindow);
    preview.setObjectName(QStringLiteral("printpreview"));
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&picture](QPrinter* to) { printpage(*to, picture); });
    preview.exec();
}

void printactive()
{
    if (const OpenPicture* picture = mainwindow->activepicture())
        previewpicture(*picture);
}
