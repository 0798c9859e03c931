#include "Views/Presets/CardScreen.h"

#include "Models/FocusManager.h"
#include "Views/Presets/GoalInputSheet.h"
#include "Views/Shared/Labels.h"
#include "Views/Shared/Sheet.h"
#include "Views/Theme/Instrument.h"

#include <QFontMetrics>

#include <algorithm>
#include <utility>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

/// The last card is gone by then.
constexpr double emptyDelay = 0.2;
const Eased emptyEntrance{0.2, Easing::easeOut()};
/// Of a record's name within a question, in points.
constexpr int longestName = 240;

} // namespace

CardScreen::CardScreen(const Environment& environment, const CardList::Style& style,
                       const Texts& texts, QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_deleteMessage(texts.deleteMessage)
    , m_list(new CardList(environment.context, environment.timers, *this, style, this))
    , m_empty(new EmptyState(texts.emptySymbol, texts.emptyTitle, texts.emptyMessage, this))
    , m_emptiness(environment.context.motion, 1, [this] { follow(); })
    , m_goalSheet(new GoalInputSheet(environment.context, environment.window))
    , m_deletion(new ConfirmationSheet(environment.context,
                                       {.title = texts.deleteTitle,
                                        .message = {},
                                        .cancel = u"Cancel"_s,
                                        .confirm = u"Delete"_s},
                                       environment.window))
    , m_sheets{m_goalSheet, m_deletion} {
    m_list->hide();
    connect(m_list, &CardList::deleteRequested, this, &CardScreen::askToDelete);
    connect(m_deletion, &ConfirmationSheet::confirmed, this, [this] { deleteRecord(m_toDelete); });
    connect(m_goalSheet, &GoalInputSheet::started, this, [this](const QString& goal) {
        if (!m_environment.focusManager.activeSession())
            startRecord(goal);
    });
}

CardScreen::~CardScreen() = default;

void CardScreen::takeKeyboard(Qt::FocusReason reason) {
    if (!m_list->ids().empty())
        m_list->containerInView(std::max(0, m_list->currentRow())).setFocus(reason);
}

bool CardScreen::closeRow() {
    const bool wasOpen = m_list->openId().has_value();
    m_list->setOpenId(std::nullopt);
    return wasOpen;
}

void CardScreen::setRecords(std::vector<QUuid> ids, const Spring& spring) {
    const bool isEmpty = ids.empty();
    m_list->setIds(std::move(ids),
                   isVisible() ? CardList::Change::animated : CardList::Change::atOnce, spring);
    showEmpty(isEmpty);
    if (m_deletion->isUp() && !recordName(m_toDelete))
        m_deletion->sink();
}

/// What says that there is nothing comes when the last card has gone.
void CardScreen::showEmpty(bool isEmpty) {
    m_empty->setVisible(isEmpty);
    if (!isEmpty) {
        m_list->show();
        m_emptiness.jumpTo(0);
    } else if (isVisible()) {
        m_emptiness.animateTo(1, emptyEntrance, {.delay = emptyDelay});
    } else {
        m_emptiness.jumpTo(1);
    }
    follow();
}

void CardScreen::follow() {
    m_empty->setOpacity(std::clamp(m_emptiness.value(), 0.0, 1.0));
    if (!m_empty->isHidden() && !m_emptiness.isMoving())
        m_list->hide();
}

bool CardScreen::mayAsk() const {
    return isVisible() && !m_environment.focusManager.activeSession();
}

void CardScreen::askForGoal(const QString& title, Seconds duration) {
    if (!mayAsk())
        return;
    m_list->setOpenId(std::nullopt);
    m_goalSheet->ask(title, duration);
}

SwipeAction CardScreen::deletion(const QUuid& id) {
    return {.title = u"Delete"_s,
            .symbol = Symbol::trash,
            .tint = Instrument::Palette::stop,
            .isDestructive = true,
            .action = [this, id] { deleteRecord(id); }};
}

void CardScreen::askToDelete(const QUuid& id) {
    const std::optional<QString> name = recordName(id);
    if (!name || !mayAsk())
        return;
    m_toDelete = id;
    const QFontMetrics metrics(Instrument::font(12));
    m_deletion->setMessage(
        m_deleteMessage.arg(metrics.elidedText(name->simplified(), Qt::ElideRight, longestName)));
    m_deletion->rise();
}

ConfirmationSheet* CardScreen::addQuestion(ConfirmationSheet* question) {
    m_sheets.push_back(question);
    return question;
}

void CardScreen::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_list->setGeometry(rect());
    m_empty->setGeometry(rect());
}

void CardScreen::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_emptiness.finish();
    for (Sheet* sheet : m_sheets)
        sheet->sink();
}

} // namespace tolvar
