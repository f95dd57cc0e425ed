// A whole save, beside the least that any save must do: encode the two pictures, keep the old
// working copy and bring the same bytes to the disk. Each save changes a colour, so that there is
// something to keep. With a picture behind the list, the least is to decode the part of it that is
// shown, to scale and to encode that, and to bring it to the disk; the whole picture is there.
#include "Photograph.h"
#include "QuietLog.h"
#include "bitmap/UIImage+JTColor.h"
#include "platform/foundation/NSFileManager.h"
#include "theme/ColorText.h"
#include "theme/ElementPicture.h"
#include "theme/ThemeDocument.h"
#include "theme/ThemePackageWriter.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <stdexcept>
#include <turbojpeg.h>

namespace
{
constexpr double scale = 2.0;

struct Fixture {
    QTemporaryDir folder;
    const ThemeLocations locations{folder.filePath(QStringLiteral("root")),
                                   folder.filePath(QStringLiteral("documents"))};
    const QuietLog quiet;
    ThemeDocument document{
        ElementDataSource::load(QStringLiteral(TINTLOOM_SOURCE_RESOURCES), locations.documents)};
};

void save(benchmark::State &state)
{
    Fixture fixture;
    bool odd = false;
    for (auto _ : state) {
        fixture.document.setColor(0, (odd = !odd) ? "#123456FF" : "#654321FF");
        const auto report =
            writeTheme(buildTheme(fixture.document.elements(), fixture.locations, scale));
        if (!report.failures.empty() || report.written.size() != 4)
            state.SkipWithError("the save failed");
    }
}
BENCHMARK(save)->Name("save/scale2")->Unit(benchmark::kMillisecond);

class Encoder
{
public:
    ~Encoder()
    {
        tjFree(_buffer);
        tjDestroy(_handle);
    }

    /// Valid until the next call.
    QByteArray encode(const QImage &image)
    {
        unsigned long size = _size;
        if (tjCompress2(_handle, image.constBits(), image.width(), int(image.bytesPerLine()),
                        image.height(), TJPF_BGRX, &_buffer, &size, TJSAMP_420, 80, 0) != 0)
            throw std::runtime_error(tjGetErrorStr2(_handle));
        _size = std::max(_size, size);
        return QByteArray::fromRawData(reinterpret_cast<const char *>(_buffer), qsizetype(size));
    }

private:
    tjhandle _handle = tjInitCompress();
    unsigned char *_buffer = nullptr;
    unsigned long _size = 0;
};

/// The files of a save, each as it is brought to the disk.
struct BareSave {
    benchmark::State &state;
    const ThemeLocations &locations;

    void save(const QByteArray &info, const QByteArray &background,
              const QByteArray &indicator) const
    {
        move(locations.workingCopy(), locations.workingCopyAside());
        write(locations.packageInfo(), info);
        write(locations.listBackground(), background);
        write(locations.unreadIndicator(), indicator);
        write(locations.workingCopy(), info);
        move(locations.workingCopyAside(), locations.earlierWorkingCopy());
    }

private:
    void write(const QString &path, const QByteArray &bytes) const
    {
        if (NSFileManager::writeToFile(path, bytes))
            state.SkipWithError("a write failed");
    }
    void move(const QString &from, const QString &to) const
    {
        if (NSFileManager::moveItemAtPath(from, to))
            state.SkipWithError("a move failed");
    }
};

void saveBare(benchmark::State &state)
{
    const Fixture fixture;
    const auto theme = buildTheme(fixture.document.elements(), fixture.locations, scale);
    writeTheme(theme); // makes the folders
    const QByteArray info = PropertyList::writeDictionary(theme.dictionary);
    const auto raster = [&](const QString &key, double width, double height) {
        const QString text = theme.dictionary.find(key)->toString();
        return imageWithColorRect(colorFromHexString(text), {0.0, 0.0, width, height}, scale);
    };
    const QImage background = raster(QStringLiteral("list-background-image"), 640.0, 1136.0);
    const QImage indicator = raster(QStringLiteral("unread-indicator-image"), 24.0, 24.0);
    Encoder backgrounds, indicators; // each keeps the bytes of one picture
    const BareSave bare{state, fixture.locations};
    for (auto _ : state)
        bare.save(info, backgrounds.encode(background), indicators.encode(indicator));
    if (backgrounds.encode(background) != theme.listBackground)
        state.SkipWithError("the two sides encode different pictures");
}
BENCHMARK(saveBare)->Name("save_bare/scale2")->Unit(benchmark::kMillisecond);

/// Placed somewhere else each time, so that nothing of it is at hand. More places than are kept.
ElementPicture placed(const ElementPicture &picture, int save)
{
    ElementPicture moved = picture;
    moved.x = 0.3 + 0.05 * (save % 8);
    return moved;
}

struct PictureFixture : Fixture {
    ElementPicture picture;
    int index = *document.elements().shownIndexOfKey(QStringLiteral("list-background-image"));

    PictureFixture()
    {
        const QString path = folder.filePath(QStringLiteral("photograph.jpg"));
        photograph().save(path, "JPG", 90);
        picture = ElementPicture::read(path).picture.value();
    }
    BuiltTheme build(int save)
    {
        document.changeAll({{index, *placed(picture, save).choice()}}, {});
        return buildTheme(document.elements(), locations, scale);
    }
};

void savePicture(benchmark::State &state)
{
    PictureFixture fixture;
    writeTheme(fixture.build(0)); // from here on the whole picture is there
    int save = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto choice = placed(fixture.picture, ++save).choice();
        fixture.document.changeAll({{fixture.index, *choice}}, {});
        state.ResumeTiming();
        const auto report =
            writeTheme(buildTheme(fixture.document.elements(), fixture.locations, scale));
        if (!report.failures.empty() || report.written.size() < 4)
            state.SkipWithError("the save failed");
    }
}
// Both sides scale on threads of Qt's own, which count as well; to wait for the disk does not: that
// is the same as of any save.
BENCHMARK(savePicture)
    ->Name("save_picture/scale2")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

/// All of a JPEG, by the encoder's own library.
QImage decoded(const QByteArray &jpeg)
{
    const tjhandle handle = tjInitDecompress();
    const auto *const bytes = reinterpret_cast<const unsigned char *>(jpeg.constData());
    int width = 0, height = 0, sampling = 0, space = 0;
    tjDecompressHeader3(handle, bytes, jpeg.size(), &width, &height, &sampling, &space);
    QImage image(width, height, QImage::Format_RGB32);
    tjDecompress2(handle, bytes, jpeg.size(), image.bits(), width, int(image.bytesPerLine()),
                  height, TJPF_BGRX, 0);
    tjDestroy(handle);
    return image;
}

void savePictureBare(benchmark::State &state)
{
    PictureFixture fixture;
    const auto theme = fixture.build(0);
    writeTheme(theme);
    const QByteArray info = PropertyList::writeDictionary(theme.workingCopy);
    const QSize screen = QSizeF(640.0 * scale, 1136.0 * scale).toSize();
    Encoder encoder;
    const BareSave bare{state, fixture.locations};
    int save = 0;
    for (auto _ : state) {
        const QImage whole = decoded(fixture.picture.jpeg);
        const QSize part = screen.scaled(whole.size(), Qt::KeepAspectRatio);
        const int left = int((whole.width() - part.width()) * 0.1 * (++save % 8));
        const QImage shown = whole.copy(QRect(QPoint(left, 0), part))
                                 .scaled(screen, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        bare.save(info, encoder.encode(shown.convertToFormat(QImage::Format_RGB32)),
                  theme.unreadIndicator);
    }
}
BENCHMARK(savePictureBare)
    ->Name("save_picture_bare/scale2")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
} // namespace
