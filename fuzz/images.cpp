// Pictures and station icons from files of any bytes: opaque 32-bit, or none at all.

#include "pictures/paint/picturefile.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int count = 0;
    static QCoreApplication program(count, nullptr);
    static const QTemporaryDir folder;
    for (const char* name : {"image.bmp", "image.gif", "image.jpg", "image.ico"}) {
        const QString path = folder.filePath(QString::fromLatin1(name));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            std::abort();
        file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
        file.close();
        const QImage image = readraster(path.toStdString());
        if (!image.isNull() && (image.depth() != 32 || image.hasAlphaChannel()))
            std::abort();
    }
    return 0;
}
