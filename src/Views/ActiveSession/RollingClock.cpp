#include "Views/ActiveSession/RollingClock.h"

#include "Views/Paint/ClockText.h"
#include "Views/Paint/Paint.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

const Spring rolling = Spring::withResponse(0.3, 0.85);

struct RollingStyle {
    /// How far apart the faces of a drum are, in line heights, and how quickly they fade.
    double pitch = 0.56;
    double fading = 1.6;
};
constexpr RollingStyle style;

} // namespace

RollingClock::Drum::Drum(AnimationDriver& driver, AnimatedValue::Changed changed)
    : faces{{0, QChar()}}
    , position(driver, 0, std::move(changed)) {}

QChar RollingClock::Drum::shown() const {
    const auto face = faces.find(qRound(position.target()));
    return face == faces.end() ? QChar() : face->second;
}

void RollingClock::Drum::put(QChar character) {
    faces = {{0, character}};
    position.jumpTo(0);
}

/// What is still on its way out stays where it is: the new face is put behind all others.
void RollingClock::Drum::bring(QChar character, Direction direction) {
    if (!position.isMoving())
        put(shown());
    const int place =
        direction == Direction::up ? faces.rbegin()->first + 1 : faces.begin()->first - 1;
    faces[place] = character;
    position.animateTo(place, rolling);
}

RollingClock::RollingClock(AnimationDriver& driver, const QFont& font, double room, Changed changed)
    : m_driver(driver)
    , m_font(font)
    , m_room(room)
    , m_changed(std::move(changed))
    , m_capHeight(QFontMetricsF(font).capHeight())
    , m_lineHeight(QFontMetricsF(font).height())
    , m_width(driver, 0, [this] {
        tellOf({-m_room, -m_lineHeight / 2, 2 * m_room, m_lineHeight});
    }) {}

void RollingClock::roll(const QString& text, Direction direction) {
    if (text == m_text)
        return;
    m_text = text;
    ensureDrums(text.size());
    for (std::size_t i = 0; i < m_drums.size(); ++i) {
        const qsizetype index = text.size() - 1 - static_cast<qsizetype>(i);
        const QChar character = index < 0 ? QChar() : text[index];
        if (m_drums[i]->shown() != character)
            m_drums[i]->bring(character, direction);
    }
    m_width.animateTo(Paint::clockWidth(text, m_font), rolling);
}

void RollingClock::show(const QString& text) {
    roll(text, Direction::down);
    finish();
}

void RollingClock::finish() {
    for (const auto& drum : m_drums)
        drum->put(drum->shown());
    m_drums.resize(static_cast<std::size_t>(m_text.size()));
    m_width.finish();
}

bool RollingClock::isRolling() const {
    return m_width.isMoving() || std::any_of(m_drums.begin(), m_drums.end(), [](const auto& drum) {
               return drum->position.isMoving();
           });
}

void RollingClock::ensureDrums(qsizetype count) {
    while (static_cast<qsizetype>(m_drums.size()) < count) {
        const std::size_t index = m_drums.size();
        m_drums.push_back(
            std::make_unique<Drum>(m_driver, [this, index] { tellOf(cellArea(index)); }));
    }
}

void RollingClock::tellOf(const QRectF& area) const {
    m_changed({area.topLeft() * scale(), area.size() * scale()});
}

/// A colon belongs to the middle of the digits; typefaces let it stand on the line.
const RollingClock::Letter& RollingClock::letter(QChar character) const {
    auto& known = m_letters[character];
    if (known.cell == 0 && !character.isNull()) {
        known.cell = Paint::clockCell(character, m_font);
        const double advance = Paint::textWidth(QString(character), m_font);
        const double aside = (known.cell - m_font.letterSpacing() - advance) / 2;
        known.outline.addText(aside, 0, m_font, QString(character));
        if (!character.isDigit())
            known.outline.translate(0,
                                    -m_capHeight / 2 - known.outline.boundingRect().center().y());
    }
    return known;
}

double RollingClock::cellOf(const Drum& drum) const {
    double widest = 0;
    for (const auto& [place, character] : drum.faces)
        widest = std::max(widest, letter(character).cell);
    return widest;
}

QRectF RollingClock::cellArea(std::size_t fromRight) const {
    double right = m_width.value() / 2 + m_font.letterSpacing();
    for (std::size_t i = 0; i < fromRight; ++i)
        right -= cellOf(*m_drums[i]);
    const double cell = cellOf(*m_drums[fromRight]);
    return {right - cell, -m_lineHeight / 2, cell, m_lineHeight};
}

double RollingClock::scale() const {
    return m_width.value() > 0 ? std::clamp(m_room / m_width.value(), leastScale, 1.0) : 1;
}

void RollingClock::paint(QPainter& painter, const QPointF& center, const QColor& color) const {
    const Paint::Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.translate(center);
    if (scale() != 1)
        painter.scale(scale(), scale());
    for (std::size_t i = 0; i < m_drums.size(); ++i)
        paintDrum(painter, *m_drums[i], cellArea(i));
}

/// Cells stand on whole pixels, so that equal digits are equal pictures.
void RollingClock::paintDrum(QPainter& painter, const Drum& drum, const QRectF& cell) const {
    const QPointF origin =
        Paint::onPixels(painter, {QPointF(cell.left(), m_capHeight / 2), QSizeF(0, 0)}).topLeft();
    if (!drum.position.isMoving()) {
        paintLetter(painter, drum.shown(), origin);
        return;
    }
    const Paint::Saved saved(painter);
    painter.setClipRect(cell.adjusted(-1, 0, 1, 0), Qt::IntersectClip);
    for (const auto& [place, character] : drum.faces) {
        const double turn = place - drum.position.value();
        if (std::abs(turn) >= 1)
            continue;
        painter.setOpacity(std::pow(1 - std::abs(turn), style.fading));
        paintLetter(painter, character, origin + QPointF(0, turn * style.pitch * m_lineHeight));
    }
}

void RollingClock::paintLetter(QPainter& painter, QChar character, const QPointF& place) const {
    painter.translate(place);
    painter.drawPath(letter(character).outline);
    painter.translate(-place);
}

} // namespace tolvar
