#include "Platform/Linux/StatusNotifier/StatusIcon.h"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

struct Step {
    double opacity;
    QStringView suffix;
};
constexpr std::array<Step, StatusIcon::stepCount> steps{{
    {1, u""},
    {0.8, u"-waning"},
    {0.55, u"-dim"},
    {0.3, u"-dimmest"},
}};

/// Pixels; the castle takes the share of it that panels leave to their own icons.
constexpr std::array sizes{16, 22, 24, 32, 48};
constexpr double castleShare = 0.75;
constexpr QColor ink{237, 234, 228};
/// Seen on a light panel alone.
constexpr QColor edge{0, 0, 0, 120};
constexpr std::array edgePlaces{QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)};

QRectF castleBox(int size) {
    const double side = std::round(size * castleShare);
    return {std::floor((size - side) / 2), std::floor((size - side) / 2), side, side};
}

QImage transparent(int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage drawn(const StatusItemArt& art, int size) {
    QImage image = transparent(size);
    QPainter painter(&image);
    for (const QPointF& place : edgePlaces)
        art.paintIcon(painter, castleBox(size).translated(place), edge);
    art.paintIcon(painter, castleBox(size), ink);
    return image;
}

QImage faded(const QImage& image, double opacity) {
    QImage result = transparent(image.width());
    QPainter painter(&result);
    painter.setOpacity(opacity);
    painter.drawImage(0, 0, image);
    return result;
}

StatusIconPixmap packed(const QImage& drawing) {
    const QImage image = drawing.convertToFormat(QImage::Format_ARGB32);
    StatusIconPixmap pixmap{image.width(), image.height(), {}};
    pixmap.bytes.resize(image.sizeInBytes());
    qToBigEndian<quint32>(image.constBits(), image.sizeInBytes() / 4, pixmap.bytes.data());
    return pixmap;
}

} // namespace

int StatusIcon::stepFor(double opacity) {
    const auto nearest = std::min_element(
        steps.begin(), steps.end(), [opacity](const Step& left, const Step& right) {
            return std::abs(left.opacity - opacity) < std::abs(right.opacity - opacity);
        });
    return static_cast<int>(std::distance(steps.begin(), nearest));
}

double StatusIcon::opacityOf(int step) {
    return steps.at(static_cast<std::size_t>(step)).opacity;
}

QString StatusIcon::nameOf(int step) {
    return u"app.tolvar.Tolvar%1-symbolic"_s.arg(steps.at(static_cast<std::size_t>(step)).suffix);
}

StatusIconPixmaps StatusIcon::pixmaps(const StatusItemArt& art, int step) {
    StatusIconPixmaps pixmaps;
    for (const int size : sizes)
        pixmaps.append(packed(faded(drawn(art, size), opacityOf(step))));
    return pixmaps;
}

} // namespace tolvar
