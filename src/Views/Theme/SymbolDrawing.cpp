#include "Views/Theme/SymbolDrawing.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <QTransform>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <cmath>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

std::vector<qreal> numbers(QStringView text) {
    std::vector<qreal> values;
    for (const QStringView word : text.split(u' ', Qt::SkipEmptyParts))
        values.push_back(word.toDouble());
    return values;
}

SymbolDrawing read(Symbol symbol) {
    QFile file(u":/tolvar/Symbols/%1.svg"_s.arg(symbolName(symbol)));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The symbol %s was not built in", symbolName(symbol).data());
    SymbolDrawing drawing;
    drawing.svg = file.readAll();
    QXmlStreamReader reader(drawing.svg);
    reader.readNextStartElement();
    const QXmlStreamAttributes attributes = reader.attributes();
    const std::vector<qreal> box = numbers(attributes.value("viewBox"_L1));
    drawing.box = {box.at(0), box.at(1), box.at(2), box.at(3)};
    drawing.stemsX = numbers(attributes.value("data-stems-x"_L1));
    drawing.stemsY = numbers(attributes.value("data-stems-y"_L1));
    return drawing;
}

/// How one axis of the grid maps to pixels: scale * units + offset.
struct Axis {
    qreal scale;
    qreal offset;
};

/// The middle of a stroke that lies sharpest: on a pixel's middle or between two pixels.
qreal sharpest(qreal middle, qreal strokePixels) {
    const bool odd = std::lround(strokePixels) % 2 == 1;
    return odd ? std::floor(middle) + 0.5 : std::round(middle);
}

/// A part of the way to whole pixels: thin strokes get sharper, and still tell the weights apart.
qreal sharpened(qreal strokePixels) {
    constexpr qreal part = 0.33;
    const qreal whole = std::max(1.0, std::round(strokePixels));
    return strokePixels + part * (whole - strokePixels);
}

/// Moves stems onto pixels, and scales a little, so that the distances between them are whole
/// pixels as well. Where that would take more than a little, only their middle is moved; without
/// stems the axis stays as it is.
Axis fitted(Axis natural, const std::vector<qreal>& stems, qreal strokePixels) {
    constexpr qreal mostStretch = 0.12;
    if (stems.empty())
        return natural;
    const qreal span = stems.back() - stems.front();
    const qreal intervals = std::max<qreal>(stems.size() - 1, 1);
    const qreal pixels = std::round(span * natural.scale / intervals) * intervals;
    const qreal stretched = span > 0 ? pixels / span : natural.scale;
    const bool little = std::abs(stretched / natural.scale - 1) <= mostStretch;
    const qreal scale = little ? stretched : natural.scale;
    const qreal middle = natural.scale * (stems.front() + span / 2) + natural.offset;
    const qreal first = sharpest(middle - scale * span / 2, strokePixels);
    return {scale, first - stems.front() * scale};
}

} // namespace

const SymbolDrawing& SymbolDrawing::of(Symbol symbol) {
    static std::array<SymbolDrawing, static_cast<std::size_t>(Symbol::xmarkCircleFill) + 1> known;
    SymbolDrawing& drawing = known.at(static_cast<std::size_t>(symbol));
    if (drawing.svg.isEmpty())
        drawing = read(symbol);
    return drawing;
}

QImage SymbolDrawing::mask(int pixelHeight, qreal stroke) const {
    const qreal scale = pixelHeight / gridHeight;
    const int pixelWidth = static_cast<int>(std::ceil(box.width() * scale));
    const qreal spare = (pixelWidth - box.width() * scale) / 2;
    const qreal strokePixels = sharpened(stroke * scale);
    const Axis x = fitted({scale, maskMargin + spare - box.left() * scale}, stemsX, strokePixels);
    const Axis y = fitted({scale, maskMargin - box.top() * scale}, stemsY, strokePixels);

    QByteArray weighted = svg;
    weighted.replace("stroke-width=\"1.75\"",
                     "stroke-width=\"" + QByteArray::number(strokePixels / scale) + "\"");
    QSvgRenderer renderer(weighted);
    QImage image(pixelWidth + 2 * maskMargin, pixelHeight + 2 * maskMargin,
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setTransform({x.scale, 0, 0, y.scale, x.offset, y.offset});
    renderer.render(&painter, box);
    return image;
}

} // namespace tolvar
