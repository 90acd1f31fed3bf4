#include "gis/module/zip.h"

#include "gis/module/session.h"

#include <cpl_vsi.h>

static bool writeentry(const std::string& archive, const ZipEntry& entry)
{
    const std::string name = "/vsizip/" + archive + "/" + entry.name;
    VSILFILE* const file = VSIFOpenL(name.c_str(), "wb");
    if (file == nullptr)
        return false;
    const bool written = entry.content.empty() ||
                         VSIFWriteL(entry.content.data(), entry.content.size(), 1, file) == 1;
    return VSIFCloseL(file) == 0 && written;
}

std::optional<std::string> zipbytes(const std::vector<ZipEntry>& entries, std::string& why)
{
    const GdalSession session;
    const MemoryFile archive(".zip");
    // Held open, the archive takes one file after the other and is completed at the end.
    const std::string root = "/vsizip/" + archive.name();
    VSILFILE* const whole = VSIFOpenL(root.c_str(), "wb");
    bool written = whole != nullptr;
    for (const ZipEntry& entry : entries)
        written = written && writeentry(archive.name(), entry);
    if (whole != nullptr)
        written = VSIFCloseL(whole) == 0 && written;
    if (!written) {
        why = lastremark("the archive cannot be made");
        return {};
    }
    return archive.content();
}
