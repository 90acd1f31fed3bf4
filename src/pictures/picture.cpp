#include "pictures/picture.h"

#include "base/numbers.h"

bool Picture::isstereo() const
{
    constexpr std::string_view mark = "stereo";
    return lowercase(std::string_view(source).substr(0, mark.size())) == mark;
}
