#include "Views/Presets/BlockedSummaryRow.h"

#include "Views/AppPicker/AppIconStack.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Paint/Paint.h"
#include "Views/Presets/BlockedSummary.h"
#include "Views/Theme/Instrument.h"

#include <QIcon>
#include <QLocale>
#include <QPainter>
#include <QPixmapCache>

#include <algorithm>
#include <vector>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

struct Look {
    double fontSize = 11;
    double besideIcons = 6;
};
constexpr Look look;

QFont sitesFont() {
    return Instrument::font(look.fontSize);
}

/// In what a row of icons is drawn, its shadows included.
struct IconsPicture {
    std::vector<QIcon> icons = {};
    double iconSize = 0;
    double scale = 1;
    Qt::LayoutDirection direction = Qt::LeftToRight;

    QString name() const {
        QString name = u"tolvar-icons-%1-%2-%3"_s.arg(iconSize).arg(scale).arg(direction);
        for (const QIcon& icon : icons)
            name += u"-%1"_s.arg(icon.cacheKey());
        return name;
    }
    QPixmap draw() const {
        const double room = 2 * AppIconRow::shadowRoom;
        const QSizeF size =
            AppIconRow::size(static_cast<int>(icons.size()), iconSize) + QSizeF(room, room);
        QPixmap picture((size * scale).toSize() + QSize(1, 1));
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        AppIconRow::paint(painter, {AppIconRow::shadowRoom, AppIconRow::shadowRoom}, icons,
                          iconSize, direction);
        return picture;
    }
};

/// Blurring shadows takes its time, and the same few rows come again and again.
QPixmap pictureOf(const IconsPicture& wanted) {
    QPixmap picture;
    const QString name = wanted.name();
    if (QPixmapCache::find(name, &picture))
        return picture;
    picture = wanted.draw();
    QPixmapCache::insert(name, picture);
    return picture;
}

QPointF iconsOrigin(const QRectF& line, const QSizeF& size, Qt::LayoutDirection direction) {
    const double left = direction == Qt::RightToLeft ? line.right() - size.width() : line.left();
    return {left, line.center().y() - size.height() / 2};
}

QString sitesCount(int count) {
    return u"%1 site%2"_s.arg(count).arg(count == 1 ? u""_s : u"s"_s);
}

} // namespace

BlockedSummaryRow BlockedSummaryRow::of(const BlockedSummary& summary) {
    return {.appNames = summary.appNames, .websiteCount = summary.websiteCount};
}

QStringList BlockedSummaryRow::shownApps(ApplicationIcons& icons) const {
    QStringList shown = appNames;
    std::stable_partition(shown.begin(), shown.end(),
                          [&](const QString& name) { return !icons.find(name).isNull(); });
    return shown.mid(0, std::max(maxIcons, 0));
}

QString BlockedSummaryRow::sitesText() const {
    if (websiteCount < 1)
        return {};
    const QString sites = sitesCount(websiteCount);
    return appNames.isEmpty() || maxIcons < 1 ? sites : u"and "_s + sites;
}

QString BlockedSummaryRow::spokenText() const {
    QStringList all = appNames;
    if (websiteCount >= 1)
        all << sitesCount(websiteCount);
    return all.isEmpty() ? QString()
                         : u"Blocks %1"_s.arg(QLocale(QLocale::English).createSeparatedList(all));
}

void BlockedSummaryRow::paint(QPainter& painter, const QRectF& line, ApplicationIcons& icons,
                              Qt::LayoutDirection direction) const {
    IconsPicture shown{.iconSize = iconSize,
                       .scale = painter.device()->devicePixelRatioF(),
                       .direction = direction};
    for (const QString& name : shownApps(icons))
        shown.icons.push_back(icons.find(name));
    const QSizeF size = AppIconRow::size(static_cast<int>(shown.icons.size()), iconSize);
    QRectF rest = line;
    if (!shown.icons.empty()) {
        const QRectF place = Paint::onPixels(painter, {iconsOrigin(line, size, direction), size});
        painter.drawPixmap(place.topLeft() -
                               QPointF(AppIconRow::shadowRoom, AppIconRow::shadowRoom),
                           pictureOf(shown));
        const double taken = size.width() + look.besideIcons;
        rest.adjust(direction == Qt::RightToLeft ? 0 : taken, 0,
                    direction == Qt::RightToLeft ? -taken : 0, 0);
    }
    Paint::text(painter, rest, sitesText(), sitesFont(), Instrument::Palette::labelDim,
                direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft);
}

QString BlockedSummaryRow::appAt(const QPointF& point, const QRectF& line, ApplicationIcons& icons,
                                 Qt::LayoutDirection direction) const {
    const QStringList shown = shownApps(icons);
    const int count = static_cast<int>(shown.size());
    const QPointF origin = iconsOrigin(line, AppIconRow::size(count, iconSize), direction);
    for (int index = 0; index < count; ++index)
        if (AppIconRow::place(index, count, iconSize, origin, direction).contains(point))
            return shown.at(index);
    return {};
}

} // namespace tolvar
