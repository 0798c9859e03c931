#include "Views/Shared/FadingScrollArea.h"

#include "Views/Theme/Instrument.h"

#include <QLinearGradient>
#include <QPainter>
#include <QScrollBar>

namespace tolvar {

namespace {

struct Look {
    int fade = 20;
    int step = 20;
};
constexpr Look look;

class Fade final : public QWidget {
public:
    explicit Fade(QWidget* parent)
        : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        QColor clear = Instrument::Palette::panel;
        clear.setAlpha(0);
        QLinearGradient veil(0, 0, 0, height());
        veil.setColorAt(0, clear);
        veil.setColorAt(1, Instrument::Palette::panel);
        painter.fillRect(rect(), veil);
    }
};

} // namespace

FadingScrollArea::FadingScrollArea(QWidget* page, QWidget* parent)
    : QScrollArea(parent)
    , m_fade(new Fade(this)) {
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(look.step);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(page);
    page->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

void FadingScrollArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    m_fade->setGeometry(0, height() - look.fade, width(), look.fade);
    m_fade->raise();
}

} // namespace tolvar
