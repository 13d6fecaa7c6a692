#pragma once

// Pictures as files, and files that only claim to be pictures.

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QtEndian>
#include <QtGui/QImage>

#include <gtest/gtest.h>

inline QByteArray encoded(const QImage &image, const char *format, int quality = -1)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format, quality));
    return bytes;
}

inline quint32 crc32(const QByteArray &bytes)
{
    quint32 crc = 0xFFFFFFFFu;
    for (const char byte : bytes) {
        crc ^= uchar(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? crc >> 1 ^ 0xEDB88320u : crc >> 1;
    }
    return ~crc;
}

inline QByteArray bigEndian(quint32 value)
{
    char bytes[4];
    qToBigEndian(value, bytes);
    return QByteArray(bytes, 4);
}

inline QByteArray pngChunk(const QByteArray &name, const QByteArray &data)
{
    return bigEndian(quint32(data.size())) + name + data + bigEndian(crc32(name + data));
}

// One bit per pixel, grey.
inline QByteArray pngHeader(int width, int height)
{
    return QByteArrayLiteral("\x89PNG\r\n\x1A\n") +
           pngChunk("IHDR", bigEndian(quint32(width)) + bigEndian(quint32(height)) + QByteArray("\1\0\0\0\0", 5));
}

// A complete black picture: few bytes whatever its size.
inline QByteArray blackPng(int width, int height)
{
    const QByteArray rows(((width + 7) / 8 + 1) * height, '\0');
    return pngHeader(width, height) + pngChunk("IDAT", qCompress(rows, 1).mid(4)) + pngChunk("IEND", {});
}
