#include "Views/AppPicker/AppIconStack.h"

#include "Views/AppPicker/AppIconView.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Paint/Paint.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QImage>
#include <QLocale>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <cmath>

namespace tolvar {

namespace {

struct Shadow {
    double opacity = 0.6;
    /// How far it fades out, in points.
    double radius = 1.5;
    /// To where the next icon lies, in points.
    double offset = 1;
};
constexpr Shadow shadow;

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* stack = qobject_cast<AppIconStack*>(object);
    return stack ? new QAccessibleWidget(stack, QAccessible::Graphic) : nullptr;
}

/// Each pixel becomes the mean of those within `reach` of it along one axis.
QImage averaged(const QImage& mask, int reach, Qt::Orientation along) {
    QImage result(mask.size(), QImage::Format_Alpha8);
    const int dx = along == Qt::Horizontal ? 1 : 0;
    const int dy = 1 - dx;
    for (int y = 0; y < mask.height(); ++y)
        for (int x = 0; x < mask.width(); ++x) {
            int sum = 0;
            for (int step = -reach; step <= reach; ++step)
                if (mask.valid(x + step * dx, y + step * dy))
                    sum += mask.constScanLine(y + step * dy)[x + step * dx];
            result.scanLine(y)[x] = static_cast<uchar>(sum / (2 * reach + 1));
        }
    return result;
}

/// Twice in both directions is near to a Gaussian, and reaches `radius`.
QImage blurred(QImage mask, double radius, double scale) {
    const int reach = std::max(1, static_cast<int>(std::lround(radius * scale / 2)));
    for (int pass = 0; pass < 2; ++pass)
        mask = averaged(averaged(mask, reach, Qt::Horizontal), reach, Qt::Vertical);
    return mask;
}

/// One icon, in the middle of a picture with room around it.
QImage iconWithRoom(const QIcon& icon, double iconSize, double scale) {
    const double side = iconSize + 2 * AppIconRow::shadowRoom;
    const int pixels = static_cast<int>(std::ceil(side * scale));
    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paintAppIcon(painter, {AppIconRow::shadowRoom, AppIconRow::shadowRoom, iconSize, iconSize},
                 icon);
    return picture;
}

QImage shadowOf(const QImage& icon) {
    const double scale = icon.devicePixelRatioF();
    const QImage mask = blurred(icon.convertToFormat(QImage::Format_Alpha8), shadow.radius, scale);
    QImage dark(icon.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < dark.height(); ++y)
        for (int x = 0; x < dark.width(); ++x)
            reinterpret_cast<QRgb*>(dark.scanLine(y))[x] =
                qRgba(0, 0, 0, static_cast<int>(mask.constScanLine(y)[x] * shadow.opacity));
    dark.setDevicePixelRatio(scale);
    return dark;
}

} // namespace

QSizeF AppIconRow::size(int count, double iconSize) {
    if (count <= 0)
        return {0, 0};
    return {iconSize * (1 + (count - 1) * (1 - overlap)), iconSize};
}

QRectF AppIconRow::place(int index, int count, double iconSize, const QPointF& origin,
                         Qt::LayoutDirection direction) {
    const int fromLeft = direction == Qt::RightToLeft ? count - 1 - index : index;
    return {origin.x() + fromLeft * iconSize * (1 - overlap), origin.y(), iconSize, iconSize};
}

/// From the last, which lies lowest.
void AppIconRow::paint(QPainter& painter, const QPointF& origin, const std::vector<QIcon>& icons,
                       double iconSize, Qt::LayoutDirection direction) {
    const double scale = painter.device()->devicePixelRatioF();
    const int count = static_cast<int>(icons.size());
    const double towards = direction == Qt::RightToLeft ? -shadow.offset : shadow.offset;
    for (int index = count - 1; index >= 0; --index) {
        const QImage icon = iconWithRoom(icons[static_cast<std::size_t>(index)], iconSize, scale);
        const QPointF corner =
            Paint::onPixels(painter, place(index, count, iconSize, origin, direction)).topLeft() -
            QPointF(shadowRoom, shadowRoom);
        painter.drawImage(corner + QPointF(towards, 0), shadowOf(icon));
        painter.drawImage(corner, icon);
    }
}

AppIconStack::AppIconStack(ApplicationIcons& icons, double iconSize, QWidget* parent)
    : QWidget(parent)
    , m_icons(icons)
    , m_iconSize(iconSize) {
    QAccessible::installFactory(faceOf);
}

void AppIconStack::setAppNames(const QStringList& appNames) {
    if (appNames == m_appNames)
        return;
    m_appNames = appNames;
    setAccessibleName(QLocale().createSeparatedList(appNames));
    updateGeometry();
    update();
}

QSize AppIconStack::sizeHint() const {
    const auto room = static_cast<int>(AppIconRow::shadowRoom);
    const QSizeF row = AppIconRow::size(static_cast<int>(m_appNames.size()), m_iconSize);
    return {static_cast<int>(std::ceil(row.width())) + 2 * room,
            static_cast<int>(std::ceil(row.height())) + 2 * room};
}

/// At the leading edge and in the middle of the height.
QPointF AppIconStack::origin() const {
    const QSizeF row = AppIconRow::size(static_cast<int>(m_appNames.size()), m_iconSize);
    const double left = layoutDirection() == Qt::RightToLeft
                            ? width() - row.width() - AppIconRow::shadowRoom
                            : AppIconRow::shadowRoom;
    return {left, (height() - row.height()) / 2};
}

QString AppIconStack::appAt(const QPointF& point) const {
    const int count = static_cast<int>(m_appNames.size());
    for (int index = 0; index < count; ++index)
        if (AppIconRow::place(index, count, m_iconSize, origin(), layoutDirection())
                .contains(point))
            return m_appNames[index];
    return {};
}

bool AppIconStack::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString name = appAt(help->pos());
    if (name.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), name.toHtmlEscaped(), this);
    return true;
}

void AppIconStack::paintEvent(QPaintEvent*) {
    std::vector<QIcon> icons;
    for (const QString& name : m_appNames)
        icons.push_back(m_icons.find(name));
    QPainter painter(this);
    AppIconRow::paint(painter, origin(), icons, m_iconSize, layoutDirection());
}

} // namespace tolvar
