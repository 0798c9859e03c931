#include "Views/FocusWindow/HeaderView.h"

#include "Views/FocusWindow/StatusBadge.h"
#include "Views/Paint/Paint.h"
#include "Views/Shared/CastleView.h"
#include "Views/Theme/Instrument.h"

#include <QHBoxLayout>
#include <QLinearGradient>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    int horizontalPadding = 20;
    int verticalPadding = 18;
    int castle = 40;
};
constexpr Look look;

} // namespace

HeaderView::HeaderView(AnimationDriver& driver, SessionStatus status, QWidget* parent)
    : QWidget(parent)
    , m_badge(new StatusBadge(driver, status)) {
    auto* castle = new CastleView(look.castle, Palette::amber);
    castle->setAccessibleName(u"Tolvar"_s);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(look.horizontalPadding, look.verticalPadding, look.horizontalPadding,
                            look.verticalPadding);
    row->addWidget(castle);
    row->addStretch();
    row->addWidget(m_badge);
    setFixedHeight(look.castle + 2 * look.verticalPadding);
}

void HeaderView::setStatus(SessionStatus status) {
    m_badge->setStatus(status);
}

void HeaderView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QLinearGradient face(0, 0, 0, height());
    face.setColorAt(0, Palette::headerTop);
    face.setColorAt(1, Palette::headerBottom);
    painter.fillRect(rect(), face);
    Paint::ruleBelow(painter, rect(), Palette::rule);
}

} // namespace tolvar
