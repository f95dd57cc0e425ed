#include "pictures/ReducedPicture.h"

#include "support/Files.h"

#include <QBuffer>
#include <QColorSpace>
#include <QTemporaryDir>

#include <turbojpeg.h>

namespace
{
constexpr QRgb blue = 0xFF3080C0;

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format)) << format;
    return bytes;
}

QImage plain(int width, int height, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(width, height, format);
    image.fill(QColor(blue));
    return image;
}

/// Within what a JPEG moves a channel.
void expectNear(QRgb seen, QRgb expected, const char *what)
{
    EXPECT_NEAR(qRed(seen), qRed(expected), 4) << what;
    EXPECT_NEAR(qGreen(seen), qGreen(expected), 4) << what;
    EXPECT_NEAR(qBlue(seen), qBlue(expected), 4) << what;
}

QByteArray cmykJpeg()
{
    // As printers' programs write them: 255 is no ink.
    QByteArray pixels;
    for (int i = 0; i < 64 * 48; ++i)
        pixels += QByteArray::fromHex("00ffffff");
    QByteArray bytes(qsizetype(tjBufSize(64, 48, TJSAMP_444)), '\0');
    auto *jpeg = reinterpret_cast<uchar *>(bytes.data());
    unsigned long size = ulong(bytes.size());
    const tjhandle compressor = tjInitCompress();
    EXPECT_EQ(tjCompress2(compressor, reinterpret_cast<const uchar *>(pixels.constData()), 64, 0,
                          48, TJPF_CMYK, &jpeg, &size, TJSAMP_444, 95, TJFLAG_NOREALLOC),
              0);
    tjDestroy(compressor);
    return bytes.first(qsizetype(size));
}

/// To be turned by 90 degrees clockwise.
QByteArray turned(QByteArray jpeg)
{
    return jpeg.insert(2, QByteArray::fromHex("ffe1002245786966"
                                              "00004d4d002a000000080001"
                                              "0112000300000001000600000000"
                                              "0000"));
}

QByteArray changedAfter(QByteArray bytes, const char *mark, int from, int count)
{
    const qsizetype at = bytes.indexOf(mark);
    EXPECT_GE(at, 0) << mark;
    for (qsizetype i = at + from; i < at + from + count; ++i)
        bytes[i] = char(bytes[i] ^ 0x55);
    return bytes;
}

QByteArray bmpHeader(qint32 width, qint32 height)
{
    QByteArray bytes("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0", 18);
    bytes.append(reinterpret_cast<const char *>(&width), 4);
    bytes.append(reinterpret_cast<const char *>(&height), 4);
    return bytes + QByteArray("\1\0\x18\0", 4) + QByteArray(24, '\0');
}

// One pixel, red in the first frame and blue in the second.
const QByteArray animated = QByteArray::fromHex(
    "474946383961010001008000 00ff0000 0000ff 21f904000a000000 2c00000000010001000002024401 00"
    "21f904000a000000 2c00000000010001000002024c0100 3b");
} // namespace

TEST(ReducedPicture, ReadsWhatPeopleHave)
{
    QImage adobe = plain(400, 300);
    adobe.setColorSpace(QColorSpace::AdobeRgb);
    const QByteArray adobeJpeg = encoded(adobe, "JPG");
    const struct {
        const char *what;
        QByteArray bytes;
        QSize size;
        QRgb color;
    } pictures[] = {
        {"JPEG", encoded(plain(300, 400), "JPG"), {96, 128}, blue},
        {"BMP", encoded(plain(3, 2), "BMP"), {3, 2}, blue},
        {"wide", encoded(plain(100'001, 1), "PNG"), {128, 1}, blue},
        {"16 bits", encoded(plain(40, 30, QImage::Format_RGBA64), "PNG"), {40, 30}, blue},
        {"greys", encoded(plain(9, 9, QImage::Format_Grayscale8), "JPG"), {9, 9}, 0xFF6E6E6E},
        {"CMYK", cmykJpeg(), {64, 48}, 0xFF00FFFF},
        {"animated", animated, {1, 1}, 0xFFFF0000},
        {"Adobe RGB", adobeJpeg, {128, 96}, 0xFF0081C4},
        {"broken profile", changedAfter(adobeJpeg, "ICC_PROFILE", 14, 300), {128, 96}, blue},
        {"bytes behind it", encoded(plain(9, 9), "JPG") + "more", {9, 9}, blue},
    };
    testing::internal::CaptureStderr(); // the readers chat
    for (const auto &[what, bytes, size, color] : pictures) {
        const auto picture = ReducedPicture::parse(bytes);
        EXPECT_EQ(picture.problem.toStdString(), "") << what;
        ASSERT_EQ(picture.image.size(), size) << what;
        EXPECT_EQ(picture.image.format(), QImage::Format_ARGB32) << what;
        expectNear(picture.image.pixel(size.width() / 2, size.height() - 1), color, what);
    }
    testing::internal::GetCapturedStderr();
}

TEST(ReducedPicture, IsUprightAndDropsWhatCannotBeSeen)
{
    QImage flag = plain(160, 80);
    memset(flag.bits(), 0xFF, size_t(flag.sizeInBytes() / 2)); // the upper half white
    const QImage upright = ReducedPicture::parse(turned(encoded(flag, "JPG"))).image;
    ASSERT_EQ(upright.size(), QSize(64, 128));
    expectNear(upright.pixel(50, 64), 0xFFFFFFFF, "the top is on the right");
    expectNear(upright.pixel(10, 64), blue, "the rest on the left");

    QImage cutOut(3, 1, QImage::Format_ARGB32);
    cutOut.setPixel(0, 0, 0x00FF0000);
    cutOut.setPixel(1, 0, 0x7F00FF00);
    cutOut.setPixel(2, 0, 0x800000FF);
    EXPECT_EQ(ReducedPicture::parse(encoded(cutOut, "PNG")).visiblePixels(),
              std::vector<QRgb>{0xFF0000FF});
}

TEST(ReducedPicture, RefusesTheRestInASentence)
{
    const QByteArray png = encoded(plain(400, 300), "PNG"), jpeg = encoded(plain(400, 300), "JPG");
    const QByteArray bmp = encoded(plain(400, 300), "BMP");
    const struct {
        const char *what;
        QByteArray bytes;
        QString told;
    } pictures[] = {
        {"nothing", "", "no picture"},
        {"text", "Not a picture at all", "no picture"},
        {"cut PNG", png.first(png.size() / 2), "cut off"},
        {"cut JPEG", jpeg.first(jpeg.size() - 2), "cut off"},
        {"cut BMP", bmp.first(bmp.size() - 9), "cut off"},
        // The small picture of a camera has an end of its own.
        {"cut JPEG with another one in it",
         QByteArray("\xFF\xD8\xFF\xE1\x00\x06\xFF\xD8\xFF\xD9", 10) + jpeg.sliced(2).chopped(2),
         "cut off"},
        {"header alone", png.first(30), "size"},
        {"wide and high", bmpHeader(100'001, 1'001), "100001 x 1001"},
    };
    testing::internal::CaptureStderr();
    for (const auto &[what, bytes, told] : pictures) {
        const auto picture = ReducedPicture::parse(bytes);
        EXPECT_TRUE(picture.image.isNull()) << what;
        EXPECT_TRUE(picture.problem.contains(told))
            << what << ": " << picture.problem.toStdString();
    }
    testing::internal::GetCapturedStderr();

    QTemporaryDir folder;
    const QString file = folder.filePath("picture");
    EXPECT_TRUE(ReducedPicture::read(file).problem.startsWith(file + ": "));
    put(file, "text");
    EXPECT_TRUE(ReducedPicture::read(file).problem.startsWith(file + ": it is no picture"));
}
