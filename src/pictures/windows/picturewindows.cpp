// The windows of the open pictures: one for each, made when it is first shown.

#include "pictures/windows/frmPic.h"

#include <QMdiSubWindow>

#include <map>

namespace
{

std::map<const OpenPicture*, frmPic*>& windows()
{
    static std::map<const OpenPicture*, frmPic*> shown;
    return shown;
}

void showwindow(OpenPicture& picture, const std::function<void(QWidget*)>& addpicture)
{
    frmPic* window = windowof(picture);
    if (window == nullptr) {
        window = new frmPic(picture);
        windows()[&picture] = window;
        addpicture(window);
    }
    window->refresh({});
    window->fitpic();
    window->show();
    window->showmiddle();
    window->setFocus();
}

/// Closes the window of a picture that leaves the list by code; a window that is closing itself
/// shows nothing any more.
void closewindow(OpenPicture& picture)
{
    frmPic* window = windowof(picture);
    windows().erase(&picture);
    if (window == nullptr || window->picture() == nullptr)
        return;
    window->release();
    if (auto* inmain = qobject_cast<QMdiSubWindow*>(window->parentWidget()))
        inmain->close();
    else
        window->close();
}

} // namespace

frmPic* windowof(const OpenPicture& picture)
{
    const auto found = windows().find(&picture);
    return found == windows().end() ? nullptr : found->second;
}

void connectpicturewindows(const std::function<void(QWidget*)>& addpicture)
{
    picturehooks.showpicture = [addpicture](OpenPicture& picture) {
        showwindow(picture, addpicture);
    };
    picturehooks.fitpic = [](OpenPicture& picture) {
        if (frmPic* window = windowof(picture))
            window->fitpic();
    };
    picturehooks.picturechanged = [](OpenPicture& picture, const QRect& part) {
        if (frmPic* window = windowof(picture))
            window->refresh(part);
    };
    picturehooks.closewindow = closewindow;
}
