#include "cli/pictureinfo.h"

#include "base/paths.h"
#include "cli/failure.h"
#include "cli/output.h"
#include "pictures/paint/picturefile.h"

#include <QImageReader>

#include <fmt/format.h>

std::string pictureinfo(const std::string& path)
{
    const auto found = findfile(unquoted(path));
    if (!found)
        throw Failure(path, "no such file");
    QImageReader reader(QString::fromStdString(*found));
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    if (!reader.canRead() || !size.isValid())
        throw Failure(path, "neither a network, a map nor a picture");
    Picture picture;
    readcompanion(*found, picture);
    KeyValues output;
    output.add("kind", "picture");
    output.add("type", int{picture.Pictype});
    output.add("width", size.width());
    output.add("height", size.height());
    for (std::size_t i = 0; i < picture.lon.size(); ++i)
        output.add(fmt::format("corner{}", i + 1),
                   cell(picture.lon[i]) + "," + cell(picture.lat[i]));
    output.add("source", picture.source);
    return output.text();
}
