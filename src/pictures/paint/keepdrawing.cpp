#include "pictures/paint/keepdrawing.h"

#include "base/hooks.h"

bool keepdrawing(OpenPicture& picture, const std::string& what)
{
    const Answer answer = hooks.askuser(
        {"Garder " + what + "dans l'image?", Question::Buttons::yesno, Question::Icon::question});
    if (answer != Answer::yes)
        return false;
    keep(picture.surface);
    picturehooks.picturechanged(picture, {});
    return true;
}
