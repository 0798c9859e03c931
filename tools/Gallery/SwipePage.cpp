#include "Gallery/SwipePage.h"

#include "Gallery/States.h"
#include "Platform/Common/QtTimerService.h"
#include "Views/Paint/Paint.h"
#include "Views/Shared/ActionMenu.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/Labels.h"
#include "Views/Shared/SwipeActionsContainer.h"
#include "Views/Theme/Instrument.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <memory>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

constexpr int margin = 24;
constexpr QSize rowSize{360, 64};
constexpr double cardRadius = 10;
constexpr double cardPadding = 14;

class SampleCard final : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Paint::bevel(painter, rect(), cardRadius, Bevel::card);
        Paint::text(painter, QRectF(rect()).adjusted(cardPadding, 0, -cardPadding, 0),
                    u"Write the second chapter"_s, Instrument::font(14, QFont::Medium, 0.14),
                    Palette::label,
                    layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft);
    }
};

std::vector<SwipeAction> sampleActions(bool canSave) {
    return {{.title = u"Start"_s, .symbol = Symbol::play, .tint = Palette::amber},
            {.title = canSave ? u"Save"_s : u"Saved"_s,
             .symbol = Symbol::bookmark,
             .tint = Palette::label,
             .isEnabled = canSave},
            {.title = u"Delete"_s,
             .symbol = Symbol::trash,
             .tint = Palette::stop,
             .isDestructive = true}};
}

enum class Saving { offered, done };

class SwipeSheet final : public QWidget {
public:
    explicit SwipeSheet(const ControlContext& context)
        : m_context(context)
        , m_grid(new QGridLayout(this)) {
        m_grid->setContentsMargins(margin, margin, margin, margin);
        m_grid->setVerticalSpacing(12);
        add(u"closed"_s, makeRow());
        add(u"on its way"_s, photographOnTheWay());
        add(u"open"_s, opened(makeRow()));
        add(u"disabled key"_s, opened(makeRow(Saving::done)));
        add(u"focused"_s, new Ringed(makeRow()));
        add(u"focused, open"_s, new Ringed(opened(makeRow())));
        auto* mirrored = makeRow();
        mirrored->setLayoutDirection(Qt::RightToLeft);
        add(u"mirrored"_s, opened(mirrored));
        add(u"menu"_s, photographOfMenu());
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Palette::panel);
    }

private:
    void add(const QString& name, QWidget* shown) {
        const int row = m_grid->rowCount();
        m_grid->addWidget(new SectionLabel(name), row, 0);
        m_grid->addWidget(shown, row, 1, Qt::AlignCenter);
    }
    SwipeActionsContainer* makeRow(Saving saving = Saving::offered) {
        auto* row = new SwipeActionsContainer(m_context, m_timers, {}, new SampleCard);
        row->setFixedSize(rowSize);
        row->setActions(sampleActions(saving == Saving::offered));
        return row;
    }
    static SwipeActionsContainer* opened(SwipeActionsContainer* row) {
        row->setOpen(true, SwipeActionsContainer::Motion::atOnce);
        return row;
    }
    static QWidget* photograph(QWidget& subject) {
        auto* picture = new QLabel;
        picture->setPixmap(subject.grab());
        return picture;
    }
    /// Of a window that nobody sees, with a hand at the row in it.
    QWidget* photographOnTheWay() {
        std::unique_ptr<SwipeActionsContainer> row(makeRow());
        row->setAttribute(Qt::WA_DontShowOnScreen);
        QPalette panel;
        panel.setColor(QPalette::Window, Palette::panel);
        row->setPalette(panel);
        row->show();
        const QPointF from = QRectF(row->rect()).center();
        const auto send = [&row](QEvent::Type type, const QPointF& at) {
            QMouseEvent event(type, at, at, row->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(row->windowHandle(), &event);
        };
        send(QEvent::MouseButtonPress, from);
        send(QEvent::MouseMove, from - QPointF(100, 0));
        return photograph(*row);
    }
    QWidget* photographOfMenu() {
        const std::unique_ptr<QMenu> menu(
            makeActionMenu(sampleActions(false), {{.title = u"Clear History…"_s}}, *this));
        menu->ensurePolished();
        menu->resize(menu->sizeHint());
        menu->setActiveAction(menu->actions().front());
        return photograph(*menu);
    }

    const ControlContext m_context;
    QtTimerService m_timers;
    QGridLayout* m_grid;
};

} // namespace

Page swipePage() {
    return {u"swipe"_s,
            [](const ControlContext& context) -> QWidget* { return new SwipeSheet(context); }};
}

} // namespace tolvar::gallery
