// The text beside an image on the clipboard, which any program may have put there.

#include "pictures/copytext.h"

#include "pictures/georeference.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Picture picture;
    picture.scalewidth = picture.scaleheight = 100;
    parsecopytext(std::string_view(reinterpret_cast<const char*>(data), size), picture);
    if (picture.Pictype < 0 || picture.Pictype > 20)
        std::abort();
    float x = 0;
    float y = 0;
    ll2pic(picture, 5, 45, x, y);
    for (std::size_t corner = 0; corner < picture.lon.size(); ++corner)
        if (!std::isfinite(picture.lon[corner]) || !std::isfinite(picture.lat[corner]))
            std::abort();
    // A text of our own says again what was read.
    const std::string written = copytext(picture);
    Picture again;
    parsecopytext(written, again);
    if (again.Pictype != picture.Pictype)
        std::abort();
    return 0;
}
