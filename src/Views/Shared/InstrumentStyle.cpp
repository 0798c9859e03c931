#include "Views/Shared/InstrumentStyle.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <QMenu>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>

#include <cmath>
#include <utility>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

struct MenuLook {
    double radius = 9;
    int padding = 5;
    double itemRadius = 5;
    int itemHeight = 28;
    int itemPadding = 10;
    /// Of the symbol before the text, and between the two.
    int icon = 16;
    int betweenIconAndText = 9;
    int separatorHeight = 9;
    int leastWidth = 140;
};
constexpr MenuLook menuLook;

struct TipLook {
    double radius = 6;
    int padding = 7;
};
constexpr TipLook tipLook;

QFont menuFont() {
    return Instrument::font(12, QFont::Medium, 0.12);
}

QFont tipFont() {
    return Instrument::font(11);
}

bool isTip(const QWidget& widget) {
    return widget.inherits("QTipLabel");
}

/// A doubled ampersand is one that is meant.
QString withoutMnemonic(const QString& text) {
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && ++i == text.size())
            break;
        plain.append(text[i]);
    }
    return plain;
}

/// What the texts of a menu leave free before them, if one of its lines has a symbol.
int roomForIcon(const QStyleOptionMenuItem& item) {
    return item.maxIconWidth > 0 ? menuLook.icon + menuLook.betweenIconAndText : 0;
}

void paintIcon(QPainter& painter, const QStyleOptionMenuItem& item, const QRect& line) {
    QRect box(0, 0, menuLook.icon, menuLook.icon);
    box.moveCenter(line.center());
    if (item.direction == Qt::RightToLeft)
        box.moveRight(line.right());
    else
        box.moveLeft(line.left());
    item.icon.paint(&painter, box, Qt::AlignCenter,
                    item.state & QStyle::State_Enabled ? QIcon::Normal : QIcon::Disabled);
}

void paintItem(QPainter& painter, const QStyleOptionMenuItem& item) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        QRectF line(item.rect);
        line.setBottom(line.center().y());
        Paint::ruleBelow(painter, line, Palette::hairline);
        return;
    }
    const bool isEnabled = item.state & QStyle::State_Enabled;
    const bool isChosen = isEnabled && (item.state & QStyle::State_Selected);
    if (isChosen)
        Paint::bevel(painter, item.rect, menuLook.itemRadius, Bevel::modeIndicator);
    const QColor ink =
        isEnabled ? isChosen ? Palette::label : Palette::labelSecondary : Palette::labelQuaternary;
    const int padding = menuLook.itemPadding;
    const QRect line = item.rect.adjusted(padding, 0, -padding, 0);
    paintIcon(painter, item, line);
    const bool isMirrored = item.direction == Qt::RightToLeft;
    const int room = roomForIcon(item);
    Paint::text(painter, line.adjusted(isMirrored ? 0 : room, 0, isMirrored ? -room : 0, 0),
                withoutMnemonic(item.text), menuFont(), ink,
                isMirrored ? Qt::AlignRight : Qt::AlignLeft);
}

} // namespace

InstrumentStyle::InstrumentStyle(std::function<bool()> showsTranslucency)
    : QProxyStyle(QStyleFactory::create(u"Fusion"_s))
    , m_showsTranslucency(std::move(showsTranslucency)) {}

/// The corners of what is rounded show what is behind it.
void InstrumentStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    const bool isMenu = qobject_cast<QMenu*>(widget) != nullptr;
    if (!isMenu && !isTip(*widget))
        return;
    widget->setAttribute(Qt::WA_TranslucentBackground);
    widget->setFont(isMenu ? menuFont() : tipFont());
    if (isMenu)
        widget->setWindowFlags(widget->windowFlags() | Qt::FramelessWindowHint |
                               Qt::NoDropShadowWindowHint);
    QPalette inks = widget->palette();
    inks.setColor(QPalette::ToolTipText, Palette::label);
    inks.setColor(QPalette::WindowText, Palette::label);
    widget->setPalette(inks);
}

void InstrumentStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                    QPainter* painter, const QWidget* widget) const {
    if (element == PE_PanelTipLabel)
        Paint::bevel(*painter, option->rect, tipLook.radius, Bevel::cardKey);
    else if (element == PE_PanelMenu)
        Paint::bevel(*painter, option->rect, menuLook.radius, Bevel::card);
    else if (element != PE_FrameMenu)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void InstrumentStyle::drawControl(ControlElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item)
        paintItem(*painter, *item);
    else if (element != CE_MenuEmptyArea)
        QProxyStyle::drawControl(element, option, painter, widget);
}

QSize InstrumentStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                        const QSize& contents, const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || !item)
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (item->menuItemType == QStyleOptionMenuItem::Separator)
        return {menuLook.leastWidth, menuLook.separatorHeight};
    const double width = Paint::textWidth(withoutMnemonic(item->text), menuFont());
    return {std::max(menuLook.leastWidth, static_cast<int>(std::ceil(width)) +
                                              2 * menuLook.itemPadding + roomForIcon(*item)),
            menuLook.itemHeight};
}

int InstrumentStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                 const QWidget* widget) const {
    switch (metric) {
    case PM_MenuPanelWidth:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return menuLook.padding;
    case PM_ToolTipLabelFrameWidth:
        return tipLook.padding;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int InstrumentStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                               QStyleHintReturn* answer) const {
    switch (hint) {
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_ToolTip_Mask:
        return option ? mask(*option, tipLook.radius, answer) : 0;
    case SH_Menu_Mask:
        return option ? mask(*option, menuLook.radius, answer) : 0;
    case SH_Menu_MouseTracking:
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, answer);
    }
}

/// Whether the window is to be cut, and its shape then.
int InstrumentStyle::mask(const QStyleOption& option, double radius,
                          QStyleHintReturn* answer) const {
    auto* shape = qstyleoption_cast<QStyleHintReturnMask*>(answer);
    if (!shape || m_showsTranslucency())
        return 0;
    shape->region = Paint::roundedRegion(option.rect, radius);
    return 1;
}

} // namespace tolvar
