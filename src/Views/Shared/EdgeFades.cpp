#include "Views/Shared/EdgeFades.h"

#include "Views/Theme/Instrument.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace tolvar {

namespace {

struct Look {
    int lower = 20;
    int upper = 12;
};
constexpr Look look;

/// From nothing to the panel, towards the edge of the page that it lies over.
class Fade final : public QWidget {
public:
    Fade(Qt::Edge edge, QWidget* parent)
        : QWidget(parent)
        , m_edge(edge) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        QColor clear = Instrument::Palette::panel;
        clear.setAlpha(0);
        const bool isLower = m_edge == Qt::BottomEdge;
        QLinearGradient veil(0, 0, 0, height());
        veil.setColorAt(isLower ? 0 : 1, clear);
        veil.setColorAt(isLower ? 1 : 0, Instrument::Palette::panel);
        painter.fillRect(rect(), veil);
    }

private:
    const Qt::Edge m_edge;
};

} // namespace

EdgeFades::EdgeFades(QAbstractScrollArea& area)
    : QObject(&area)
    , m_area(area)
    , m_upper(new Fade(Qt::TopEdge, &area))
    , m_lower(new Fade(Qt::BottomEdge, &area)) {
    area.installEventFilter(this);
    connect(area.verticalScrollBar(), &QScrollBar::valueChanged, this, &EdgeFades::place);
    place();
}

bool EdgeFades::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_area && event->type() == QEvent::Resize)
        place();
    return QObject::eventFilter(watched, event);
}

void EdgeFades::place() {
    const int gone = std::min(m_area.verticalScrollBar()->value(), look.upper);
    const int width = m_area.width();
    m_upper->setGeometry(0, gone - look.upper, width, look.upper);
    m_lower->setGeometry(0, m_area.height() - look.lower, width, look.lower);
}

} // namespace tolvar
