#include "Views/AppPicker/AppIconView.h"

#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"
#include "Views/Theme/Symbol.h"

#include <QAccessibleWidget>
#include <QPainter>

#include <cmath>

namespace tolvar {

namespace {

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* view = qobject_cast<AppIconView*>(object);
    return view ? new QAccessibleWidget(view, QAccessible::Graphic) : nullptr;
}

/// In parts of the icon's side, as icons of applications usually are.
struct Placeholder {
    double inset = 0.0625;
    double radius = 0.22;
    double symbol = 0.72;
};
constexpr Placeholder placeholder;

QRectF fittedInto(const QRectF& box, const QSizeF& size) {
    QRectF fitted(QPointF(0, 0), size.scaled(box.size(), Qt::KeepAspectRatio));
    fitted.moveCenter(box.center());
    return fitted;
}

/// A blank plate: something is there that has no face.
void paintPlaceholder(QPainter& painter, const QRectF& box) {
    const double inset = box.width() * placeholder.inset;
    Paint::fill(painter, box.adjusted(inset, inset, -inset, -inset),
                box.width() * placeholder.radius, Instrument::Palette::hairline);
    QRectF symbol(QPointF(0, 0), box.size() * placeholder.symbol);
    symbol.moveCenter(box.center());
    paintSymbol(painter, Symbol::appDashed, symbol, Instrument::Palette::labelTertiary);
}

} // namespace

void paintAppIcon(QPainter& painter, const QRectF& box, const QIcon& icon) {
    const QRectF whole = Paint::onPixels(painter, box);
    const double scale = painter.device()->devicePixelRatioF();
    const QPixmap picture = icon.isNull() ? QPixmap() : icon.pixmap(whole.size().toSize(), scale);
    if (picture.isNull()) {
        paintPlaceholder(painter, whole);
        return;
    }
    const Paint::Saved saved(painter);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(fittedInto(whole, picture.size()), picture, picture.rect());
}

AppIconView::AppIconView(ApplicationIcons& icons, const QString& appName, double size,
                         QWidget* parent)
    : QWidget(parent)
    , m_icons(icons)
    , m_appName(appName)
    , m_size(size) {
    QAccessible::installFactory(faceOf);
    setAccessibleName(appName);
}

QSize AppIconView::sizeHint() const {
    const int side = static_cast<int>(std::ceil(m_size));
    return {side, side};
}

void AppIconView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintAppIcon(painter, fittedInto(rect(), {m_size, m_size}), m_icons.find(m_appName));
}

} // namespace tolvar
