#include "Views/StartSession/CustomAppsRow.h"

#include "Views/AppPicker/AppIconStack.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Paint/Paint.h"
#include "Views/StartSession/SessionPlan.h"
#include "Views/Theme/Instrument.h"

#include <QHelpEvent>
#include <QToolTip>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    double plus = 11;
    double besidePlus = 7;
    double chevron = 10;
    double icon = 20;
    double besideIcons = 9;
};
constexpr Look look;

QFont moreFont() {
    return Instrument::font(11);
}

/// Takes a piece of this width off the line, at its start as it is read.
QRectF takeFromStart(QRectF& line, double width, bool isMirrored) {
    QRectF piece = line;
    if (isMirrored) {
        piece.setLeft(line.right() - width);
        line.setRight(piece.left());
    } else {
        piece.setRight(line.left() + width);
        line.setLeft(piece.right());
    }
    return piece;
}

QRectF centred(const QSizeF& size, const QRectF& within) {
    QRectF box(QPointF(0, 0), size);
    box.moveCenter(within.center());
    return box;
}

Qt::Alignment towardsStart(bool isMirrored) {
    return isMirrored ? Qt::AlignRight : Qt::AlignLeft;
}

} // namespace

CustomAppsRow::CustomAppsRow(const ControlContext& context, ApplicationIcons& icons,
                             QWidget* parent)
    : KeyButton(context, KeyStyle::standard(), customAppsLabel({}), parent)
    , m_icons(icons) {
    setAccessibleDescription(u"Opens the app picker"_s);
}

void CustomAppsRow::setApps(const std::set<QString>& apps) {
    m_count = apps.size();
    m_shown = QStringList(apps.begin(), apps.end()).mid(0, maxAppIcons);
    setName(customAppsLabel(apps));
}

QSizeF CustomAppsRow::labelSize() const {
    return {look.plus + look.besidePlus + Paint::textWidth(customAppsLabel({}), keyStyle().font) +
                look.besidePlus + look.chevron,
            look.icon};
}

void CustomAppsRow::paintLabel(QPainter& painter, const QRectF& label, const QColor& ink) {
    const Symbol onward = isMirrored() ? Symbol::chevronLeft : Symbol::chevronRight;
    const QSizeF chevron = symbolSize(onward, look.chevron);
    QRectF rest = label;
    const QRectF end = takeFromStart(rest, chevron.width(), !isMirrored());
    paintSymbol(painter, onward, centred(chevron, end), Palette::labelTertiary,
                SymbolWeight::semibold);
    if (m_count == 0)
        paintPurpose(painter, rest, ink);
    else
        paintChoice(painter, rest);
}

void CustomAppsRow::paintPurpose(QPainter& painter, const QRectF& line, const QColor& ink) const {
    const QSizeF plus = symbolSize(Symbol::plus, look.plus);
    QRectF rest = line;
    paintSymbol(painter, Symbol::plus,
                centred(plus, takeFromStart(rest, plus.width(), isMirrored())),
                Palette::labelTertiary, SymbolWeight::semibold);
    takeFromStart(rest, look.besidePlus, isMirrored());
    Paint::text(painter, rest, name(), keyStyle().font, ink, towardsStart(isMirrored()));
}

void CustomAppsRow::paintChoice(QPainter& painter, const QRectF& line) const {
    std::vector<QIcon> icons;
    for (const QString& app : m_shown)
        icons.push_back(m_icons.find(app));
    AppIconRow::paint(painter, iconsOrigin(line), icons, look.icon, layoutDirection());
    QRectF rest = line;
    const int count = static_cast<int>(m_shown.size());
    takeFromStart(rest, AppIconRow::size(count, look.icon).width() + look.besideIcons,
                  isMirrored());
    Paint::text(painter, rest, moreAppsText(m_count, maxAppIcons), moreFont(),
                Palette::labelTertiary, towardsStart(isMirrored()));
}

QPointF CustomAppsRow::iconsOrigin(const QRectF& line) const {
    const QSizeF size = AppIconRow::size(static_cast<int>(m_shown.size()), look.icon);
    const double left = isMirrored() ? line.right() - size.width() : line.left();
    return {left, line.center().y() - size.height() / 2};
}

QString CustomAppsRow::appAt(const QPointF& point) const {
    const int count = static_cast<int>(m_shown.size());
    const QPointF origin = iconsOrigin(labelPlace());
    for (int index = 0; index < count; ++index)
        if (AppIconRow::place(index, count, look.icon, origin, layoutDirection()).contains(point))
            return m_shown.at(index);
    return {};
}

bool CustomAppsRow::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return KeyButton::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString app = appAt(help->pos());
    if (app.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), app.toHtmlEscaped(), this);
    return true;
}

} // namespace tolvar
