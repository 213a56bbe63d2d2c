#include "platform/QtImages.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>

namespace ortelix {

bool QtImageCodecsReady() {
    const auto readable = QImageReader::supportedImageFormats();
    const auto writable = QImageWriter::supportedImageFormats();
    return readable.contains("jpeg") && readable.contains("png") && writable.contains("jpeg") &&
           writable.contains("png");
}

std::optional<Picture> QtDecodeImage(const std::string& bytes, std::string& error) {
    QByteArray data = QByteArray::fromRawData(bytes.data(), qsizetype(bytes.size()));
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    // A header's size is checked before the pixels are allocated (Qt's own
    // allocation limit in megabytes).
    reader.setAllocationLimit(1024);
    QImage img = reader.read();
    if (img.isNull()) {
        error = reader.errorString().toStdString();
        return std::nullopt;
    }
    img = img.convertToFormat(QImage::Format_ARGB32);
    Picture p;
    p.width = img.width();
    p.height = img.height();
    p.pixels.resize(size_t(p.width) * size_t(p.height));
    for (int y = 0; y < p.height; ++y) {
        const auto* row = reinterpret_cast<const uint32_t*>(img.constScanLine(y));
        std::copy(row, row + p.width, p.pixels.begin() + ptrdiff_t(y) * p.width);
    }
    return p;
}

std::optional<std::string> QtEncodeImage(const Picture& picture, const std::string& format, int quality,
                                         std::string& error) {
    if (picture.width <= 0 || picture.height <= 0 ||
        picture.pixels.size() != size_t(picture.width) * size_t(picture.height)) {
        error = "Kein Bild vorhanden";
        return std::nullopt;
    }
    QImage img(picture.width, picture.height, QImage::Format_RGB32);
    for (int y = 0; y < picture.height; ++y) {
        auto* row = reinterpret_cast<uint32_t*>(img.scanLine(y));
        const uint32_t* src = picture.pixels.data() + size_t(y) * size_t(picture.width);
        for (int x = 0; x < picture.width; ++x) row[x] = src[x] | 0xFF000000u;
    }
    QByteArray out;
    QBuffer buffer(&out);
    buffer.open(QIODevice::WriteOnly);
    const QByteArray qtFormat = format == "JPG" || format == "JPEG" ? "jpeg" : QByteArray(format.c_str()).toLower();
    QImageWriter writer(&buffer, qtFormat);
    if (qtFormat == "jpeg") writer.setQuality(quality);
    if (!writer.write(img)) {
        error = writer.errorString().toStdString();
        return std::nullopt;
    }
    return out.toStdString();
}

std::optional<std::pair<int, int>> QtImageFileSize(const std::string& path) {
    QImageReader reader(QString::fromStdString(path));
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty()) return std::nullopt;
    return std::pair{size.width(), size.height()};
}

}  // namespace ortelix
