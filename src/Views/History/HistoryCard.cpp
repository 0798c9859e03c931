#include "Views/History/HistoryCard.h"

#include "Views/Paint/Paint.h"
#include "Views/Presets/CardLook.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    double lineHeight = 18;
    double titleMiddle = 20;
    double blockedMiddle = 43;
    double dateMiddle = 65;
    /// Of the two lines that are left where nothing is blocked.
    double titleMiddleAlone = 30;
    double dateMiddleAlone = 55;
    double gap = 12;
    double plateHeight = 18;
    double platePadding = 8;
};
constexpr Look look;

/// How an outcome looks: a plate with a word on it.
struct OutcomeInks {
    QColor plate;
    QColor rim;
    QColor ink;
};

OutcomeInks inksOf(SessionOutcome outcome) {
    if (outcome == SessionOutcome::completed)
        return {Palette::successPlate, Palette::successRim, Palette::successInk};
    return {Palette::raisedFaint, Palette::hairline, Palette::labelDim};
}

QFont outcomeFont() {
    return Instrument::font(10, QFont::Medium, 0.2);
}

} // namespace

HistoryCard::HistoryCard(ApplicationIcons& icons, QWidget* parent)
    : QWidget(parent)
    , m_icons(icons) {}

void HistoryCard::setContent(const HistoryCardContent& content) {
    m_content = content;
    update();
}

QSize HistoryCard::sizeHint() const {
    return {cardLook.preferredWidth, fixedHeight};
}

HistoryCard::Lines HistoryCard::lines() const {
    const auto line = [this](double middle) {
        return QRectF(cardLook.padding, middle - cardLook.rise - look.lineHeight / 2,
                      width() - 2 * cardLook.padding, look.lineHeight);
    };
    if (m_content.blocked.isEmpty())
        return {line(look.titleMiddleAlone), {}, line(look.dateMiddleAlone)};
    return {line(look.titleMiddle), line(look.blockedMiddle), line(look.dateMiddle)};
}

bool HistoryCard::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString app =
        m_content.blocked.appAt(help->pos(), lines().blocked, m_icons, layoutDirection());
    if (app.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), app.toHtmlEscaped(), this);
    return true;
}

void HistoryCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Paint::bevel(painter, rect(), cardLook.radius, Bevel::card);
    auto [title, blocked, date] = lines();
    paintOutcome(painter, title);
    Paint::text(painter, title, m_content.title(), CardLook::titleFont(),
                m_content.goal.isEmpty() ? Palette::labelTertiary : Palette::label,
                CardLook::leading(layoutDirection()));
    m_content.blocked.paint(painter, blocked, m_icons, layoutDirection());
    paintTimes(painter, date);
}

/// At the end of the title's line, of which it takes what it needs.
void HistoryCard::paintOutcome(QPainter& painter, QRectF& line) const {
    if (!m_content.outcome)
        return;
    const QString text = m_content.outcomeText();
    const double width = Paint::textWidth(text, outcomeFont()) + 2 * look.platePadding;
    QRectF plate = CardLook::takeFromEnd(line, width, look.gap, layoutDirection());
    plate = Paint::onPixels(painter, plate);
    const OutcomeInks inks = inksOf(*m_content.outcome);
    Paint::fill(painter, plate, look.plateHeight / 2, inks.plate);
    Paint::outline(painter, plate, look.plateHeight / 2, inks.rim);
    Paint::text(painter, plate, text, outcomeFont(), inks.ink, Qt::AlignHCenter);
}

void HistoryCard::paintTimes(QPainter& painter, const QRectF& line) const {
    QRectF rest = line;
    const QFont font = CardLook::smallFont(QFont::Medium);
    const QRectF focused = CardLook::takeFromEnd(rest, Paint::textWidth(m_content.focused, font),
                                                 look.gap, layoutDirection());
    Paint::text(painter, focused, m_content.focused, font, Palette::labelSecondary,
                CardLook::leading(layoutDirection()));
    Paint::text(painter, rest, m_content.date, Instrument::font(11), Palette::labelDim,
                CardLook::leading(layoutDirection()));
}

} // namespace tolvar
