// The texts beside a raster: both forms of them.

#include "pictures/sidecar.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    Picture older;
    parseadr(text, older);
    Picture picture;
    parsesidecar(text, picture);
    // What was read is written, and that text reads back as the same picture.
    const std::string written = sidecartext(picture);
    Picture again;
    parsesidecar(written, again);
    if (sidecartext(again) != written)
        std::abort();
    return 0;
}
