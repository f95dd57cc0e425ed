#include "library/QrPicture.h"

#include "library/Archives.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QrPicture::Drawn QrPicture::of(const QString &text, int size)
{
    constexpr int margin = 4;
    const auto [module, missing] = Archives::module();
    if (!module)
        return {{}, missing};
    const QrModules code = module->qrCode(text.toLatin1());
    if (code.size == 0)
        return {{}, u"the text is too long for a QR code"_s};
    const int side = code.size + 2 * margin;
    const int pixels = std::max(1, (size + side - 1) / side);
    QImage image(side, side, QImage::Format_Mono);
    image.setColorTable({0xFFFFFFFF, 0xFF000000});
    image.fill(0);
    for (int y = 0; y < code.size; ++y)
        for (int x = 0; x < code.size; ++x)
            if (code.dark[size_t(y) * size_t(code.size) + size_t(x)])
                image.setPixel(margin + x, margin + y, 1);
    return {image.scaled(side * pixels, side * pixels), {}};
}
