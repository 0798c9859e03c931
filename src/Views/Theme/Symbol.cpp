#include "Views/Theme/Symbol.h"

#include "Views/Theme/PixelGrid.h"
#include "Views/Theme/SymbolDrawing.h"

#include <QCache>
#include <QHashFunctions>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

struct NamedSymbol {
    Symbol symbol;
    QLatin1StringView name;
};

constexpr std::array namedSymbols{
    NamedSymbol{Symbol::appDashed, "app.dashed"_L1},
    NamedSymbol{Symbol::arrowCounterclockwise, "arrow.counterclockwise"_L1},
    NamedSymbol{Symbol::bookmark, "bookmark"_L1},
    NamedSymbol{Symbol::bookmarkFill, "bookmark.fill"_L1},
    NamedSymbol{Symbol::bookmarkSlash, "bookmark.slash"_L1},
    NamedSymbol{Symbol::checkmark, "checkmark"_L1},
    NamedSymbol{Symbol::chevronLeft, "chevron.left"_L1},
    NamedSymbol{Symbol::chevronRight, "chevron.right"_L1},
    NamedSymbol{Symbol::clock, "clock"_L1},
    NamedSymbol{Symbol::gearshape, "gearshape"_L1},
    NamedSymbol{Symbol::globe, "globe"_L1},
    NamedSymbol{Symbol::magnifyingglass, "magnifyingglass"_L1},
    NamedSymbol{Symbol::minus, "minus"_L1},
    NamedSymbol{Symbol::pause, "pause"_L1},
    NamedSymbol{Symbol::play, "play"_L1},
    NamedSymbol{Symbol::playCircle, "play.circle"_L1},
    NamedSymbol{Symbol::playFill, "play.fill"_L1},
    NamedSymbol{Symbol::plus, "plus"_L1},
    NamedSymbol{Symbol::shield, "shield"_L1},
    NamedSymbol{Symbol::speakerFill, "speaker.fill"_L1},
    NamedSymbol{Symbol::speakerWave2, "speaker.wave.2"_L1},
    NamedSymbol{Symbol::stop, "stop"_L1},
    NamedSymbol{Symbol::trash, "trash"_L1},
    NamedSymbol{Symbol::xmark, "xmark"_L1},
    NamedSymbol{Symbol::xmarkCircleFill, "xmark.circle.fill"_L1},
};

constexpr auto symbols = [] {
    std::array<Symbol, namedSymbols.size()> all{};
    for (std::size_t i = 0; i < all.size(); ++i)
        all.at(i) = namedSymbols.at(i).symbol;
    return all;
}();

struct SymbolMetrics {
    /// The size of text, in points, beside which a unit of the grid is a point.
    qreal naturalPointSize = 17;
    /// The factors of the stroke for the weights in their order.
    std::array<qreal, 4> weights{1, 1.12, 1.24, 1.4};
    /// How strokes grow relatively as symbols get smaller: the natural size through the size, to
    /// this power, within these limits.
    qreal opticalPower = 0.33;
    qreal leastOptical = 0.75;
    qreal mostOptical = 1.25;
    /// What the memory of rendered symbols may take, in bytes.
    int cacheBytes = 1024 * 1024;
};
constexpr SymbolMetrics metrics;

/// In units of the grid, for a symbol whose grid is `height` points high.
qreal strokeWidth(qreal height, SymbolWeight weight) {
    const qreal optical =
        std::clamp(std::pow(SymbolDrawing::gridHeight / height, metrics.opticalPower),
                   metrics.leastOptical, metrics.mostOptical);
    return SymbolDrawing::strokeWidth * optical *
           metrics.weights.at(static_cast<std::size_t>(weight));
}

struct MaskKey {
    Symbol symbol;
    int pixelHeight;
    qreal stroke;

    bool operator==(const MaskKey&) const = default;
    friend std::size_t qHash(const MaskKey& key, std::size_t seed) {
        return qHashMulti(seed, static_cast<int>(key.symbol), key.pixelHeight, key.stroke);
    }
};

/// Kept without its colour: tinting is cheap, and colours change while something moves.
QImage mask(const MaskKey& key) {
    static QCache<MaskKey, QImage> cache(metrics.cacheBytes);
    if (const QImage* known = cache.object(key))
        return *known;
    QImage image = SymbolDrawing::of(key.symbol).mask(key.pixelHeight, key.stroke);
    cache.insert(key, new QImage(image), image.sizeInBytes());
    return image;
}

QImage tinted(QImage image, const QColor& color) {
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

/// How high the grid of a symbol is that fills a box.
qreal heightWithin(const QSizeF& box, Symbol symbol) {
    const QSizeF grid = SymbolDrawing::of(symbol).box.size();
    return grid.scaled(box, Qt::KeepAspectRatio).height();
}

QRectF centred(const QSizeF& size, const QPointF& middle) {
    return {middle - QPointF(size.width(), size.height()) / 2, size};
}

} // namespace

std::span<const Symbol> allSymbols() {
    return symbols;
}

QLatin1StringView symbolName(Symbol symbol) {
    return namedSymbols.at(static_cast<std::size_t>(symbol)).name;
}

QSizeF symbolSize(Symbol symbol, qreal pointSize) {
    return SymbolDrawing::of(symbol).box.size() * pointSize / metrics.naturalPointSize;
}

void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& box, const QColor& color,
                 SymbolWeight weight) {
    if (box.isEmpty())
        return;
    const qreal height = heightWithin(box.size(), symbol);
    const qreal stroke = strokeWidth(height, weight);
    const auto toPixels = pixelTransform(painter);
    // Twice the pixels bear being shrunk and enlarged a little.
    const qreal scale = painter.device()->devicePixelRatio() * (toPixels ? 1 : 2);
    const int pixelHeight = std::max(1, qRound(height * scale));
    const QImage image = tinted(mask({symbol, pixelHeight, stroke}), color);

    if (toPixels) {
        const PixelPainting pixels(painter, *toPixels);
        const QRectF target = centred(image.size(), toPixels->map(box.center()));
        painter.drawImage(target.topLeft().toPoint(), image);
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(centred(QSizeF(image.size()) / scale, box.center()), image);
    painter.restore();
}

} // namespace tolvar
