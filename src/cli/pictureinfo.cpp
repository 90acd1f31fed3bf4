#include "cli/pictureinfo.h"

#include "base/paths.h"
#include "cli/failure.h"
#include "pictures/paint/picturefile.h"

#include <QBuffer>
#include <QImageReader>

#include <cstdlib>
#include <fmt/format.h>

/// Size of the picture that a reader stands before; empty for what is no picture.
static QSize picturesize(QImageReader& reader)
{
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead())
        return {};
    const QSize size = reader.size();
    return {size.width(), std::abs(size.height())}; // bitmaps from the top have a negative one
}

static KeyValues infoof(const Picture& picture, const QSize& size)
{
    KeyValues output;
    output.add("kind", "picture");
    output.add("type", int{picture.Pictype});
    output.add("width", size.width());
    output.add("height", size.height());
    for (std::size_t i = 0; i < picture.lon.size(); ++i)
        output.add(fmt::format("corner{}", i + 1),
                   cell(picture.lon[i]) + "," + cell(picture.lat[i]));
    output.add("source", picture.source);
    return output;
}

KeyValues pictureinfo(const std::string& path)
{
    const auto found = findfile(unquoted(path));
    if (!found)
        throw Failure(path, "no such file");
    QImageReader reader(QString::fromStdString(*found));
    const QSize size = picturesize(reader);
    if (size.isEmpty())
        throw Failure(path, "neither a network, a map nor a picture");
    Picture picture;
    readcompanion(*found, picture);
    return infoof(picture, size);
}

static QSize streamsize(const std::string& content)
{
    QByteArray bytes =
        QByteArray::fromRawData(content.data(), static_cast<qsizetype>(content.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    return picturesize(reader);
}

bool ispicture(const std::string& content)
{
    return !streamsize(content).isEmpty();
}

KeyValues streampictureinfo(const std::string& content)
{
    return infoof({}, streamsize(content));
}
