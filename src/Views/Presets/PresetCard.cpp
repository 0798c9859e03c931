#include "Views/Presets/PresetCard.h"

#include "Views/Paint/Paint.h"
#include "Views/Presets/CardLook.h"
#include "Views/Shared/KeyButton.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    double lineHeight = 18;
    double nameMiddle = 22;
    double blockedMiddle = 45;
    double gap = 12;
    double keyEnd = 12;
};
constexpr Look look;

KeyStyle startKeyStyle() {
    KeyStyle style = KeyStyle::card();
    style.symbolSize = 11;
    style.symbolWeight = SymbolWeight::semibold;
    style.padding = {12, 9, 13, 10};
    style.spacing = 6;
    return style;
}

QFont durationFont() {
    return CardLook::smallFont(QFont::Medium);
}

} // namespace

PresetCard::PresetCard(const ControlContext& context, ApplicationIcons& icons, QWidget* parent)
    : QWidget(parent)
    , m_icons(icons)
    , m_start(new KeyButton(context, startKeyStyle(), u"Start"_s, this)) {
    m_start->setSymbol(Symbol::play);
    connect(m_start, &KeyButton::clicked, this, [this] { Q_EMIT selected(m_id); });
}

void PresetCard::setContent(const PresetCardContent& content, const QUuid& id) {
    m_content = content;
    m_id = id;
    m_start->setAccessibleDescription(content.name);
    update();
}

QSize PresetCard::sizeHint() const {
    return {cardLook.preferredWidth, fixedHeight};
}

/// A name alone stands in the middle.
PresetCard::Places PresetCard::places() const {
    QRectF line(cardLook.padding, 0, width() - cardLook.padding - look.keyEnd, height());
    if (layoutDirection() == Qt::RightToLeft)
        line.moveLeft(look.keyEnd);
    line.translate(0, -cardLook.rise);
    const QSize key = m_start->sizeHint();
    Places places;
    places.start = CardLook::takeFromEnd(line, key.width(), look.gap, layoutDirection());
    places.start.setTop((height() - key.height()) / 2.0);
    places.start.setHeight(key.height());
    places.duration = CardLook::takeFromEnd(
        line, Paint::textWidth(m_content.duration, durationFont()), look.gap, layoutDirection());
    places.duration.translate(0, -cardLook.rise);
    places.name = places.blocked = line;
    if (m_content.blocked.isEmpty())
        return places;
    places.name.setTop(look.nameMiddle - cardLook.rise - look.lineHeight / 2);
    places.name.setHeight(look.lineHeight);
    places.blocked.setTop(look.blockedMiddle - cardLook.rise - look.lineHeight / 2);
    places.blocked.setHeight(look.lineHeight);
    return places;
}

void PresetCard::placeKey() {
    m_start->setGeometry(places().start.toRect());
}

void PresetCard::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeKey();
}

void PresetCard::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        placeKey();
}

bool PresetCard::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString app =
        m_content.blocked.appAt(help->pos(), places().blocked, m_icons, layoutDirection());
    if (app.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), app.toHtmlEscaped(), this);
    return true;
}

void PresetCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Paint::bevel(painter, rect(), cardLook.radius, Bevel::card);
    const Places places = this->places();
    Paint::text(painter, places.name, m_content.name, CardLook::titleFont(), Palette::label,
                CardLook::leading(layoutDirection()));
    m_content.blocked.paint(painter, places.blocked, m_icons, layoutDirection());
    Paint::text(painter, places.duration, m_content.duration, durationFont(),
                Palette::labelSecondary, CardLook::leading(layoutDirection()));
}

} // namespace tolvar
