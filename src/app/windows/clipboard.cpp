#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "pictures/paint/copypicture.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>

#include <utility>

void copytoclipboard()
{
    QApplication::clipboard()->clear();
    OpenPicture* picture = mainwindow->activepicture();
    if (picture == nullptr)
        return;
    CopiedPicture copied = copypicture(*picture);
    auto* content = new QMimeData; // the clipboard's own from now on
    content->setImageData(std::move(copied.image));
    content->setText(QString::fromStdString(copied.text));
    QApplication::clipboard()->setMimeData(content);
}

namespace
{

struct Pasted {
    QImage image; ///< null: the clipboard has none
    std::string text;
};

Pasted clipboardcontent()
{
    const QMimeData* content = QApplication::clipboard()->mimeData();
    if (content == nullptr || !content->hasImage())
        return {};
    return {qvariant_cast<QImage>(content->imageData()), content->text().toStdString()};
}

} // namespace

void paste()
{
    OpenPicture* picture = mainwindow->activepicture();
    if (picture == nullptr)
        return;
    const Pasted pasted = clipboardcontent();
    if (!pasted.image.isNull())
        pastepic(*picture, pasted.image, pasted.text);
}

void pasteasnew()
{
    const Pasted pasted = clipboardcontent();
    if (pasted.image.isNull())
        return;
    OpenPicture& picture = *openpic("", pictype::fourcorners);
    pastepic(picture, pasted.image, pasted.text);
    picturehooks.showpicture(picture);
}
