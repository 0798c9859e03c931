#include "Views/Shared/ActionMenu.h"

#include "Views/Theme/Instrument.h"

#include <QIconEngine>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

/// A symbol as crisp as on a key, whatever the size and the screen.
class SymbolEngine final : public QIconEngine {
public:
    SymbolEngine(Symbol symbol, const QColor& ink)
        : m_symbol(symbol)
        , m_ink(ink) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        paintSymbol(*painter, m_symbol, rect,
                    mode == QIcon::Disabled ? Palette::labelQuaternary : m_ink);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap made(size);
        made.fill(Qt::transparent);
        QPainter painter(&made);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return made;
    }
    QIconEngine* clone() const override { return new SymbolEngine(m_symbol, m_ink); }

private:
    const Symbol m_symbol;
    const QColor m_ink;
};

/// Does nothing when the button that opened it is let go, wherever the hand has slipped to by then:
/// a line is chosen by a press of its own.
class DeliberateMenu final : public QMenu {
public:
    using QMenu::QMenu;

protected:
    void mousePressEvent(QMouseEvent* event) override {
        m_isPressed = true;
        QMenu::mousePressEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (m_isPressed)
            QMenu::mouseReleaseEvent(event);
    }

private:
    bool m_isPressed = false;
};

/// As it is written, not as a mnemonic.
QString plain(QString title) {
    return title.replace(u'&', QStringLiteral("&&"));
}

void add(QMenu& menu, const SwipeAction& action) {
    const QColor ink = action.isDestructive ? Palette::stop : Palette::labelSecondary;
    QAction* line = menu.addAction(QIcon(new SymbolEngine(action.symbol, ink)), plain(action.title),
                                   action.action);
    line->setEnabled(action.isEnabled);
}

} // namespace

QMenu* makeActionMenu(const std::vector<SwipeAction>& own, const std::vector<SwipeAction>& common,
                      QWidget& owner) {
    if (own.empty() && common.empty())
        return nullptr;
    auto* menu = new DeliberateMenu(&owner);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const SwipeAction& action : own)
        add(*menu, action);
    if (!own.empty() && !common.empty())
        menu->addSeparator();
    for (const SwipeAction& action : common)
        add(*menu, action);
    return menu;
}

} // namespace tolvar
