#include "pictures/paint/picturefile.h"

#include "base/paths.h"
#include "pictures/sidecar.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <cstdio>
#include <optional>

static constexpr int largestraster_mb = 512;

/// True where the pixels of a picture take no more memory than any map needs. A file may hold them
/// in a fraction of it.
static bool affordable(const QSize& size)
{
    constexpr qint64 most = qint64{largestraster_mb} << 20;
    constexpr qint64 pixelbytes = 4;
    return qint64{size.width()} * size.height() <= most / pixelbytes;
}

QImage readraster(const std::string& path)
{
    QImageReader::setAllocationLimit(largestraster_mb);
    QImageReader reader(QString::fromStdString(path));
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true); // photographs stand upright
    if (!affordable(reader.size()))
        return {};
    const QImage read = reader.read();
    if (read.isNull() || !affordable(read.size()))
        return {};
    QImage image(read.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).drawImage(QRect(QPoint(0, 0), read.size()), read);
    return image;
}

void readcompanion(const std::string& raster, Picture& picture)
{
    constexpr std::size_t enough = 65536; // bytes; the texts beside a raster are short
    const auto text = [&raster](const char* extension) -> std::optional<std::string> {
        const auto path = findfile(companion(raster, extension));
        return path ? readfile(*path, enough) : std::nullopt;
    };
    if (const auto sidecar = text("dat"))
        parsesidecar(*sidecar, picture);
    else if (const auto adr = text("adr"))
        parseadr(*adr, picture);
}

bool writebmp(const std::string& path, const QImage& image, std::string* why)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!image.convertToFormat(QImage::Format_RGB888).save(&buffer, "BMP")) {
        if (why != nullptr)
            *why = "the image cannot be encoded";
        return false;
    }
    const QByteArray& bytes = buffer.data();
    return writefile(
        path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())), why);
}

bool writepicture(const std::string& path, const QImage& image, const Picture& picture,
                  std::string* why)
{
    // The sidecar goes first and comes back when the raster fails: a pair never disagrees.
    const std::string sidecar = targetpath(companion(path, "dat"));
    const auto old = readfile(sidecar);
    if (!writefile(sidecar, sidecartext(picture), why))
        return false;
    if (writebmp(targetpath(path), image, why))
        return true;
    if (old)
        writefile(sidecar, *old);
    else
        std::remove(sidecar.c_str());
    return false;
}
