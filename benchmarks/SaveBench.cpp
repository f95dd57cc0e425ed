// A whole save, beside the least that any save must do: encode the two pictures, keep the old
// working copy and bring the same bytes to the disk. Each save changes a colour, so that there is
// something to keep.
#include "QuietLog.h"
#include "bitmap/UIImage+JTColor.h"
#include "platform/foundation/NSFileManager.h"
#include "theme/ColorText.h"
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
    Encoder encoder;
    const auto &locations = fixture.locations;
    const auto write = [&](const QString &path, const QByteArray &bytes) {
        if (NSFileManager::writeToFile(path, bytes))
            state.SkipWithError("a write failed");
    };
    const auto move = [&](const QString &from, const QString &to) {
        if (NSFileManager::moveItemAtPath(from, to))
            state.SkipWithError("a move failed");
    };
    for (auto _ : state) {
        move(locations.workingCopy(), locations.workingCopyAside());
        write(locations.packageInfo(), info);
        write(locations.listBackground(), encoder.encode(background));
        write(locations.unreadIndicator(), encoder.encode(indicator));
        write(locations.workingCopy(), info);
        move(locations.workingCopyAside(), locations.earlierWorkingCopy());
    }
    if (encoder.encode(background) != theme.listBackground)
        state.SkipWithError("the two sides encode different pictures");
}
BENCHMARK(saveBare)->Name("save_bare/scale2")->Unit(benchmark::kMillisecond);
} // namespace
